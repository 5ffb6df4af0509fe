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

VY_KERNEL_CLONES
bool IsStretchTable(const uint16_t* __restrict pTable, uint32_t n, SStretch f) {
  uint32_t nDiff = 0;
  for (uint32_t i = 0; i < n; ++i) nDiff |= uint32_t(pTable[i]) ^ f(i);
  return nDiff == 0;
}

}  // namespace

SStretch SStretch::Make(size_t nSourceBits, size_t nDestBits) {
  SStretch f;
  if (nSourceBits < 2 || nSourceBits >= nDestBits || nDestBits > 16) return f;
  const uint32_t nMaxS = (uint32_t(1) << nSourceBits) - 1;
  f.nLeft = uint16_t(nDestBits - nSourceBits);
  f.nR = uint16_t((uint32_t(1) << f.nLeft) - 1);
  f.nH = uint16_t((uint32_t(1) << (nSourceBits - 1)) - 1);
  f.nM = uint16_t(((uint32_t(1) << (nSourceBits + 15)) + nMaxS - 1) / nMaxS);
  f.nRight = uint16_t(nSourceBits - 1);
  f.nUp = uint16_t(uint32_t(1) << f.nLeft);
  f.nDown = uint16_t(uint32_t(1) << (17 - nSourceBits));
  return f;
}

STableShape STableShape::Of(const uint16_t* pTable, size_t nSourceBits) {
  STableShape shape;
  shape.pTable = pTable;
  if (pTable == nullptr || nSourceBits < 1 || nSourceBits > 16) return shape;
  const uint32_t n = uint32_t(1) << nSourceBits;
  // The last entry fixes the only shift that can fit.
  for (unsigned s = 0; s < unsigned(nSourceBits); ++s) {
    if (((n - 1) >> s) == pTable[n - 1]) {
      if (IsShiftTable(pTable, n, s)) shape.nShift = int(s);
      return shape;
    }
  }
  // A stretch takes the last index to the destination's maximum, 2^d - 1.
  const uint32_t nLast = pTable[n - 1];
  if ((nLast & (nLast + 1)) == 0) {
    size_t nDestBits = 0;
    while ((uint32_t(1) << nDestBits) <= nLast) ++nDestBits;
    const SStretch f = SStretch::Make(nSourceBits, nDestBits);
    if (f.nLeft > 0 && IsStretchTable(pTable, n, f)) shape.stretch = f;
  }
  return shape;
}

}  // namespace PixelConversion
}  // namespace VyApi
