// Kernels that read packed YCbCr: to BGR8, RGB8, BGRa8, RGBa8 and to Mono8.
//
// What the caller passes:
// - pSrc, nSrcLinePitch: the first source line and the byte distance between
//   lines; only the data bytes of a line (see TYCbCrLayout::LineBytes) are read.
// - pDest, nDestLinePitch: the first line of the destination buffer as laid
//   out in memory; with bReverseY the source's first line is written to the
//   destination's last line (the destination is written bottom-up).
// - nWidth, nHeight: the image size in pixels, equal for both.
// - the read table of the format's family (GetYCbCrReadTable).
// - colour: the destination pixel step (3 or 4 bytes) and order, as template
//   arguments; the fourth byte of a 4-byte pixel (alpha) is never written.
//
// Per pixel, with y = row0[Y]: red = y + row1[Cr], green = y + row2[Cb] +
// row3[Cr], blue = y + row4[Cb], each clipped by ClipYCbCrReadSum. Mono
// writes row0[Y] >> 22: the luma itself for the plain family, the studio
// range stretched to full range for BT.601 and BT.709.
//
// A partial last group uses the chroma bytes the line holds for it; a chroma
// byte beyond the line's data is taken from the group before, or is the
// neutral 128 when the line has no group before.
//
// Raises nothing.
#ifndef VYAPI_IP_COLORINTERPOLATION_YCBCRTOBGRKERNEL_H
#define VYAPI_IP_COLORINTERPOLATION_YCBCRTOBGRKERNEL_H

#include <cstddef>
#include <cstdint>

#include "ColorInterpolation/YCbCrLayout.h"
#include "ColorInterpolation/YCbCrReadSimd.h"
#include "ColorInterpolation/YCbCrTables.h"

namespace VyApi {

/// The chroma part of one group's colour, shared by the group's pixels.
struct SYCbCrChromaSum {
  int32_t nRed;
  int32_t nGreen;
  int32_t nBlue;
};

inline SYCbCrChromaSum YCbCrChroma(const SYCbCrReadTable& t, uint8_t nCb, uint8_t nCr) {
  return {t.m_anRow[1][nCr], t.m_anRow[2][nCb] + t.m_anRow[3][nCr], t.m_anRow[4][nCb]};
}

/// Writes one destination pixel: the one rule of the read side.
template <bool bBGROrder>
inline void StoreYCbCrPixel(uint8_t* pDest, const SYCbCrReadTable& t, uint8_t nY, const SYCbCrChromaSum& c) {
  const int32_t nLuma = t.m_anRow[0][nY];
  const uint8_t nRed = ClipYCbCrReadSum(nLuma + c.nRed);
  const uint8_t nGreen = ClipYCbCrReadSum(nLuma + c.nGreen);
  const uint8_t nBlue = ClipYCbCrReadSum(nLuma + c.nBlue);
  pDest[0] = bBGROrder ? nBlue : nRed;
  pDest[1] = nGreen;
  pDest[2] = bBGROrder ? nRed : nBlue;
}

template <class TLayout, int nDestStep, bool bBGROrder>
void YCbCrToColorKernel(const uint8_t* pSrc, size_t nSrcLinePitch, uint8_t* pDest, size_t nDestLinePitch,
                        size_t nWidth, size_t nHeight, bool bReverseY, const SYCbCrReadTable& t) {
  constexpr int P = TLayout::nPixels;
  constexpr int B = TLayout::nGroupBytes;
  const size_t nGroups = nWidth / P;
  const size_t nTail = nWidth % P;
  const size_t nLineBytes = TLayout::LineBytes(nWidth);
  for (size_t y = 0; y < nHeight; ++y) {
    const uint8_t* s = pSrc + y * nSrcLinePitch;
    uint8_t* d = pDest + (bReverseY ? nHeight - 1 - y : y) * nDestLinePitch;
    const size_t nDone = SimdYCbCrToColorGroups<TLayout, nDestStep, bBGROrder>(s, d, nGroups, t);
    s += nDone * B;
    d += nDone * P * nDestStep;
    for (size_t g = nDone; g < nGroups; ++g, s += B, d += P * nDestStep) {
      const SYCbCrChromaSum c = YCbCrChroma(t, s[TLayout::nCb], s[TLayout::nCr]);
      for (int p = 0; p < P; ++p) StoreYCbCrPixel<bBGROrder>(d + p * nDestStep, t, s[TLayout::Y(p)], c);
    }
    if constexpr (P > 1) {
      if (nTail == 0) continue;
      const size_t nStart = nGroups * B;
      const auto chroma = [&](int nOffset) -> uint8_t {
        if (nStart + nOffset < nLineBytes) return s[nOffset];
        return nGroups != 0 ? s[nOffset - B] : uint8_t{128};
      };
      const SYCbCrChromaSum c = YCbCrChroma(t, chroma(TLayout::nCb), chroma(TLayout::nCr));
      for (size_t p = 0; p < nTail; ++p)
        StoreYCbCrPixel<bBGROrder>(d + p * nDestStep, t, s[TLayout::Y(static_cast<int>(p))], c);
    }
  }
}

template <class TLayout>
void YCbCrToMonoKernel(const uint8_t* pSrc, size_t nSrcLinePitch, uint8_t* pDest, size_t nDestLinePitch,
                       size_t nWidth, size_t nHeight, bool bReverseY, const SYCbCrReadTable& t) {
  constexpr int P = TLayout::nPixels;
  constexpr int B = TLayout::nGroupBytes;
  const size_t nGroups = nWidth / P;
  const size_t nTail = nWidth % P;
  for (size_t y = 0; y < nHeight; ++y) {
    const uint8_t* s = pSrc + y * nSrcLinePitch;
    uint8_t* d = pDest + (bReverseY ? nHeight - 1 - y : y) * nDestLinePitch;
    const size_t nDone = SimdYCbCrToMonoGroups<TLayout>(s, d, nGroups, t);
    s += nDone * B;
    d += nDone * P;
    for (size_t g = nDone; g < nGroups; ++g, s += B, d += P)
      for (int p = 0; p < P; ++p) d[p] = static_cast<uint8_t>(t.m_anRow[0][s[TLayout::Y(p)]] >> YCbCrFractionBits);
    for (size_t p = 0; p < nTail; ++p)
      d[p] = static_cast<uint8_t>(t.m_anRow[0][s[TLayout::Y(static_cast<int>(p))]] >> YCbCrFractionBits);
  }
}

}  // namespace VyApi

#endif
