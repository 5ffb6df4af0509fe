// Mono to interleaved colour: the sample (through the table when depths
// differ) goes to components 0, 1 and 2; a fourth component (alpha) keeps the
// destination buffer's old value.
//
// The module passes: buffers and line pitches, width and height, the
// destination's component count (3 or 4), the table from source to
// destination depth or null for equal depths, and the flip flag.
#ifndef VYAPI_PIXELCONVERSION_MONOTOCOLORCONVERSION_H
#define VYAPI_PIXELCONVERSION_MONOTOCOLORCONVERSION_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "PixelConversion/ByteMoveLines.h"
#include "PixelConversion/ColorLayout.h"
#include "PixelConversion/PixelKernelSupport.h"

namespace VyApi {
namespace PixelConversion {

template <typename X, typename Y, int DC>
VY_KERNEL_INLINE void ConverterMonoToBGR_t(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                           size_t nWidth, size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  VY_ASSERT(pTable != nullptr || (std::is_same<X, Y>::value));
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const X* __restrict pxSrc = SrcLine<X>(pSrc, nSrcLinePitch, y);
    Y* __restrict pxDest = dest.Line<Y>();
    if (pTable != nullptr) {
      for (size_t x = 0; x < nWidth; ++x) {
        const Y v = static_cast<Y>(pTable[pxSrc[x]]);
        pxDest[DC * x] = v;
        pxDest[DC * x + 1] = v;
        pxDest[DC * x + 2] = v;
      }
    } else {
      size_t x = 0;
      if constexpr (std::is_same<X, uint8_t>::value && std::is_same<Y, uint8_t>::value)
        x = SimdMonoToColor8Line(pxSrc, pxDest, nWidth, DC);
      for (; x < nWidth; ++x) {
        const Y v = static_cast<Y>(pxSrc[x]);
        pxDest[DC * x] = v;
        pxDest[DC * x + 1] = v;
        pxDest[DC * x + 2] = v;
      }
    }
  }
}

/// Mono8 to BGR8, RGB8, BGRa8, RGBa8 (always equal depths: pTable null).
/// Raises nothing.
void ConverterMonoB2BGRB_RGBB(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                              size_t nDestComponentCount, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                              bool bReverseY);
/// Mono8 to a 16-bit colour format; pTable (8 -> destination depth) required.
/// Raises nothing.
void ConverterMonoB2BGRW_RGBW(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                              size_t nDestComponentCount, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                              bool bReverseY);
/// 16-bit mono to a 16-bit colour format; pTable null for equal depths.
/// Raises nothing.
void ConverterMonoW2BGRW_RGBW(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                              size_t nDestComponentCount, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                              bool bReverseY);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
