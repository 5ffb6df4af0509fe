#include "PixelConversion/TableShape.h"

namespace VyApi {
namespace PixelConversion {

namespace {

// The entries are compared in one pass that the compiler vectorises; a
// 16-bit source's table is 64 K entries, a few microseconds per image.
VY_KERNEL_CLONES
bool IsShiftTable(const uint16_t* __restrict pTable, uint32_t n, unsigned nShift) {
  uint32_t nDiff = 0;
  for (uint32_t i = 0; i < n; ++i) nDiff |= uint32_t(pTable[i]) ^ (i >> nShift);
  return nDiff == 0;
}

}  // namespace

STableShape STableShape::Of(const uint16_t* pTable, size_t nSourceBits) {
  STableShape shape;
  shape.pTable = pTable;
  if (pTable == nullptr || nSourceBits < 1 || nSourceBits > 16) return shape;
  const uint32_t n = uint32_t(1) << nSourceBits;
  // The last entry fixes the only shift that can fit.
  for (unsigned s = 0; s < unsigned(nSourceBits); ++s) {
    if (((n - 1) >> s) == pTable[n - 1]) {
      if (IsShiftTable(pTable, n, s)) shape.nShift = int(s);
      break;
    }
  }
  return shape;
}

}  // namespace PixelConversion
}  // namespace VyApi
