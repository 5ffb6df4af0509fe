// Demosaicing method BilinearSimple. Step 1 interpolates each line's two
// colours along the line (H); green is finished there. Step 2 gives a line
// the colour it lacks as the mean of H of the lines above and below (line 0
// and the last line copy their one neighbour).
// Border behaviour that belongs to this method and is kept on purpose:
//  - GRBG: lines 1 .. h-2 take H of the next line alone at column 0, and at
//    column w - 1 when w is even.
//  - GRBG, w even, RGB order: blue of pixels (0, w-1) and (1, w-1) is the
//    sample just behind line 1, S[1][w].
//  - GBRG, h even, RGB order: blue of pixel (h-1, 0) is not written.
//  - RGGB and BGGR, h odd: line h-2 copies its red/blue from line h-3, and
//    the last line's third colour and a late average of line h-2 are made
//    by a walk that steps through destination memory from line h-3 as if
//    lines were contiguous (CColorInterpolationBilinearSimple::mOddHeightWalk).
// Input: an SBayerJob with source mosaic and 3/4-component destination,
// w >= 4 and h >= 4.
#ifndef VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONBILINEARSIMPLE_H
#define VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONBILINEARSIMPLE_H

#include <cstring>
#include <vector>

#include "ColorInterpolation/BayerLineInterpolation.h"
#include "ColorInterpolation/BayerLinePlanes.h"

namespace VyApi {

template <typename Sample, EBayerPhase_t Phase>
class CColorInterpolationBilinearSimple {
public:
  /// Raises std::bad_alloc for the line buffers.
  VY_KERNEL_CLONES static void Run(const SBayerJob& job) {
    const size_t w = job.nWidth, h = job.nHeight;
    CBayerLinePlanes<Sample> planes(job);
    // H of the non-green colour of three consecutive lines, by r % 3.
    std::vector<Sample> vecRing(3 * w);
    Sample* aRing[3] = {vecRing.data(), vecRing.data() + w, vecRing.data() + 2 * w};
    mLineColour(job, 0, aRing[0]);
    for (size_t r = 0; r < h; ++r) {
      if (r + 1 < h) mLineColour(job, r + 1, aRing[(r + 1) % 3]);
      const Sample* pPrev = r > 0 ? aRing[(r + 2) % 3] : nullptr;
      const Sample* pNext = r + 1 < h ? aRing[(r + 1) % 3] : nullptr;
      if (r & 1)
        mLine<1>(job, r, aRing[r % 3], pPrev, pNext, planes);
      else
        mLine<0>(job, r, aRing[r % 3], pPrev, pNext, planes);

      Sample* pDest = job.DestLine<Sample>(r);
      // GBRG, h even, RGB order: the last line's first blue stays as it was.
      const bool bKeepBlue = Phase == BayerPhase_GB && r == h - 1 && !(h & 1) && !job.bBGROrder;
      const Sample nKept = bKeepBlue ? pDest[job.BlueIndex()] : 0;
      planes.Store(pDest);
      if (bKeepBlue) pDest[job.BlueIndex()] = nKept;
    }
    if ((Phase == BayerPhase_RG || Phase == BayerPhase_BG) && (h & 1)) mOddHeightWalk(job);
  }

private:
  template <unsigned RowParity>
  static void mLine(const SBayerJob& job, size_t r, const Sample* pOwn, const Sample* pPrev, const Sample* pNext,
                    CBayerLinePlanes<Sample>& planes) {
    constexpr EBayerColour_t eOwn = BayerLineColour(Phase, RowParity);
    constexpr EBayerColour_t eThird = BayerLineColour(Phase, RowParity ^ 1);
    constexpr unsigned nGreenParity = 1 - BayerLineColourParity(Phase, RowParity);
    const size_t w = job.nWidth, h = job.nHeight;
    const Sample* s = job.SrcLine<Sample>(r);
    CBayerLineInterpolation<Sample>::template Line<nGreenParity, false>(s, planes.Plane(BayerColour_G), w, 0);
    std::memcpy(planes.Plane(eOwn), pOwn, w * sizeof(Sample));

    Sample* __restrict pT = planes.Plane(eThird);
    const bool bOddHeightPairs = (Phase == BayerPhase_RG || Phase == BayerPhase_BG) && (h & 1);
    if (pPrev == nullptr) {
      std::memcpy(pT, pNext, w * sizeof(Sample));
    } else if (pNext == nullptr || (bOddHeightPairs && r == h - 2)) {
      // The last line, and line h - 2 of an odd-height RGGB/BGGR mosaic,
      // copy the line above.
      std::memcpy(pT, pPrev, w * sizeof(Sample));
    } else {
      for (size_t c = 0; c < w; ++c) pT[c] = CBayerLineInterpolation<Sample>::Mean(pPrev[c], pNext[c]);
      if (Phase == BayerPhase_GR) {
        pT[0] = pNext[0];
        if (!(w & 1)) pT[w - 1] = pNext[w - 1];
      }
    }
    if (Phase == BayerPhase_GR && r <= 1 && !(w & 1) && !job.bBGROrder) {
      // Blue of the last column of lines 0 and 1 is the sample behind line 1.
      planes.Plane(BayerColour_B)[w - 1] = job.SrcLine<Sample>(1)[w];
    }
  }

  /// H of the non-green colour of source line r.
  static void mLineColour(const SBayerJob& job, size_t r, Sample* pOut) {
    if (r & 1)
      CBayerLineInterpolation<Sample>::template Line<BayerLineColourParity(Phase, 1), false>(
          job.SrcLine<Sample>(r), pOut, job.nWidth, 0);
    else
      CBayerLineInterpolation<Sample>::template Line<BayerLineColourParity(Phase, 0), false>(
          job.SrcLine<Sample>(r), pOut, job.nWidth, 0);
  }

  /// RGGB/BGGR, odd h: the last line's third colour Y and a late average of
  /// X (the colour of line 0) are made by a walk through destination memory
  /// starting W - 1 pixels behind the start of line h - 3's destination
  /// line, counted without regard to line ends; W = 2 (w >> 1).
  static void mOddHeightWalk(const SBayerJob& job) {
    const size_t w = job.nWidth, h = job.nHeight, n = job.nComponents;
    const size_t iX = Phase == BayerPhase_RG ? job.RedIndex() : job.BlueIndex();
    const size_t iY = Phase == BayerPhase_RG ? job.BlueIndex() : job.RedIndex();
    const size_t nW = 2 * (w >> 1);
    Sample* pA = job.DestLine<Sample>(h - 3);
    Sample* pB = job.DestLine<Sample>(h - 4);
    Sample* pLast = job.DestLine<Sample>(h - 1);
    for (size_t c = 0; c < w; ++c) {
      const size_t q = (nW - 1 + c) * n;
      pLast[c * n + iY] = pA[q + iY];
      pA[q + iX] = CBayerLineInterpolation<Sample>::Mean(pB[q + iX], pLast[c * n + iX]);
    }
  }
};

}  // namespace VyApi

#endif
