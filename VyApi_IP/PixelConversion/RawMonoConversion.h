// Raw (mono and Bayer) depth changes: one sample in, one sample out.
//
// The module passes: source and destination buffers with their line pitches,
// width and height, the source's component depth (nInputBitCount), the table
// from source depth to destination depth when the depths differ (null when
// they are equal, which copies), and the flip flag. 16-bit sources are checked
// against nInputBitCount on both roads; a sample at or above 2^depth stops the
// process with "pxSrcCurLine[x] < (1 << nInputBitCount)".
#ifndef VYAPI_PIXELCONVERSION_RAWMONOCONVERSION_H
#define VYAPI_PIXELCONVERSION_RAWMONOCONVERSION_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include <VyApi_IP/VyReporter.h>

#include "PixelConversion/PixelKernelSupport.h"
#include "PixelConversion/TableShape.h"

namespace VyApi {
namespace PixelConversion {

/// The one body of the raw family, X and Y being uint8_t or uint16_t.
template <typename X, typename Y>
VY_KERNEL_INLINE void ConverterRawMonoXToRawMonoY_t(const void* pSrc, size_t nSrcLinePitch, void* pDest,
                                                     size_t nDestLinePitch, size_t nWidth, size_t nHeight,
                                                     size_t nInputBitCount, const uint16_t* pTable, bool bReverseY) {
  VY_ASSERT(pTable != nullptr || (std::is_same<X, Y>::value));
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  // Samples are range-checked before the table is applied, so a shift or a
  // stretch may stand in for its entries. An 8-bit source's table is only
  // worth the check when it widens (a reduction reads its 256 entries as
  // fast as it would shift).
  STableShape shape;
  if (sizeof(X) == 2 || sizeof(Y) == 2) shape = STableShape::Of(pTable, nInputBitCount);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const X* __restrict pxSrcCurLine = SrcLine<X>(pSrc, nSrcLinePitch, y);
    Y* __restrict pxDestCurLine = dest.Line<Y>();
    if (LineHasBitsAbove(pxSrcCurLine, nWidth, nInputBitCount)) {
      for (size_t x = 0; x < nWidth; ++x) VY_ASSERT(pxSrcCurLine[x] < (1 << nInputBitCount));
    }
    if (pTable != nullptr) {
      if (sizeof(X) == 2 || shape.IsComputed()) {
        ApplyTableShape(pxSrcCurLine, pxDestCurLine, nWidth, shape);
      } else {
        for (size_t x = 0; x < nWidth; ++x) pxDestCurLine[x] = static_cast<Y>(pTable[pxSrcCurLine[x]]);
      }
    } else {
      std::memcpy(pxDestCurLine, pxSrcCurLine, nWidth * sizeof(X));
    }
  }
}

/// Mono8/Bayer*8 to a 16-bit raw format; pTable (8 -> destination depth) is
/// required. Raises nothing.
void ConverterRawMono8ToRawMono16(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                  size_t nWidth, size_t nHeight, size_t nInputBitCount, const uint16_t* pTable,
                                  bool bReverseY);
/// Between 16-bit raw formats; copies when pTable is null. Raises nothing;
/// asserts the source range.
void ConverterRawMono16ToRawMono16(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                   size_t nWidth, size_t nHeight, size_t nInputBitCount, const uint16_t* pTable,
                                   bool bReverseY);
/// A 16-bit raw format to Mono8/Bayer*8; pTable (source depth -> 8) is
/// required. Raises nothing; asserts the source range.
void ConverterRawMono16ToRawMono8(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                  size_t nWidth, size_t nHeight, size_t nInputBitCount, const uint16_t* pTable,
                                  bool bReverseY);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
