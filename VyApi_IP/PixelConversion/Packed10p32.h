// One 32-bit little-endian word per pixel (RGB10p32, CBGR10p32): three
// 10-bit fields at bits 9:0, 19:10 and 29:20, bits 31:30 zero. The low field
// is red for RGB10p32 and blue for CBGR10p32; in other words the word is a
// three-component pixel in the order its format's IsBGROrder names, and the
// order rule of the interleaved conversions applies to it.
//
// The module passes: buffers and line pitches, width and height, the packed
// side's IsBGROrder, the interleaved side's component count (3 or 4) and
// IsBGROrder, the table between 10 bits and the interleaved depth when they
// differ (null when equal), and the flip flag. Alpha is never written and is
// ignored as a source.
#ifndef VYAPI_PIXELCONVERSION_PACKED10P32_H
#define VYAPI_PIXELCONVERSION_PACKED10P32_H

#include <cstddef>
#include <cstdint>

namespace VyApi {
namespace PixelConversion {

#define VY_DECLARE_10P32_READER(name)                                                                                 \
  void name(const void* pSrc, size_t nSrcLinePitch, bool bSrcBGROrder, void* pDest, size_t nDestLinePitch,            \
            size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth, size_t nHeight, const uint16_t* pTable, \
            bool bReverseY)
#define VY_DECLARE_10P32_WRITER(name)                                                                               \
  void name(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,     \
            size_t nDestLinePitch, bool bDestBGROrder, size_t nWidth, size_t nHeight, const uint16_t* pTable,      \
            bool bReverseY)

/// RGB10p32/CBGR10p32 to 16-bit components. Raises nothing.
VY_DECLARE_10P32_READER(ConverterBGR10pToBGRx16);
/// RGB10p32/CBGR10p32 to 8-bit components; pTable (10 -> 8) required. Raises nothing.
VY_DECLARE_10P32_READER(ConverterBGR10p32ToBGRx8);
/// 16-bit components to RGB10p32/CBGR10p32. Raises nothing.
VY_DECLARE_10P32_WRITER(ConverterBGRx16ToBGR10p);
/// 8-bit components to RGB10p32/CBGR10p32; pTable (8 -> 10) required. Raises nothing.
VY_DECLARE_10P32_WRITER(ConverterBGRx8ToBGR10p);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
