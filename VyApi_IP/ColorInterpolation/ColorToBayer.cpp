#include "ColorInterpolation/ColorToBayer.h"

#include <VyApi_IP/VyReporter.h>

#include "ColorInterpolation/BayerPhase.h"

namespace VyApi {
namespace {

// One destination line: even columns take component iEven of their source
// pixel, odd columns component iOdd.
template <typename Sample, size_t N>
VY_KERNEL_CLONES void SampleLine(const Sample* __restrict s, Sample* __restrict d, size_t w, size_t iEven, size_t iOdd) {
  const size_t nPairs = w / 2;
  for (size_t k = 0; k < nPairs; ++k) {
    d[2 * k] = s[2 * k * N + iEven];
    d[2 * k + 1] = s[(2 * k + 1) * N + iOdd];
  }
  if (w & 1) d[w - 1] = s[(w - 1) * N + iEven];
}

}  // namespace

template <typename Sample>
void CColorToBayer<Sample>::Run(uint32_t eDestColorFilter, const SBayerJob& job) {
  if (!IsBayerPhase(eDestColorFilter)) VY_ASSERT(false);
  VY_ASSERT(job.nComponents == 3 || job.nComponents == 4);
  const EBayerPhase_t ePhase = static_cast<EBayerPhase_t>(eDestColorFilter);
  auto index = [&](EBayerColour_t e) {
    return e == BayerColour_G ? size_t(1) : e == BayerColour_R ? job.RedIndex() : job.BlueIndex();
  };
  const size_t h = job.nHeight;
  for (size_t d = 0; d < h; ++d) {
    const size_t r = job.bReverseY ? h - 1 - d : d;
    const size_t iEven = index(BayerSiteColour(ePhase, d & 1, 0));
    const size_t iOdd = index(BayerSiteColour(ePhase, d & 1, 1));
    const Sample* s = job.SrcLine<Sample>(r);
    Sample* pDest = job.DestLineAt<Sample>(d);
    if (job.nComponents == 3)
      SampleLine<Sample, 3>(s, pDest, job.nWidth, iEven, iOdd);
    else
      SampleLine<Sample, 4>(s, pDest, job.nWidth, iEven, iOdd);
  }
}

template class CColorToBayer<uint8_t>;
template class CColorToBayer<uint16_t>;

}  // namespace VyApi
