// Hand-vectorised line bodies for the hot kernels whose loops the compiler
// does not vectorise (three-byte pixels, 12-bit streams). Each handles the
// longest prefix of a line that it can without reading or writing beyond the
// line and returns the number of pixels done; the caller finishes the line
// with the scalar rule, which gives identical values. The SSSE3 forms are
// chosen once per process by HasSsse3(); on other machines every function
// does nothing and returns 0.
#ifndef VYAPI_PIXELCONVERSION_SIMDLINEKERNELS_H
#define VYAPI_PIXELCONVERSION_SIMDLINEKERNELS_H

#include <cstddef>
#include <cstdint>

#include "PixelConversion/TableShape.h"

namespace VyApi {
namespace PixelConversion {

/// True when the processor has SSSE3; read once.
bool HasSsse3();

/// BGR8/RGB8 (3 cells) to Mono8 with the luminance weights.
size_t SimdBGR8ToMono8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bSrcBGROrder);
/// Three-cell 8-bit pixels with components 0 and 2 exchanged.
size_t SimdSwapRB8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth);
/// 12-bit LSB-first stream to 16-bit cells, values unchanged.
size_t SimdUnpack12pLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth);
/// GVSP pairs of depth 8 + nLowBits (2 or 4) to 16-bit cells, values unchanged.
size_t SimdUnpackGvspLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nLowBits);

/// 10- or 12-bit (nBits) LSB-first stream to cells holding each value >>
/// nShift (0..nBits-1), as a shift table maps it; 8-bit cells take the low
/// byte. AVX-512 VBMI only; returns a multiple of 32 pixels, 0 elsewhere.
size_t SimdUnpackPackedShiftLine(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nBits, unsigned nShift);
size_t SimdUnpackPackedShiftLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nBits, unsigned nShift);
/// The same stream to cells holding the rounded stretch f of each value,
/// f made for source depth nBits.
size_t SimdUnpackPackedStretchLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nBits,
                                   const SStretch& f);
/// GVSP pairs of depth 12 to cells holding each value >> nShift, likewise.
size_t SimdUnpackGvsp12ShiftLine(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, unsigned nShift);
size_t SimdUnpackGvsp12ShiftLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, unsigned nShift);
/// GVSP pairs of depth 12 to cells holding the rounded stretch f of each value.
size_t SimdUnpackGvsp12StretchLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, const SStretch& f);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
