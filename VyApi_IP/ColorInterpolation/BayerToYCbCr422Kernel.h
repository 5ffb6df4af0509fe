// Kernel from an 8-bit Bayer mosaic straight to YCbCr422_8 (Y0 Cb Y1 Cr),
// without a demosaicing pass: each 2 x 2 cell gives two pixels of one line.
//
// What the caller passes:
// - pSrc, nSrcLinePitch: the first mosaic line and the distance between lines.
// - pDest, nDestLinePitch: the first destination line as laid out in memory;
//   with bReverseY output line y goes to line nHeight - 1 - y.
// - nWidth, nHeight: the image size; an odd width leaves the last pixel of
//   each line unwritten, a width below 2 writes nothing.
// - sPhase: where each sample of an even and an odd line goes (YCbCrBayerPhase).
// - the plain write table; the result is clipped to 0..255 only.
// - pWork: a work block of at least 2 x nWidth bytes, owned by the caller.
//
// The work block holds four half-width rows, indexed by the cell k: R[k],
// B[k], Ga[k] (the green that stands first in its line's cell) and Gb[k]
// (the green that stands second). Line 0 is loaded first; before output line
// y the next line, if there is one, replaces the rows of its parity. So
// output line y mixes lines y and y + 1, and the last line repeats the line
// before it. With one line only, the rows of the other parity stay zero.
//
// Per cell: g0 = (Ga + Gb) >> 1, g1 = (Gb[k] + Gb[k + 1]) >> 1 (Gb[k] twice at
// the last cell), gm = (g0 + g1) >> 1; Y0 from R, g0, B; Y1 from R, g1, B;
// Cb and Cr from R, gm, B.
//
// Raises nothing.
#ifndef VYAPI_IP_COLORINTERPOLATION_BAYERTOYCBCR422KERNEL_H
#define VYAPI_IP_COLORINTERPOLATION_BAYERTOYCBCR422KERNEL_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "ColorInterpolation/YCbCrTables.h"

namespace VyApi {

/// The work rows of the Bayer road.
enum EYCbCrBayerRow_t : int {
  YCbCrBayerRow_R = 0,
  YCbCrBayerRow_B = 1,
  YCbCrBayerRow_Ga = 2,
  YCbCrBayerRow_Gb = 3,
};

/// Rows that the first and second sample of an even and of an odd line go to.
struct SYCbCrBayerPhase {
  EYCbCrBayerRow_t m_aeEven[2];
  EYCbCrBayerRow_t m_aeOdd[2];
};

inline void BayerToYCbCr422Kernel(const uint8_t* pSrc, size_t nSrcLinePitch, uint8_t* pDest,
                                  size_t nDestLinePitch, size_t nWidth, size_t nHeight, bool bReverseY,
                                  const SYCbCrBayerPhase& sPhase, const SYCbCrWriteTable& t, uint8_t* pWork) {
  const size_t nCells = nWidth >> 1;
  if (nCells == 0 || nHeight == 0) return;
  std::memset(pWork, 0, 4 * nCells);
  uint8_t* apRow[4] = {pWork, pWork + nCells, pWork + 2 * nCells, pWork + 3 * nCells};
  const uint8_t* R = apRow[YCbCrBayerRow_R];
  const uint8_t* Bl = apRow[YCbCrBayerRow_B];
  const uint8_t* Ga = apRow[YCbCrBayerRow_Ga];
  const uint8_t* Gb = apRow[YCbCrBayerRow_Gb];

  const auto load = [&](size_t nLine) {
    const EYCbCrBayerRow_t* aeRows = (nLine & 1) ? sPhase.m_aeOdd : sPhase.m_aeEven;
    const uint8_t* s = pSrc + nLine * nSrcLinePitch;
    uint8_t* pFirst = apRow[aeRows[0]];
    uint8_t* pSecond = apRow[aeRows[1]];
    for (size_t k = 0; k < nCells; ++k) {
      pFirst[k] = s[2 * k];
      pSecond[k] = s[2 * k + 1];
    }
  };
  const auto cell = [&](uint8_t* d, size_t k, uint8_t nGbNext) {
    const int g0 = (Ga[k] + Gb[k]) >> 1;
    const int g1 = (Gb[k] + nGbNext) >> 1;
    const int gm = (g0 + g1) >> 1;
    const int32_t nRB = t.m_anRow[0][R[k]] + t.m_anRow[2][Bl[k]];
    d[0] = ClipYCbCrReadSum(nRB + t.m_anRow[1][g0]);
    d[1] = ClipYCbCrReadSum(t.m_anRow[3][R[k]] + t.m_anRow[4][gm] + t.m_anRow[5][Bl[k]]);
    d[2] = ClipYCbCrReadSum(nRB + t.m_anRow[1][g1]);
    d[3] = ClipYCbCrReadSum(t.m_anRow[6][R[k]] + t.m_anRow[7][gm] + t.m_anRow[8][Bl[k]]);
  };

  load(0);
  for (size_t y = 0; y < nHeight; ++y) {
    if (y + 1 < nHeight) load(y + 1);
    uint8_t* d = pDest + (bReverseY ? nHeight - 1 - y : y) * nDestLinePitch;
    for (size_t k = 0; k + 1 < nCells; ++k) cell(d + 4 * k, k, Gb[k + 1]);
    cell(d + 4 * (nCells - 1), nCells - 1, Gb[nCells - 1]);
  }
}

}  // namespace VyApi

#endif
