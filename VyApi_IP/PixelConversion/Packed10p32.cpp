#include "PixelConversion/Packed10p32.h"

#include <cstring>
#include <type_traits>

#include <VyApi_IP/VyReporter.h>

#include "PixelConversion/ColorLayout.h"
#include "PixelConversion/PixelKernelSupport.h"
#include "PixelConversion/SimdLineKernels.h"
#include "PixelConversion/TableShape.h"

namespace VyApi {
namespace PixelConversion {

namespace {

/// What a 10-bit field becomes on the reading side: itself, its table entry,
/// or, for a shift table, the field shifted (no load, so the loop vectorises;
/// to 8-bit cells a hand-written line body does it, as three-byte pixels
/// defeat the compiler's vectoriser).
enum EFieldMap_t { FieldMap_Plain, FieldMap_Table, FieldMap_Shift };

template <typename Y, int DC, bool Swap, EFieldMap_t Map>
VY_KERNEL_INLINE void readImage(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                size_t nWidth, size_t nHeight, const uint16_t* __restrict pTable, unsigned nShift,
                                bool bReverseY) {
  auto map = [&](uint32_t f) -> uint32_t {
    if constexpr (Map == FieldMap_Table) return pTable[f];
    if constexpr (Map == FieldMap_Shift) return f >> nShift;
    return f;
  };
  constexpr int C0 = Swap ? 2 : 0;
  constexpr int C2 = Swap ? 0 : 2;
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const uint8_t* __restrict ps = SrcLine<uint8_t>(pSrc, nSrcLinePitch, y);
    Y* __restrict pd = dest.Line<Y>();
    size_t x = 0;
    if constexpr (Map == FieldMap_Shift && std::is_same<Y, uint8_t>::value)
      x = SimdUnpack10p32ShiftLine(ps, pd, nWidth, DC, Swap, nShift);
    for (; x < nWidth; ++x) {
      uint32_t w;
      std::memcpy(&w, ps + 4 * x, sizeof(w));
      const uint32_t f0 = w & 0x3FF;
      const uint32_t f1 = (w >> 10) & 0x3FF;
      const uint32_t f2 = (w >> 20) & 0x3FF;
      pd[DC * x + C0] = static_cast<Y>(map(f0));
      pd[DC * x + 1] = static_cast<Y>(map(f1));
      pd[DC * x + C2] = static_cast<Y>(map(f2));
    }
  }
}

template <typename X, int SC, bool Swap, bool UseTable>
VY_KERNEL_INLINE void writeImage(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                 size_t nWidth, size_t nHeight, const uint16_t* __restrict pTable, bool bReverseY) {
  constexpr int C0 = Swap ? 2 : 0;
  constexpr int C2 = Swap ? 0 : 2;
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const X* __restrict ps = SrcLine<X>(pSrc, nSrcLinePitch, y);
    uint8_t* __restrict pd = dest.Line<uint8_t>();
    for (size_t x = 0; x < nWidth; ++x) {
      const uint32_t c0 = UseTable ? pTable[ps[SC * x + C0]] : ps[SC * x + C0];
      const uint32_t c1 = UseTable ? pTable[ps[SC * x + 1]] : ps[SC * x + 1];
      const uint32_t c2 = UseTable ? pTable[ps[SC * x + C2]] : ps[SC * x + C2];
      const uint32_t w = (c0 & 0x3FF) | ((c1 & 0x3FF) << 10) | ((c2 & 0x3FF) << 20);
      std::memcpy(pd + 4 * x, &w, sizeof(w));
    }
  }
}

}  // namespace

#define VY_DEFINE_10P32_READER(name, Y)                                                                          \
  VY_KERNEL_CLONES VY_DECLARE_10P32_READER(name) {                                                               \
    VY_ASSERT(pTable != nullptr || (std::is_same<Y, uint16_t>::value));                                            \
    const STableShape shape = STableShape::Of(pTable, 10);                                                       \
    const unsigned nShift = shape.nShift >= 0 ? unsigned(shape.nShift) : 0u;                                     \
    WithComponentCount(nDestComponentCount, [&](auto dc) {                                                       \
      WithFlag(bSrcBGROrder != bDestBGROrder, [&](auto swap) {                                                   \
        constexpr int DC = decltype(dc)::value;                                                                  \
        constexpr bool Swap = decltype(swap)::value;                                                             \
        if (pTable == nullptr)                                                                                   \
          readImage<Y, DC, Swap, FieldMap_Plain>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight,   \
                                                 pTable, 0, bReverseY);                                          \
        else if (shape.nShift >= 0)                                                                              \
          readImage<Y, DC, Swap, FieldMap_Shift>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight,   \
                                                 pTable, nShift, bReverseY);                                     \
        else                                                                                                     \
          readImage<Y, DC, Swap, FieldMap_Table>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight,   \
                                                 pTable, 0, bReverseY);                                          \
      });                                                                                                        \
    });                                                                                                          \
  }
#define VY_DEFINE_10P32_WRITER(name, X)                                                                          \
  VY_KERNEL_CLONES VY_DECLARE_10P32_WRITER(name) {                                                               \
    VY_ASSERT(pTable != nullptr || (std::is_same<X, uint16_t>::value));                                            \
    WithComponentCount(nSrcComponentCount, [&](auto sc) {                                                        \
      WithFlag(bSrcBGROrder != bDestBGROrder, [&](auto swap) {                                                   \
        WithFlag(pTable != nullptr, [&](auto table) {                                                            \
          writeImage<X, decltype(sc)::value, decltype(swap)::value, decltype(table)::value>(                     \
              pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, pTable, bReverseY);                   \
        });                                                                                                      \
      });                                                                                                        \
    });                                                                                                          \
  }

VY_DEFINE_10P32_READER(ConverterBGR10pToBGRx16, uint16_t)
VY_DEFINE_10P32_READER(ConverterBGR10p32ToBGRx8, uint8_t)
VY_DEFINE_10P32_WRITER(ConverterBGRx16ToBGR10p, uint16_t)
VY_DEFINE_10P32_WRITER(ConverterBGRx8ToBGR10p, uint8_t)

}  // namespace PixelConversion
}  // namespace VyApi
