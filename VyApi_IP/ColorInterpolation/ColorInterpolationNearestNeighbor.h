// Demosaicing method NearestNeighbor: pixels are taken in 2 x 2 cells with
// their top-left corner at even line and column. Red and blue are the cell's
// samples of that colour; green is the cell's green on the pixel's own line.
// A last odd line or column borrows the line or column before it as partner.
// Works for any size from 2 x 2 (it is the hand-over for small images).
// Input: an SBayerJob with source mosaic and 3/4-component destination.
#ifndef VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONNEARESTNEIGHBOR_H
#define VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONNEARESTNEIGHBOR_H

#include "ColorInterpolation/BayerLinePlanes.h"

namespace VyApi {

template <typename Sample, EBayerPhase_t Phase>
class CColorInterpolationNearestNeighbor {
public:
  /// Raises std::bad_alloc for the line buffers. Needs w >= 2 and h >= 2.
  VY_KERNEL_CLONES static void Run(const SBayerJob& job) {
    CBayerLinePlanes<Sample> planes(job);
    const size_t h = job.nHeight;
    for (size_t r = 0; r < h; ++r) {
      const size_t rPartner = (r ^ 1) < h ? (r ^ 1) : r - 1;
      if (r & 1)
        mLine<1>(job.SrcLine<Sample>(r), job.SrcLine<Sample>(rPartner), planes, job.nWidth);
      else
        mLine<0>(job.SrcLine<Sample>(r), job.SrcLine<Sample>(rPartner), planes, job.nWidth);
      planes.Store(job.DestLine<Sample>(r));
    }
  }

private:
  // The line's own colours sit at its even and odd columns; the partner line
  // (always of the other parity) gives the one colour the line lacks.
  template <unsigned RowParity>
  static void mLine(const Sample* __restrict s, const Sample* __restrict t, CBayerLinePlanes<Sample>& planes,
                    size_t w) {
    constexpr EBayerColour_t eEven = BayerSiteColour(Phase, RowParity, 0);
    constexpr EBayerColour_t eOdd = BayerSiteColour(Phase, RowParity, 1);
    constexpr EBayerColour_t eThird = BayerLineColour(Phase, RowParity ^ 1);
    constexpr unsigned nThirdParity = BayerLineColourParity(Phase, RowParity ^ 1);
    Sample* __restrict pE = planes.Plane(eEven);
    Sample* __restrict pO = planes.Plane(eOdd);
    Sample* __restrict pT = planes.Plane(eThird);
    const size_t nPairs = w / 2;
    for (size_t k = 0; k < nPairs; ++k) {
      const Sample e = s[2 * k], o = s[2 * k + 1], x = t[2 * k + nThirdParity];
      pE[2 * k] = e;
      pE[2 * k + 1] = e;
      pO[2 * k] = o;
      pO[2 * k + 1] = o;
      pT[2 * k] = x;
      pT[2 * k + 1] = x;
    }
    if (w & 1) {
      // Last odd column: the cell's columns are w - 1 (even) and w - 2 (odd).
      const size_t c = w - 1;
      pE[c] = s[c];
      pO[c] = s[c - 1];
      pT[c] = t[nThirdParity ? c - 1 : c];
    }
  }
};

}  // namespace VyApi

#endif
