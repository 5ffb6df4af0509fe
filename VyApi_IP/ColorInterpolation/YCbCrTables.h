// Fixed-point tables of the YCbCr conversions, and the two clip rules that
// turn a table sum into a byte.
//
// Every value carries 22 fractional bits (F = 2^22): a byte times a
// coefficient below 2.2 plus the eight integer bits and a sign fits in a
// signed 32-bit sum, so a pixel costs table loads and adds only. The tables
// are constant data, evaluated by the compiler, and may be read from any
// thread at any time.
//
// Three families exist:
// - plain: full-range JFIF coefficients, for YCbCr8, YCbCr422_8, YUV...;
// - 601: studio range (Y 16..235, chroma 16..240) with BT.601 coefficients;
// - 709: studio range with BT.709 coefficients.
#ifndef VYAPI_IP_COLORINTERPOLATION_YCBCRTABLES_H
#define VYAPI_IP_COLORINTERPOLATION_YCBCRTABLES_H

#include <algorithm>
#include <cstdint>

namespace VyApi {

/// Number of fractional bits of every table value.
constexpr int YCbCrFractionBits = 22;
/// 255 in table units: a sum at or above it is white.
constexpr int32_t YCbCrReadSumMax = 255 << YCbCrFractionBits;  // 0x3FC00000

enum EYCbCrTableFamily_t : int {
  YCbCrTableFamily_Plain = 0,
  YCbCrTableFamily_601 = 1,
  YCbCrTableFamily_709 = 2,
};

/// Read side, YCbCr to colour. Rows indexed by a byte:
/// 0 Y to luma, 1 Cr to red, 2 Cb to green, 3 Cr to green, 4 Cb to blue.
struct SYCbCrReadTable {
  int32_t m_anRow[5][256];
};

/// Write side, colour to YCbCr. Rows indexed by a byte:
/// 0..2 R, G, B to Y; 3..5 R, G, B to Cb; 6..8 R, G, B to Cr; the offsets
/// (16 for a studio Y, 128 for chroma) are folded into one row each.
/// m_anLimit holds minimum and maximum of Y, then of a chroma value.
struct SYCbCrWriteTable {
  int32_t m_anRow[9][256];
  int32_t m_anLimit[4];
};

extern const SYCbCrReadTable pnYCrCbConvTable;
extern const SYCbCrReadTable pnYCrCbConvTable601;
extern const SYCbCrReadTable pnYCrCbConvTable709;
extern const SYCbCrWriteTable pnRGB2YCrCbConvTable;
extern const SYCbCrWriteTable pnRGB2YCrCb601ConvTable;
extern const SYCbCrWriteTable pnRGB2YCrCb709ConvTable;

/// The read table of a family. Raises nothing; an unknown family is an assertion.
const SYCbCrReadTable& GetYCbCrReadTable(EYCbCrTableFamily_t eFamily);
/// The write table (with its limits) of a family. Raises nothing; an unknown family is an assertion.
const SYCbCrWriteTable& GetYCbCrWriteTable(EYCbCrTableFamily_t eFamily);

/// Read-side clip: a sum at or below 0 is 0, at or above 255 x F is 255,
/// otherwise its integer part. Clamping first and shifting after gives
/// exactly that, without a branch.
inline uint8_t ClipYCbCrReadSum(int32_t nSum) {
  return static_cast<uint8_t>(std::clamp<int32_t>(nSum, 0, YCbCrReadSumMax) >> YCbCrFractionBits);
}

/// Write-side clip to [nMin, nMax]: a sum at or below nMin x F is nMin, at or
/// above nMax x F is nMax, otherwise its integer part.
inline uint8_t ClipYCbCrWriteSum(int32_t nSum, int32_t nMin, int32_t nMax) {
  return static_cast<uint8_t>(
      std::clamp<int32_t>(nSum, nMin << YCbCrFractionBits, nMax << YCbCrFractionBits) >> YCbCrFractionBits);
}

}  // namespace VyApi

#endif
