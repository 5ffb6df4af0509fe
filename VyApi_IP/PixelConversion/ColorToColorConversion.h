// Interleaved colour to interleaved colour: each of the three colour
// components by itself, through the table when the depths differ. Component 1
// is green; components 0 and 2 are exchanged when the two IsBGROrder flags
// differ. A destination alpha keeps the buffer's old value; a source alpha is
// ignored.
//
// The module passes: buffers and line pitches, width and height, the source's
// component count (3 or 4) and IsBGROrder, the destination's component count
// and IsBGROrder, the table from source to destination depth or null for equal
// depths, and the flip flag.
#ifndef VYAPI_PIXELCONVERSION_COLORTOCOLORCONVERSION_H
#define VYAPI_PIXELCONVERSION_COLORTOCOLORCONVERSION_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "PixelConversion/ByteMoveLines.h"
#include "PixelConversion/ColorLayout.h"
#include "PixelConversion/PixelKernelSupport.h"
#include "PixelConversion/SimdLineKernels.h"

namespace VyApi {
namespace PixelConversion {

template <typename X, typename Y, int SC, int DC, bool Swap>
VY_KERNEL_INLINE void ConverterBGRxToBGRx_t(const void* pSrc, size_t nSrcLinePitch, void* pDest,
                                            size_t nDestLinePitch, size_t nWidth, size_t nHeight,
                                            const uint16_t* pTable, bool bReverseY) {
  VY_ASSERT(pTable != nullptr || (std::is_same<X, Y>::value));
  constexpr int C0 = Swap ? 2 : 0;
  constexpr int C2 = Swap ? 0 : 2;
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const X* __restrict pxSrc = SrcLine<X>(pSrc, nSrcLinePitch, y);
    Y* __restrict pxDest = dest.Line<Y>();
    if (pTable != nullptr) {
      for (size_t x = 0; x < nWidth; ++x) {
        pxDest[DC * x] = static_cast<Y>(pTable[pxSrc[SC * x + C0]]);
        pxDest[DC * x + 1] = static_cast<Y>(pTable[pxSrc[SC * x + 1]]);
        pxDest[DC * x + 2] = static_cast<Y>(pTable[pxSrc[SC * x + C2]]);
      }
    } else {
      size_t x = 0;
      if constexpr (std::is_same<X, Y>::value && SC == 3 && DC == 3 && !Swap) {
        std::memcpy(pxDest, pxSrc, 3 * nWidth * sizeof(X));
        x = nWidth;
      } else if constexpr (std::is_same<X, uint8_t>::value && std::is_same<Y, uint8_t>::value) {
        x = SimdMoveColor8Line(pxSrc, pxDest, nWidth, SC, DC, Swap);
      }
      for (; x < nWidth; ++x) {
        pxDest[DC * x] = static_cast<Y>(pxSrc[SC * x + C0]);
        pxDest[DC * x + 1] = static_cast<Y>(pxSrc[SC * x + 1]);
        pxDest[DC * x + 2] = static_cast<Y>(pxSrc[SC * x + C2]);
      }
    }
  }
}

/// Between BGR8, RGB8, BGRa8, RGBa8; always copies (pTable null). Raises nothing.
void ConverterBGRx8ToBGRx8(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,
                           size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth,
                           size_t nHeight, const uint16_t* pTable, bool bReverseY);
/// 8-bit colour to 16-bit colour; pTable (8 -> destination depth) required.
/// Raises nothing.
void ConverterBGRx8ToBGRx16(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,
                           size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth,
                           size_t nHeight, const uint16_t* pTable, bool bReverseY);
/// 16-bit colour to 8-bit colour; pTable (source depth -> 8) required.
/// Raises nothing.
void ConverterBGRx16ToBGRx8(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,
                           size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth,
                           size_t nHeight, const uint16_t* pTable, bool bReverseY);
/// Between 16-bit colour formats; copies when pTable is null. Raises nothing.
void ConverterBGRxWToBGRxW(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,
                           size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth,
                           size_t nHeight, const uint16_t* pTable, bool bReverseY);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
