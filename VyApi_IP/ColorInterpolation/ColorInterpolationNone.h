// Demosaicing method None: each pixel gets its own site's sample in the
// component of the site colour; the other two components are 0.
// Input: an SBayerJob with source mosaic and 3/4-component destination.
#ifndef VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONNONE_H
#define VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONNONE_H

#include "ColorInterpolation/BayerLinePlanes.h"

namespace VyApi {

template <typename Sample, EBayerPhase_t Phase>
class CColorInterpolationNone {
public:
  /// Raises std::bad_alloc for the line buffers.
  VY_KERNEL_CLONES static void Run(const SBayerJob& job) {
    CBayerLinePlanes<Sample> planes(job);
    for (size_t r = 0; r < job.nHeight; ++r) {
      if (r & 1)
        mLine<1>(job.SrcLine<Sample>(r), planes, job.nWidth);
      else
        mLine<0>(job.SrcLine<Sample>(r), planes, job.nWidth);
      planes.Store(job.DestLine<Sample>(r));
    }
  }

private:
  template <unsigned RowParity>
  static void mLine(const Sample* __restrict s, CBayerLinePlanes<Sample>& planes, size_t w) {
    constexpr EBayerColour_t eEven = BayerSiteColour(Phase, RowParity, 0);
    constexpr EBayerColour_t eOdd = BayerSiteColour(Phase, RowParity, 1);
    constexpr EBayerColour_t eThird = static_cast<EBayerColour_t>(3 - eEven - eOdd);
    Sample* __restrict pE = planes.Plane(eEven);
    Sample* __restrict pO = planes.Plane(eOdd);
    Sample* __restrict pT = planes.Plane(eThird);
    const size_t nPairs = w / 2;
    for (size_t k = 0; k < nPairs; ++k) {
      pE[2 * k] = s[2 * k];
      pE[2 * k + 1] = 0;
      pO[2 * k] = 0;
      pO[2 * k + 1] = s[2 * k + 1];
    }
    if (w & 1) {
      pE[w - 1] = s[w - 1];
      pO[w - 1] = 0;
    }
    for (size_t c = 0; c < w; ++c) pT[c] = 0;
  }
};

}  // namespace VyApi

#endif
