// Demosaicing method NearestNeighbor2: every pixel reads its own 2 x 2
// window (lines r and r + 1, the last line r and r - 1; columns c and c + 1
// with the last-column rules of CBayerWindow2x2).
// Input: an SBayerJob with source mosaic and 3/4-component destination,
// w >= 2 and h >= 2.
#ifndef VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONNEARESTNEIGHBOR2_H
#define VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONNEARESTNEIGHBOR2_H

#include "ColorInterpolation/BayerLinePlanes.h"
#include "ColorInterpolation/BayerWindow2x2.h"

namespace VyApi {

template <typename Sample, EBayerPhase_t Phase>
class CColorInterpolationNearestNeighbor2 {
public:
  /// Raises std::bad_alloc for the line buffers.
  VY_KERNEL_CLONES static void Run(const SBayerJob& job) {
    CBayerLinePlanes<Sample> planes(job);
    const size_t h = job.nHeight;
    for (size_t r = 0; r < h; ++r) {
      const size_t rPartner = r + 1 < h ? r + 1 : r - 1;
      if (r & 1)
        mLine<1>(job.SrcLine<Sample>(r), job.SrcLine<Sample>(rPartner), planes, job.nWidth);
      else
        mLine<0>(job.SrcLine<Sample>(r), job.SrcLine<Sample>(rPartner), planes, job.nWidth);
      planes.Store(job.DestLine<Sample>(r));
    }
  }

private:
  template <unsigned RowParity>
  static void mLine(const Sample* s, const Sample* t, CBayerLinePlanes<Sample>& planes, size_t w) {
    using Window = CBayerWindow2x2<Sample, Phase, RowParity>;
    Window::Line(s, t, planes.Plane(Window::eOwnColour), planes.Plane(Window::ePartnerColour),
                 planes.Plane(BayerColour_G), w);
  }
};

}  // namespace VyApi

#endif
