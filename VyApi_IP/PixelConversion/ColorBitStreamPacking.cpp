#include "PixelConversion/ColorBitStreamPacking.h"

#include <type_traits>

#include <VyApi_IP/VyReporter.h>

#include "PixelConversion/ColorLayout.h"
#include "PixelConversion/PixelKernelSupport.h"

namespace VyApi {
namespace PixelConversion {

namespace {

template <typename Y, int DC, bool Swap>
VY_KERNEL_INLINE void readImage(const void* pSrc, size_t nSrcLinePitch, unsigned nBits, void* pDest,
                                size_t nDestLinePitch, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                                bool bReverseY) {
  constexpr int C0 = Swap ? 2 : 0;
  constexpr int C2 = Swap ? 0 : 2;
  const uint32_t nMask = (uint32_t(1) << nBits) - 1;
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const uint8_t* __restrict ps = SrcLine<uint8_t>(pSrc, nSrcLinePitch, y);
    Y* __restrict pd = dest.Line<Y>();
    uint32_t nAcc = 0;
    unsigned nFill = 0;
    auto next = [&]() -> uint32_t {
      while (nFill < nBits) {
        nAcc |= uint32_t(*ps++) << nFill;
        nFill += 8;
      }
      const uint32_t v = nAcc & nMask;
      nAcc >>= nBits;
      nFill -= nBits;
      return pTable != nullptr ? pTable[v] : v;
    };
    for (size_t x = 0; x < nWidth; ++x) {
      const uint32_t m0 = next();
      const uint32_t m1 = next();
      const uint32_t m2 = next();
      pd[DC * x + C0] = static_cast<Y>(m0);
      pd[DC * x + 1] = static_cast<Y>(m1);
      pd[DC * x + C2] = static_cast<Y>(m2);
    }
  }
}

template <typename X, int SC, bool Swap>
VY_KERNEL_INLINE void writeImage(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                 unsigned nBits, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                                 bool bReverseY) {
  constexpr int C0 = Swap ? 2 : 0;
  constexpr int C2 = Swap ? 0 : 2;
  const uint32_t nMask = (uint32_t(1) << nBits) - 1;
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const X* __restrict ps = SrcLine<X>(pSrc, nSrcLinePitch, y);
    uint8_t* __restrict pd = dest.Line<uint8_t>();
    size_t nOut = 0;
    uint32_t nAcc = 0;
    unsigned nFill = 0;
    auto put = [&](uint32_t v) {
      if (pTable != nullptr) v = pTable[v];
      nAcc |= (v & nMask) << nFill;
      nFill += nBits;
      if (nFill >= 16) {
        pd[nOut++] = static_cast<uint8_t>(nAcc);
        pd[nOut++] = static_cast<uint8_t>(nAcc >> 8);
        nAcc >>= 16;
        nFill -= 16;
      }
    };
    for (size_t x = 0; x < nWidth; ++x) {
      put(ps[SC * x + C0]);
      put(ps[SC * x + 1]);
      put(ps[SC * x + C2]);
    }
    if (nFill > 0) {
      // The partial word goes out whole; its high byte carries no stream bits
      // when the fill is 8 or less, and is left out where the line pitch ends.
      pd[nOut++] = static_cast<uint8_t>(nAcc);
      if (nFill > 8 || nOut < nDestLinePitch) pd[nOut] = static_cast<uint8_t>(nAcc >> 8);
    }
  }
}

}  // namespace

#define VY_DEFINE_BGRP_READER(name, Y)                                                                           \
  VY_KERNEL_CLONES VY_DECLARE_BGRP_READER(name) {                                                                \
    VY_ASSERT(nSrcBits == 10 || nSrcBits == 12);                                                                 \
    VY_ASSERT(pTable != nullptr || (std::is_same<Y, uint16_t>::value));                                            \
    WithComponentCount(nDestComponentCount, [&](auto dc) {                                                       \
      WithFlag(bSrcBGROrder != bDestBGROrder, [&](auto swap) {                                                   \
        readImage<Y, decltype(dc)::value, decltype(swap)::value>(pSrc, nSrcLinePitch, unsigned(nSrcBits), pDest, \
                                                                 nDestLinePitch, nWidth, nHeight, pTable,        \
                                                                 bReverseY);                                     \
      });                                                                                                        \
    });                                                                                                          \
  }
#define VY_DEFINE_BGRP_WRITER(name, X)                                                                          \
  VY_KERNEL_CLONES VY_DECLARE_BGRP_WRITER(name) {                                                               \
    VY_ASSERT(nDestBits == 10 || nDestBits == 12);                                                              \
    VY_ASSERT(pTable != nullptr || (std::is_same<X, uint16_t>::value));                                           \
    WithComponentCount(nSrcComponentCount, [&](auto sc) {                                                       \
      WithFlag(bSrcBGROrder != bDestBGROrder, [&](auto swap) {                                                  \
        writeImage<X, decltype(sc)::value, decltype(swap)::value>(pSrc, nSrcLinePitch, pDest, nDestLinePitch,   \
                                                                  unsigned(nDestBits), nWidth, nHeight, pTable, \
                                                                  bReverseY);                                   \
      });                                                                                                       \
    });                                                                                                         \
  }

VY_DEFINE_BGRP_READER(ConverterBGRpxToBGRX_16_16, uint16_t)
VY_DEFINE_BGRP_READER(ConverterBGRpxToBGRX_16_8, uint8_t)
VY_DEFINE_BGRP_WRITER(ConverterBGRxToBGRXp_16_16, uint16_t)
VY_DEFINE_BGRP_WRITER(ConverterBGRxToBGRXp_8_16, uint8_t)

}  // namespace PixelConversion
}  // namespace VyApi
