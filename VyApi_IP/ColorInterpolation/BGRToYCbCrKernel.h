// Kernel that writes packed YCbCr from BGR8, RGB8, BGRa8 or RGBa8.
//
// What the caller passes:
// - pSrc, nSrcLinePitch: the first source line and the byte distance between
//   lines; the source pixel step (3 or 4 bytes, the fourth being alpha, which
//   is ignored) and the component order are template arguments.
// - pDest, nDestLinePitch: the first line of the destination buffer as laid
//   out in memory; with bReverseY the source's first line is written to the
//   destination's last line.
// - nWidth, nHeight: the image size in pixels.
// - the write table of the destination format's family (GetYCbCrWriteTable),
//   which carries the limits that every value is clipped to.
//
// Y = t0[R] + t1[G] + t2[B], Cb = t3[R] + t4[G] + t5[B], Cr = t6[R] + t7[G] +
// t8[B], each clipped by ClipYCbCrWriteSum. Every pixel gets its own Y; the
// chroma of a group comes from the truncated means of its pixels' R, G and B.
// A partial last group takes the mean of the pixels present, writes their Y,
// and writes those chroma bytes that fall inside the line's data: a 4:2:2
// line of odd width ends with the last pixel's Y and Cb, and no Cr.
//
// Raises nothing.
#ifndef VYAPI_IP_COLORINTERPOLATION_BGRTOYCBCRKERNEL_H
#define VYAPI_IP_COLORINTERPOLATION_BGRTOYCBCRKERNEL_H

#include <cstddef>
#include <cstdint>

#include "ColorInterpolation/YCbCrLayout.h"
#include "ColorInterpolation/YCbCrTables.h"

namespace VyApi {

/// The one rule of the write side: one value from R, G, B through rows
/// nFirstRow to nFirstRow + 2, clipped to the limits nMin, nMax.
inline uint8_t YCbCrWriteValue(const SYCbCrWriteTable& t, int nFirstRow, uint8_t nRed, uint8_t nGreen,
                               uint8_t nBlue, int32_t nMin, int32_t nMax) {
  return ClipYCbCrWriteSum(t.m_anRow[nFirstRow][nRed] + t.m_anRow[nFirstRow + 1][nGreen] +
                               t.m_anRow[nFirstRow + 2][nBlue],
                           nMin, nMax);
}

template <class TLayout, int nSrcStep, bool bBGROrder>
void ColorToYCbCrKernel(const uint8_t* pSrc, size_t nSrcLinePitch, uint8_t* pDest, size_t nDestLinePitch,
                        size_t nWidth, size_t nHeight, bool bReverseY, const SYCbCrWriteTable& t) {
  constexpr int P = TLayout::nPixels;
  constexpr int B = TLayout::nGroupBytes;
  constexpr int nRed = bBGROrder ? 2 : 0;
  constexpr int nBlue = bBGROrder ? 0 : 2;
  const int32_t nYMin = t.m_anLimit[0], nYMax = t.m_anLimit[1];
  const int32_t nCMin = t.m_anLimit[2], nCMax = t.m_anLimit[3];
  const size_t nGroups = nWidth / P;
  const size_t nTail = nWidth % P;
  const size_t nLineBytes = TLayout::LineBytes(nWidth);

  for (size_t y = 0; y < nHeight; ++y) {
    const uint8_t* s = pSrc + y * nSrcLinePitch;
    uint8_t* d = pDest + (bReverseY ? nHeight - 1 - y : y) * nDestLinePitch;
    for (size_t g = 0; g < nGroups; ++g, s += P * nSrcStep, d += B) {
      int nSumR = 0, nSumG = 0, nSumB = 0;
      for (int p = 0; p < P; ++p) {
        const uint8_t* px = s + p * nSrcStep;
        d[TLayout::Y(p)] = YCbCrWriteValue(t, 0, px[nRed], px[1], px[nBlue], nYMin, nYMax);
        nSumR += px[nRed];
        nSumG += px[1];
        nSumB += px[nBlue];
      }
      const uint8_t r = static_cast<uint8_t>(nSumR >> TLayout::nMeanShift);
      const uint8_t gr = static_cast<uint8_t>(nSumG >> TLayout::nMeanShift);
      const uint8_t b = static_cast<uint8_t>(nSumB >> TLayout::nMeanShift);
      d[TLayout::nCb] = YCbCrWriteValue(t, 3, r, gr, b, nCMin, nCMax);
      d[TLayout::nCr] = YCbCrWriteValue(t, 6, r, gr, b, nCMin, nCMax);
    }
    // A 4:4:4 line has no partial group.
    if constexpr (P > 1) {
      if (nTail == 0) continue;
      const size_t nStart = nGroups * B;
      int nSumR = 0, nSumG = 0, nSumB = 0;
      for (size_t p = 0; p < nTail; ++p) {
        const uint8_t* px = s + p * nSrcStep;
        d[TLayout::Y(static_cast<int>(p))] = YCbCrWriteValue(t, 0, px[nRed], px[1], px[nBlue], nYMin, nYMax);
        nSumR += px[nRed];
        nSumG += px[1];
        nSumB += px[nBlue];
      }
      const int n = static_cast<int>(nTail);
      const uint8_t r = static_cast<uint8_t>(nSumR / n);
      const uint8_t gr = static_cast<uint8_t>(nSumG / n);
      const uint8_t b = static_cast<uint8_t>(nSumB / n);
      if (nStart + TLayout::nCb < nLineBytes) d[TLayout::nCb] = YCbCrWriteValue(t, 3, r, gr, b, nCMin, nCMax);
      if (nStart + TLayout::nCr < nLineBytes) d[TLayout::nCr] = YCbCrWriteValue(t, 6, r, gr, b, nCMin, nCMax);
    }
  }
}

}  // namespace VyApi

#endif
