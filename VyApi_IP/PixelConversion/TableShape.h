// How a depth table is applied to a run of samples.
//
// Applying a table costs one dependent load a sample, which no vector
// instruction set of today's x86 processors does much faster (gathers and
// byte permutes measured slower than scalar loads on the target machines).
// Most depth reductions, though, use the table that gamma 1 gives: every
// entry is its index shifted right. Such a table is recognised by reading all
// its entries once per image, and then applied as that shift, which
// vectorises and gives the same values for every index inside the table.
#ifndef VYAPI_PIXELCONVERSION_TABLESHAPE_H
#define VYAPI_PIXELCONVERSION_TABLESHAPE_H

#include <cstddef>
#include <cstdint>

#include "PixelConversion/PixelKernelSupport.h"

namespace VyApi {
namespace PixelConversion {

struct STableShape {
  const uint16_t* pTable = nullptr;
  /// Every entry i equals i >> nShift; -1 when the entries must be read.
  int nShift = -1;

  /// The shape of pTable, a table of 2^nSourceBits entries (1..16).
  /// Reads every entry. Raises nothing.
  static STableShape Of(const uint16_t* pTable, size_t nSourceBits);

  /// The value of index v (v < 2^nSourceBits).
  VY_KERNEL_INLINE uint32_t operator()(uint32_t v) const { return nShift >= 0 ? v >> nShift : pTable[v]; }
};

/// pOut[i] = shape(pIn[i]) for i < n, every pIn[i] inside the table.
template <typename Y>
VY_KERNEL_INLINE void ApplyTableShape(const uint16_t* __restrict pIn, Y* __restrict pOut, size_t n,
                                      const STableShape& shape) {
  if (shape.nShift >= 0) {
    const unsigned nShift = unsigned(shape.nShift);
    for (size_t i = 0; i < n; ++i) pOut[i] = static_cast<Y>(pIn[i] >> nShift);
  } else {
    const uint16_t* __restrict pTable = shape.pTable;
    for (size_t i = 0; i < n; ++i) pOut[i] = static_cast<Y>(pTable[pIn[i]]);
  }
}

}  // namespace PixelConversion
}  // namespace VyApi

#endif
