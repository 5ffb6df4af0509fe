// GigE Vision packed formats (GVSP_Mono10Packed, GVSP_Mono12Packed,
// GVSP_Bayer*10Packed, GVSP_Bayer*12Packed): two pixels in three bytes,
// whatever the depth d (10 or 12). With s = d - 8 and mask = 2^s - 1:
//   written: b0 = v0 >> s, b1 = (v0 & mask) | ((v1 & mask) << 4), b2 = v1 >> s
//   read:    v0 = (b0 << s) | ((b1 >> 4) & mask), v1 = (b2 << s) | (b1 & mask)
// The two are deliberately not mirror images: the writer puts v0's low bits in
// the low nibble and the reader takes them from the high nibble, so an image
// written and read back here has the low bits of each pair exchanged. An odd
// last pixel takes two bytes: written b0 = v >> s, b1 = v & mask; read
// (b0 << s) | ((b1 >> 4) & mask).
//
// The module passes: buffers and line pitches, width and height, the depths,
// the table and the flip flag.
//   Reading: source depth 10 or 12; the table from source to destination depth
//   when they differ (null when equal); destination cells 8-bit for depth 8,
//   16-bit for 9..16, anything else asserts "false".
//   Writing: 8-bit samples, destination depth 10 or 12, the table from 8 bits
//   to that depth (required).
#ifndef VYAPI_PIXELCONVERSION_GVSPPACKING_H
#define VYAPI_PIXELCONVERSION_GVSPPACKING_H

#include <cstddef>
#include <cstdint>

namespace VyApi {
namespace PixelConversion {

/// Unpacks GVSP pairs. Raises nothing.
void ConverterGEVPackedToUnpacked(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                  size_t nWidth, size_t nHeight, size_t nSrcBits, size_t nDestBits,
                                  const uint16_t* pTable, bool bReverseY);
/// Packs 8-bit samples into GVSP pairs of depth nDestBits. Raises nothing.
void ConverterUnpackedBToGevPacked(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                   size_t nWidth, size_t nHeight, size_t nDestBits, const uint16_t* pTable,
                                   bool bReverseY);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
