#include "PixelConversion/GvspPacking.h"

#include <VyApi_IP/VyReporter.h>

#include "PixelConversion/PixelKernelSupport.h"
#include "PixelConversion/SimdLineKernels.h"
#include "PixelConversion/TableShape.h"

namespace VyApi {
namespace PixelConversion {

namespace {

/// Reads one line. S is the number of low bits in the middle byte's nibbles.
/// Without a table the pair loop is branch-free integer work that the
/// compiler vectorises; with a table each value is one scalar load.
template <int S, typename Y, bool UseTable>
VY_KERNEL_INLINE void gevUnpackLine(const uint8_t* __restrict pSrc, Y* __restrict pDest, size_t nWidth,
                                    const uint16_t* __restrict pTable) {
  constexpr uint32_t kMask = (uint32_t(1) << S) - 1;
  const size_t nPairs = nWidth / 2;
  size_t i = 0;
  if constexpr (!UseTable) i = SimdUnpackGvspLine(pSrc, pDest, nWidth, S) / 2;
  for (; i < nPairs; ++i) {
    const uint32_t b0 = pSrc[3 * i];
    const uint32_t b1 = pSrc[3 * i + 1];
    const uint32_t b2 = pSrc[3 * i + 2];
    const uint32_t v0 = (b0 << S) | ((b1 >> 4) & kMask);
    const uint32_t v1 = (b2 << S) | (b1 & kMask);
    pDest[2 * i] = static_cast<Y>(UseTable ? pTable[v0] : v0);
    pDest[2 * i + 1] = static_cast<Y>(UseTable ? pTable[v1] : v1);
  }
  if (nWidth & 1) {
    const uint32_t b0 = pSrc[3 * nPairs];
    const uint32_t b1 = pSrc[3 * nPairs + 1];
    const uint32_t v = (b0 << S) | ((b1 >> 4) & kMask);
    pDest[nWidth - 1] = static_cast<Y>(UseTable ? pTable[v] : v);
  }
}

/// One line through a computed table (a shift or a stretch): the vector body
/// where there is one, then chunks of pairs unpacked into 16-bit cells on the
/// stack by the plain (vectorised) reader and mapped.
template <int S, typename Y>
VY_KERNEL_INLINE void gevUnpackLineTable(const uint8_t* __restrict pSrc, Y* __restrict pDest, size_t nWidth,
                                         const STableShape& shape) {
  constexpr size_t kChunk = 1024;  // pixels, an even number
  uint16_t aBuf[kChunk];
  size_t x0 = 0;  // an even number of pixels
  if constexpr (S == 4) {
    if (shape.nShift >= 0) {
      x0 = SimdUnpackGvsp12ShiftLine(pSrc, pDest, nWidth, unsigned(shape.nShift));
    } else if constexpr (sizeof(Y) == 2) {
      x0 = SimdUnpackGvsp12StretchLine(pSrc, pDest, nWidth, shape.stretch);
    }
  }
  for (size_t x = x0; x < nWidth; x += kChunk) {
    const size_t n = nWidth - x < kChunk ? nWidth - x : kChunk;
    gevUnpackLine<S, uint16_t, false>(pSrc + x / 2 * 3, aBuf, n, nullptr);
    ApplyTableShape(aBuf, pDest + x, n, shape);
  }
}

template <int S, typename Y, bool UseTable>
VY_KERNEL_INLINE void gevUnpackImage(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                     size_t nWidth, size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  if constexpr (UseTable) {
    const STableShape shape = STableShape::Of(pTable, S + 8);
    if (shape.IsComputed()) {
      for (size_t y = 0; y < nHeight; ++y, dest.Next())
        gevUnpackLineTable<S, Y>(SrcLine<uint8_t>(pSrc, nSrcLinePitch, y), dest.Line<Y>(), nWidth, shape);
    } else {
      // Entries to read: the fused reader, without the round trip through the stack.
      for (size_t y = 0; y < nHeight; ++y, dest.Next())
        gevUnpackLine<S, Y, true>(SrcLine<uint8_t>(pSrc, nSrcLinePitch, y), dest.Line<Y>(), nWidth, pTable);
    }
  } else {
    for (size_t y = 0; y < nHeight; ++y, dest.Next())
      gevUnpackLine<S, Y, false>(SrcLine<uint8_t>(pSrc, nSrcLinePitch, y), dest.Line<Y>(), nWidth, pTable);
  }
}

template <int S>
VY_KERNEL_INLINE void gevUnpack(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                size_t nWidth, size_t nHeight, size_t nDestBits, const uint16_t* pTable,
                                bool bReverseY) {
  if (nDestBits == size_t(S + 8)) {
    gevUnpackImage<S, uint16_t, false>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nullptr,
                                       bReverseY);
  } else if (nDestBits > 8 && nDestBits <= 16) {
    VY_ASSERT(pTable != nullptr);
    gevUnpackImage<S, uint16_t, true>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, pTable, bReverseY);
  } else if (nDestBits == 8) {
    VY_ASSERT(pTable != nullptr);
    gevUnpackImage<S, uint8_t, true>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, pTable, bReverseY);
  } else {
    VY_ASSERT(false);
  }
}

}  // namespace

VY_KERNEL_CLONES
void ConverterGEVPackedToUnpacked(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                  size_t nWidth, size_t nHeight, size_t nSrcBits, size_t nDestBits,
                                  const uint16_t* pTable, bool bReverseY) {
  VY_ASSERT(nSrcBits == 10 || nSrcBits == 12);
  if (nSrcBits == 10) {
    gevUnpack<2>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nDestBits, pTable, bReverseY);
  } else {
    gevUnpack<4>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nDestBits, pTable, bReverseY);
  }
}

void ConverterUnpackedBToGevPacked(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                   size_t nWidth, size_t nHeight, size_t nDestBits, const uint16_t* pTable,
                                   bool bReverseY) {
  VY_ASSERT(nDestBits == 10 || nDestBits == 12);
  VY_ASSERT(pTable != nullptr);
  const unsigned s = unsigned(nDestBits - 8);
  const uint32_t nMask = (uint32_t(1) << s) - 1;
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const uint8_t* __restrict ps = SrcLine<uint8_t>(pSrc, nSrcLinePitch, y);
    uint8_t* __restrict pd = dest.Line<uint8_t>();
    const size_t nPairs = nWidth / 2;
    for (size_t i = 0; i < nPairs; ++i) {
      const uint32_t v0 = pTable[ps[2 * i]];
      const uint32_t v1 = pTable[ps[2 * i + 1]];
      pd[3 * i] = static_cast<uint8_t>(v0 >> s);
      pd[3 * i + 1] = static_cast<uint8_t>((v0 & nMask) | ((v1 & nMask) << 4));
      pd[3 * i + 2] = static_cast<uint8_t>(v1 >> s);
    }
    if (nWidth & 1) {
      const uint32_t v = pTable[ps[nWidth - 1]];
      pd[3 * nPairs] = static_cast<uint8_t>(v >> s);
      pd[3 * nPairs + 1] = static_cast<uint8_t>(v & nMask);
    }
  }
}

}  // namespace PixelConversion
}  // namespace VyApi
