// Hand-vectorised line bodies for the hot kernels whose loops the compiler
// does not vectorise (three-byte pixels, 12-bit streams). Each handles the
// longest prefix of a line that it can without reading or writing beyond the
// line and returns the number of pixels done; the caller finishes the line
// with the scalar rule, which gives identical values. The SSSE3 forms are
// chosen once per process by HasSsse3(), the AVX-512 VBMI forms likewise by
// their own check; the VBMI forms use masked loads and stores for a line's
// last partial step and so finish the whole line. On other machines a
// function does nothing and returns 0.
#ifndef VYAPI_PIXELCONVERSION_SIMDLINEKERNELS_H
#define VYAPI_PIXELCONVERSION_SIMDLINEKERNELS_H

#include <cstddef>
#include <cstdint>

#include "PixelConversion/TableShape.h"

namespace VyApi {
namespace PixelConversion {

/// True when the processor has SSSE3; read once.
bool HasSsse3();

/// The widest instruction set the line bodies may use, for tests that run
/// every form on one machine; SimdCap_All (the default) lets each function
/// take the best its processor has. Every form gives the same values.
enum ESimdCap_t { SimdCap_None, SimdCap_Ssse3, SimdCap_Avx2, SimdCap_Vbmi, SimdCap_All = SimdCap_Vbmi };
void SetSimdCapForTesting(ESimdCap_t eCap);
/// Whether a line body may take its AVX-512 VBMI, AVX2 or SSSE3 form now:
/// the processor has it and the cap allows it.
bool UseSimdVbmi();
bool UseSimdAvx2();
bool UseSimdSsse3();

/// BGR8/RGB8 (nCells 3) or BGRa8/RGBa8 (nCells 4) to Mono8 with the
/// luminance weights. With AVX-512 VBMI the whole line; otherwise AVX2 or
/// SSSE3 do a multiple of 32 or 16 three-cell pixels and four-cell lines are
/// left alone.
size_t SimdColorToMono8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nCells, bool bSrcBGROrder);
/// Three-cell 8-bit pixels with components 0 and 2 exchanged.
size_t SimdSwapRB8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth);
/// 12-bit LSB-first stream to 16-bit cells, values unchanged.
size_t SimdUnpack12pLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth);
/// GVSP pairs of depth 8 + nLowBits (2 or 4) to 16-bit cells, values unchanged.
size_t SimdUnpackGvspLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nLowBits);

/// RGB10p32/CBGR10p32 words to 8-bit pixels of nCells (3 or 4) cells, each
/// field >> nShift (0..9) with its low byte kept, as a shift table maps it;
/// field 0 goes to cell 0, or to cell 2 with bSwap. The fourth cell is never
/// written. With AVX-512 VBMI the whole line; with AVX2 a multiple of 8
/// three-cell pixels; 0 elsewhere.
size_t SimdUnpack10p32ShiftLine(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nCells, bool bSwap,
                                unsigned nShift);

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
