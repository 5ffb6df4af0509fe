// Interleaved colour to mono with the weights 1/4 red, 5/8 green, 1/8 blue:
// m = ((2G + R) * 2 + G + B) >> 3, in 32 bits, truncated. With differing
// depths m is formed at source depth and mapped through the table once, so
// that gamma acts on the luminance.
//
// The module passes: buffers and line pitches, width and height, the source's
// component count (3 or 4) and IsBGROrder, the table from source to
// destination depth or null for equal depths, and the flip flag.
#ifndef VYAPI_PIXELCONVERSION_COLORTOMONOCONVERSION_H
#define VYAPI_PIXELCONVERSION_COLORTOMONOCONVERSION_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "PixelConversion/ColorLayout.h"
#include "PixelConversion/PixelKernelSupport.h"
#include "PixelConversion/SimdLineKernels.h"

namespace VyApi {
namespace PixelConversion {

/// The luminance rule, the one place it is written.
VY_KERNEL_INLINE uint32_t MonoFromRGB(uint32_t r, uint32_t g, uint32_t b) { return ((2 * g + r) * 2 + g + b) >> 3; }

template <typename X, typename Y, int SC, bool BGR>
VY_KERNEL_INLINE void ConverterBGRToMono_t(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                           size_t nWidth, size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  VY_ASSERT(pTable != nullptr || (std::is_same<X, Y>::value));
  constexpr int R = BGR ? 2 : 0;
  constexpr int B = BGR ? 0 : 2;
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const X* __restrict pxSrc = SrcLine<X>(pSrc, nSrcLinePitch, y);
    Y* __restrict pxDest = dest.Line<Y>();
    if (pTable != nullptr) {
      for (size_t x = 0; x < nWidth; ++x) {
        const X* p = pxSrc + SC * x;
        pxDest[x] = static_cast<Y>(pTable[MonoFromRGB(p[R], p[1], p[B])]);
      }
    } else {
      size_t x = 0;
      if constexpr (std::is_same<X, uint8_t>::value && std::is_same<Y, uint8_t>::value)
        x = SimdColorToMono8Line(pxSrc, pxDest, nWidth, SC, BGR);
      for (; x < nWidth; ++x) {
        const X* p = pxSrc + SC * x;
        pxDest[x] = static_cast<Y>(MonoFromRGB(p[R], p[1], p[B]));
      }
    }
  }
}

/// BGR8, RGB8, BGRa8, RGBa8 to Mono8 (pTable null). Raises nothing.
void ConverterBGR8ToMono8(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder,
                          void* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                          bool bReverseY);
/// 16-bit colour to 16-bit mono; pTable null for equal depths. Raises nothing.
void ConverterBGR16ToMono16(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder,
                          void* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                          bool bReverseY);
/// 16-bit colour to Mono8; pTable (source depth -> 8) required. Raises nothing.
void ConverterBGR16ToMono8(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder,
                          void* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                          bool bReverseY);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
