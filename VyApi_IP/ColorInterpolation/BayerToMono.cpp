#include "ColorInterpolation/BayerToMono.h"

#include <cstring>
#include <new>
#include <vector>

#include <VyApi_IP/VyReporter.h>

#include "ColorInterpolation/BayerPhase.h"
#include "ColorInterpolation/BayerWindow2x2.h"

namespace VyApi {
namespace {

template <typename Sample, EBayerPhase_t Phase>
class CBayerToMonoPhase {
public:
  static void Run(const SBayerJob& job) {
    const size_t w = job.nWidth, h = job.nHeight;
    if (w < 2 || h < 2) {
      // A single line or column has no window; each site stands for itself.
      for (size_t r = 0; r < h; ++r) std::memcpy(job.DestLine<Sample>(r), job.SrcLine<Sample>(r), w * sizeof(Sample));
      return;
    }
    std::vector<Sample> vecPlanes(3 * w);
    for (size_t r = 0; r < h; ++r) {
      Sample* pDest = job.DestLine<Sample>(r);
      if ((h & 1) && h >= 3 && r == h - 1) {
        // An odd height's last line repeats line h - 3 (window lines h - 3, h - 2).
        std::memcpy(pDest, job.DestLine<Sample>(h - 3), w * sizeof(Sample));
        continue;
      }
      // Window partner: the next line; the last line of an even height and
      // line h - 2 of an odd height pair with the line above.
      const size_t rPartner = (r + 1 < h && !((h & 1) && r == h - 2)) ? r + 1 : r - 1;
      if (r & 1)
        mLine<1>(job.SrcLine<Sample>(r), job.SrcLine<Sample>(rPartner), vecPlanes.data(), pDest, w);
      else
        mLine<0>(job.SrcLine<Sample>(r), job.SrcLine<Sample>(rPartner), vecPlanes.data(), pDest, w);
    }
  }

private:
  template <unsigned RowParity>
  VY_KERNEL_CLONES static void mLine(const Sample* s, const Sample* t, Sample* pPlanes, Sample* __restrict pDest, size_t w) {
    using Window = CBayerWindow2x2<Sample, Phase, RowParity>;
    Sample* __restrict pR = pPlanes + (Window::eOwnColour == BayerColour_R ? 0 : w);
    Sample* __restrict pB = pPlanes + (Window::eOwnColour == BayerColour_R ? w : 0);
    Sample* __restrict pG = pPlanes + 2 * w;
    Window::Line(s, t, Window::eOwnColour == BayerColour_R ? pR : pB, Window::eOwnColour == BayerColour_R ? pB : pR,
                 pG, w);
    // GRBG/GBRG, w odd, odd lines: the last green pairs S[r][w - 3], which
    // is no green site, with the partner line's green S[r'][w - 1].
    if ((Phase == BayerPhase_GR || Phase == BayerPhase_GB) && RowParity == 1 && (w & 1) && w >= 3)
      pG[w - 1] = static_cast<Sample>((unsigned(s[w - 3]) + t[w - 1]) >> 1);
    for (size_t c = 0; c < w; ++c)
      pDest[c] = static_cast<Sample>((2u * pR[c] + 5u * pG[c] + unsigned(pB[c])) >> 3);
  }
};

template <typename Sample>
using PFMono = void (*)(const SBayerJob&);

}  // namespace

template <typename Sample>
void CBayerToMono<Sample>::Run(uint32_t eColorFilter, const SBayerJob& job) {
  static const PFMono<Sample> s_aByPhase[4] = {
      &CBayerToMonoPhase<Sample, BayerPhase_RG>::Run, &CBayerToMonoPhase<Sample, BayerPhase_GR>::Run,
      &CBayerToMonoPhase<Sample, BayerPhase_GB>::Run, &CBayerToMonoPhase<Sample, BayerPhase_BG>::Run};
  if (!IsBayerPhase(eColorFilter)) VY_ASSERT(false);
  try {
    s_aByPhase[eColorFilter - BayerPhase_RG](job);
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
}

template class CBayerToMono<uint8_t>;
template class CBayerToMono<uint16_t>;

}  // namespace VyApi
