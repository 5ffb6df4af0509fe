// Bit-stream packed mono and Bayer formats (Mono1p/2p/4p/10p/12p/14p,
// Bayer*4p/10p/12p/14p): pixel i of a line occupies bits i*n .. i*n+n-1 of the
// line's stream, stream bit k being bit k%8 of byte k/8, low bit first. Each
// line starts on its own byte at the line pitch; a last partial byte holds the
// remaining bits in its low end, upper bits 0.
//
// The module passes: buffers and line pitches, width and height, the source
// and destination component depths, the table from source to destination
// depth when they differ (null when equal), and the flip flag.
//   Reading: the destination cells are 8-bit for depth 8 and 16-bit for 9..16;
//   any other destination depth is a programming error (assertion "false").
//   Writing: the destination depth is the stream's bit count per pixel.
#ifndef VYAPI_PIXELCONVERSION_BITSTREAMPACKING_H
#define VYAPI_PIXELCONVERSION_BITSTREAMPACKING_H

#include <cstddef>
#include <cstdint>

namespace VyApi {
namespace PixelConversion {

/// Unpacks a bit stream of nSrcBits per pixel. Raises nothing.
void ConverterPackedToUnpacked(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                               size_t nWidth, size_t nHeight, size_t nSrcBits, size_t nDestBits,
                               const uint16_t* pTable, bool bReverseY);
/// Packs 8-bit samples into a stream of nDestBits per pixel. Raises nothing.
void ConverterUnpackedToPacked8(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                size_t nWidth, size_t nHeight, size_t nSrcBits, size_t nDestBits,
                                const uint16_t* pTable, bool bReverseY);
/// Packs 16-bit samples into a stream of nDestBits per pixel. Raises nothing.
void ConverterUnpackedToPackedW(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                size_t nWidth, size_t nHeight, size_t nSrcBits, size_t nDestBits,
                                const uint16_t* pTable, bool bReverseY);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
