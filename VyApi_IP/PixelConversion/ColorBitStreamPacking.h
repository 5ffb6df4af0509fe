// Colour bit-stream formats (BGR10p, RGB10p, BGR12p, RGB12p): the components
// of a line form one stream in memory order, low bit first, n = 10 or 12 bits
// each: pixel i, component j at bit (3i + j) * n, no padding between pixels.
// Memory order is B, G, R for the BGR formats, R, G, B for the RGB formats;
// the order rule (components 0 and 2 exchanged when IsBGROrder differs) maps
// them to the interleaved side. An interleaved alpha is never written and is
// ignored as a source. The writer gathers the stream in 16-bit little-endian
// words; a partial last word is written whole (high bits 0) as far as the line
// pitch holds it.
//
// The module passes: buffers and line pitches, width and height, the packed
// side's bit count n and IsBGROrder, the interleaved side's component count
// (3 or 4) and IsBGROrder, the table between the two depths when they differ
// (null when equal), and the flip flag.
#ifndef VYAPI_PIXELCONVERSION_COLORBITSTREAMPACKING_H
#define VYAPI_PIXELCONVERSION_COLORBITSTREAMPACKING_H

#include <cstddef>
#include <cstdint>

namespace VyApi {
namespace PixelConversion {

#define VY_DECLARE_BGRP_READER(name)                                                                                 \
  void name(const void* pSrc, size_t nSrcLinePitch, size_t nSrcBits, bool bSrcBGROrder, void* pDest,                \
            size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth, size_t nHeight, \
            const uint16_t* pTable, bool bReverseY)
#define VY_DECLARE_BGRP_WRITER(name)                                                                               \
  void name(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,    \
            size_t nDestLinePitch, size_t nDestBits, bool bDestBGROrder, size_t nWidth, size_t nHeight,          \
            const uint16_t* pTable, bool bReverseY)

/// Packed colour stream to 16-bit components. Raises nothing.
VY_DECLARE_BGRP_READER(ConverterBGRpxToBGRX_16_16);
/// Packed colour stream to 8-bit components; pTable (n -> 8) required. Raises nothing.
VY_DECLARE_BGRP_READER(ConverterBGRpxToBGRX_16_8);
/// 16-bit components to a packed colour stream. Raises nothing.
VY_DECLARE_BGRP_WRITER(ConverterBGRxToBGRXp_16_16);
/// 8-bit components to a packed colour stream; pTable (8 -> n) required. Raises nothing.
VY_DECLARE_BGRP_WRITER(ConverterBGRxToBGRXp_8_16);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
