// Vector line bodies of the 8-bit passes that only move bytes: component
// order, alpha added or dropped, grey to colour. Like the other line bodies
// each does the longest part of a line it can without touching a byte outside
// the line and returns the number of pixels done; the caller finishes the
// line with the scalar rule, which gives the same bytes. A destination alpha
// keeps the value the buffer held (the vector forms store the three colour
// bytes of each pixel only, or write back the alpha they read), a source
// alpha is ignored. The form (AVX-512, AVX2, SSSE3) is chosen as for the
// other line bodies, under the same cap for tests.
#ifndef VYAPI_PIXELCONVERSION_BYTEMOVELINES_H
#define VYAPI_PIXELCONVERSION_BYTEMOVELINES_H

#include <cstddef>
#include <cstdint>

namespace VyApi {
namespace PixelConversion {

/// Colour pixels of nSrcCells (3 or 4) bytes to pixels of nDestCells (3 or 4)
/// bytes, bytes 0 and 2 exchanged with bSwap. Three to three without a swap
/// is a plain copy and not served here (returns 0).
size_t SimdMoveColor8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nSrcCells, int nDestCells,
                          bool bSwap);
/// Grey bytes to colour pixels of nDestCells (3 or 4) bytes.
size_t SimdMonoToColor8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nDestCells);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
