// Demosaicing method BilinearFalseColorReduction: all colours of a pixel are
// sampled at the centre of its window (r + 1/2, c + 1/2). Green is the one of
// NearestNeighbor2; red and blue are (9n + 3h + 3v + d) >> 4 of the four
// nearest sites of that colour around the centre, a missing partner on an
// axis standing in as the near site. For GRBG and GBRG: at column 0 the
// colour with sites in even columns takes no horizontal partner, and with w
// odd the last pixel of odd lines has green (3 S[r'][w-1] + S[r][w-2]) >> 2.
// Input: an SBayerJob with source mosaic and 3/4-component destination,
// w >= 4 and h >= 4.
#ifndef VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONBILINEARFALSECOLORREDUCTION_H
#define VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONBILINEARFALSECOLORREDUCTION_H

#include <cstdint>
#include <type_traits>
#include <vector>

#include "ColorInterpolation/BayerLinePlanes.h"
#include "ColorInterpolation/BayerWindow2x2.h"

namespace VyApi {

template <typename Sample, EBayerPhase_t Phase>
class CColorInterpolationBilinearFalseColorReduction {
  /// 16 x 255 fits 16 bits, so 8-bit samples mix in 16-bit lanes.
  typedef typename std::conditional<sizeof(Sample) == 1, uint16_t, uint32_t>::type Wide;

public:
  /// Raises std::bad_alloc for the line buffers.
  VY_KERNEL_CLONES static void Run(const SBayerJob& job) {
    CBayerLinePlanes<Sample> planes(job);
    std::vector<Wide> vecSites(job.nWidth / 2 + 1);
    const size_t h = job.nHeight;
    for (size_t r = 0; r < h; ++r) {
      if (r & 1)
        mLine<1>(job, r, planes, vecSites.data());
      else
        mLine<0>(job, r, planes, vecSites.data());
      planes.Store(job.DestLine<Sample>(r));
    }
  }

private:
  static constexpr bool bColumnZeroDeviation = Phase == BayerPhase_GR || Phase == BayerPhase_GB;

  static constexpr unsigned mSiteRowParity(EBayerColour_t e) {
    return (BayerSiteColour(Phase, 0, 0) == e || BayerSiteColour(Phase, 0, 1) == e) ? 0u : 1u;
  }
  static constexpr unsigned mSiteColParity(EBayerColour_t e) {
    return (BayerSiteColour(Phase, 0, 0) == e || BayerSiteColour(Phase, 1, 0) == e) ? 0u : 1u;
  }

  /// Near and far site positions of one axis around i + 1/2 for sites of
  /// parity nParity among n positions; a missing far site becomes the near.
  static inline void mBracket(size_t i, unsigned nParity, size_t n, size_t& nNear, size_t& nFar) {
    if ((i & 1) == nParity) {
      nNear = i;
      nFar = i + 2;
    } else {
      nNear = i + 1;
      nFar = i - 1;  // wraps for i = 0, which counts as outside
    }
    if (nNear >= n)
      nNear = nFar;
    if (nFar >= n || nNear == nFar) nFar = nNear;
  }

  /// The rule: near sample n, horizontal partner h, vertical v, diagonal d.
  static inline Sample mMix(Wide n, Wide hp, Wide vp, Wide dp) {
    return static_cast<Sample>(static_cast<Wide>(Wide(9) * n + Wide(3) * hp + Wide(3) * vp + dp) >> 4);
  }

  static inline Sample mColourAt(const Sample* sN, const Sample* sF, size_t c, size_t w, unsigned nColParity,
                                 bool bNoHorizontalPartner) {
    size_t nNear, nFar;
    mBracket(c, nColParity, w, nNear, nFar);
    if (bNoHorizontalPartner) nFar = nNear;
    return mMix(sN[nNear], sN[nFar], sF[nNear], sF[nFar]);
  }

  template <EBayerColour_t Colour>
  VY_KERNEL_CLONES static void mColourLine(const SBayerJob& job, size_t r, Sample* __restrict pOut,
                                          Wide* __restrict pSites) {
    constexpr unsigned q = mSiteColParity(Colour);
    const size_t w = job.nWidth;
    size_t nNearLine, nFarLine;
    mBracket(r, mSiteRowParity(Colour), job.nHeight, nNearLine, nFarLine);
    const Sample* __restrict sN = job.SrcLine<Sample>(nNearLine);
    const Sample* __restrict sF = job.SrcLine<Sample>(nFarLine);
    // The vertical half of the rule once per site k (column 2k + q):
    // 3n + v; the horizontal half then weighs two neighbouring sites 3 : 1,
    // which gives (9n + 3h + 3v + d) >> 4.
    const size_t nSites = (w - q + 1) / 2;
    for (size_t k = 0; k < nSites; ++k)
      pSites[k] = static_cast<Wide>(Wide(3) * sN[2 * k + q] + sF[2 * k + q]);
    // Pairs (2k, 2k + 1) with k >= 1 and 2k + 3 < w have all partners inside.
    const size_t nEnd = w >= 4 ? (w - 2) / 2 : 1;
    for (size_t k = 1; k < nEnd; ++k) {
      const size_t c = 2 * k;
      if (q == 0) {
        pOut[c] = static_cast<Sample>(static_cast<Wide>(Wide(3) * pSites[k] + pSites[k + 1]) >> 4);
        pOut[c + 1] = static_cast<Sample>(static_cast<Wide>(Wide(3) * pSites[k + 1] + pSites[k]) >> 4);
      } else {
        pOut[c] = static_cast<Sample>(static_cast<Wide>(Wide(3) * pSites[k] + pSites[k - 1]) >> 4);
        pOut[c + 1] = static_cast<Sample>(static_cast<Wide>(Wide(3) * pSites[k] + pSites[k + 1]) >> 4);
      }
    }
    const bool bNoPartnerAtZero = bColumnZeroDeviation && q == 0;
    pOut[0] = mColourAt(sN, sF, 0, w, q, bNoPartnerAtZero);
    if (w > 1) pOut[1] = mColourAt(sN, sF, 1, w, q, false);
    for (size_t c = 2 * nEnd; c < w; ++c) pOut[c] = mColourAt(sN, sF, c, w, q, false);
  }

  template <unsigned RowParity>
  static void mLine(const SBayerJob& job, size_t r, CBayerLinePlanes<Sample>& planes, Wide* pSites) {
    using Window = CBayerWindow2x2<Sample, Phase, RowParity>;
    const size_t w = job.nWidth, h = job.nHeight;
    const size_t rPartner = r + 1 < h ? r + 1 : r - 1;
    const Sample* s = job.SrcLine<Sample>(r);
    const Sample* t = job.SrcLine<Sample>(rPartner);
    Sample* pG = planes.Plane(BayerColour_G);
    Window::template Line<false>(s, t, nullptr, nullptr, pG, w);
    if (bColumnZeroDeviation && RowParity == 1 && (w & 1))
      pG[w - 1] = static_cast<Sample>((3u * t[w - 1] + s[w - 2]) >> 2);
    mColourLine<BayerColour_R>(job, r, planes.Plane(BayerColour_R), pSites);
    mColourLine<BayerColour_B>(job, r, planes.Plane(BayerColour_B), pSites);
  }
};

}  // namespace VyApi

#endif
