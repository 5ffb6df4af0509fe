// How a depth table is applied to a run of samples.
//
// Applying a table costs one dependent load a sample, which no vector
// instruction set of today's x86 processors does much faster (gathers and
// byte permutes measured slower than scalar loads on the target machines).
// Most depth reductions, though, use the table that gamma 1 gives: every
// entry is its index shifted right. Such a table is recognised by reading all
// its entries once per image, and then applied as that shift, which
// vectorises and gives the same values for every index inside the table.
// Expansions at gamma 1 fill the table with a rounded linear stretch,
// entry i = floor((2 i maxD + maxS) / (2 maxS)) with maxS = 2^s - 1 and
// maxD = 2^d - 1; that shape is recognised the same way and applied with a
// multiply-high instead of a division (see SStretch).
#ifndef VYAPI_PIXELCONVERSION_TABLESHAPE_H
#define VYAPI_PIXELCONVERSION_TABLESHAPE_H

#include <cstddef>
#include <cstdint>

#include "PixelConversion/PixelKernelSupport.h"

namespace VyApi {
namespace PixelConversion {

/// The rounded stretch from s to d bits (2 <= s < d <= 16) in integers:
///   f(v) = (v << L) + mulhi16(v * R + H, M) >> (s - 1)
/// with L = d - s, R = 2^L - 1, H = 2^(s-1) - 1, M = ceil(2^(s+15) / maxS).
/// Why: maxD = 2^L maxS + R, so f(v) = (v << L) + floor((v R + H) / maxS)
/// (the half in the rounding never reaches the next multiple of the odd
/// maxS), and v R + H < 2^16, so every step fits a 16-bit lane; M is the
/// largest-precision divisor magic below 2^16. A test compares f with the
/// division for every value of every pair; the table check compares f with
/// each entry, so a table that differs anywhere is read instead.
struct SStretch {
  uint16_t nLeft = 0;   // L
  uint16_t nR = 0;      // R
  uint16_t nH = 0;      // H
  uint16_t nM = 0;      // M
  uint16_t nRight = 0;  // s - 1, the shift after the multiply-high
  uint16_t nUp = 0;     // 2^L: the shift left as a multiply
  uint16_t nDown = 0;   // 2^(17-s): the shift right as a multiply-high

  /// The stretch from nSourceBits to nDestBits; nLeft == 0 (not a stretch)
  /// outside 2 <= nSourceBits < nDestBits <= 16.
  static SStretch Make(size_t nSourceBits, size_t nDestBits);

  /// f(v) for v < 2^s. Both shifts are written as 16-bit multiplies, which
  /// the compiler keeps in 16-bit lanes when it vectorises a loop of them
  /// (shifts by a variable count it widens to 32 bits, at twice the work).
  VY_KERNEL_INLINE uint32_t operator()(uint32_t v) const {
    const uint16_t t = static_cast<uint16_t>(v * nR + nH);
    const uint16_t q = static_cast<uint16_t>((uint32_t(t) * nM) >> 16);
    const uint16_t r = static_cast<uint16_t>((uint32_t(q) * nDown) >> 16);
    return static_cast<uint16_t>(v * nUp + r);
  }
};

struct STableShape {
  const uint16_t* pTable = nullptr;
  /// Every entry i equals i >> nShift; -1 when the entries must be read.
  int nShift = -1;
  /// Every entry i equals stretch(i) when stretch.nLeft > 0 (nShift is -1 then).
  SStretch stretch;

  /// The shape of pTable, a table of 2^nSourceBits entries (1..16).
  /// Reads every entry. Raises nothing.
  static STableShape Of(const uint16_t* pTable, size_t nSourceBits);

  /// The value of index v (v < 2^nSourceBits).
  VY_KERNEL_INLINE uint32_t operator()(uint32_t v) const {
    return nShift >= 0 ? v >> nShift : IsStretch() ? stretch(v) : pTable[v];
  }

  /// True when the values are computed rather than read.
  bool IsComputed() const { return nShift >= 0 || IsStretch(); }
  bool IsStretch() const { return stretch.nLeft > 0; }
};

/// pOut[i] = shape(pIn[i]) for i < n, every pIn[i] inside the table.
template <typename X, typename Y>
VY_KERNEL_INLINE void ApplyTableShape(const X* __restrict pIn, Y* __restrict pOut, size_t n,
                                      const STableShape& shape) {
  if (shape.nShift >= 0) {
    const unsigned nShift = unsigned(shape.nShift);
    for (size_t i = 0; i < n; ++i) pOut[i] = static_cast<Y>(pIn[i] >> nShift);
  } else if (shape.IsStretch()) {
    const SStretch f = shape.stretch;
    for (size_t i = 0; i < n; ++i) pOut[i] = static_cast<Y>(f(pIn[i]));
  } else {
    const uint16_t* __restrict pTable = shape.pTable;
    for (size_t i = 0; i < n; ++i) pOut[i] = static_cast<Y>(pTable[pIn[i]]);
  }
}

}  // namespace PixelConversion
}  // namespace VyApi

#endif
