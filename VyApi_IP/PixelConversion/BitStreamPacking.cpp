#include "PixelConversion/BitStreamPacking.h"

#include <cstring>

#include <VyApi_IP/VyReporter.h>

#include "PixelConversion/PixelKernelSupport.h"
#include "PixelConversion/SimdLineKernels.h"
#include "PixelConversion/TableShape.h"

namespace VyApi {
namespace PixelConversion {

namespace {

/// What an unpacked value becomes: itself in a 16-bit cell, or its table
/// entry in an 8-bit or 16-bit cell.
template <typename Y, bool UseTable>
struct SStore {
  const uint16_t* pTable;
  VY_KERNEL_INLINE void operator()(Y* p, uint32_t v) const {
    if (UseTable) {
      *p = static_cast<Y>(pTable[v]);
    } else {
      *p = static_cast<Y>(v);
    }
  }
};

/// One line of an n-bit stream. Whole groups (a whole number of bytes, at most
/// 7) are read with one 64-bit load while eight bytes remain in the line; the
/// rest of the line goes through the bit accumulator, which never reads a byte
/// beyond the line's stream.
template <int N, typename Y, bool UseTable>
VY_KERNEL_INLINE void unpackLine(const uint8_t* __restrict pSrc, Y* __restrict pDest, size_t nWidth,
                                 SStore<Y, UseTable> store) {
  // The smallest byte-aligned run of pixels, repeated as often as fits in 64 bits.
  constexpr int kBasePixels = (N % 8 == 0) ? 1 : (N % 4 == 0) ? 2 : (N % 2 == 0) ? 4 : 8;
  constexpr int kBaseBytes = kBasePixels * N / 8;
  constexpr int kPixels = kBasePixels * (8 / kBaseBytes);
  constexpr int kBytes = kPixels * N / 8;
  constexpr uint32_t kMask = (uint32_t(1) << N) - 1;
  const size_t nLineBytes = (nWidth * N + 7) / 8;
  const size_t nGroups = nLineBytes >= 8 ? (nLineBytes - 8) / kBytes + 1 : 0;
  const size_t nFastGroups = nGroups < nWidth / kPixels ? nGroups : nWidth / kPixels;
  size_t g = 0;
  if constexpr (N == 12 && !UseTable) {
    // The vector body stops on a multiple of 8 pixels, thus on a whole group.
    static_assert(8 % kPixels == 0, "the vector body must end on a group");
    g = SimdUnpack12pLine(pSrc, pDest, nWidth) / kPixels;
  }
  for (; g < nFastGroups; ++g) {
    uint64_t w;
    std::memcpy(&w, pSrc + g * kBytes, sizeof(w));
    for (int k = 0; k < kPixels; ++k) store(pDest + g * kPixels + k, uint32_t(w >> (k * N)) & kMask);
  }
  size_t x = g * kPixels;
  const uint8_t* p = pSrc + g * kBytes;
  uint32_t nAcc = 0;
  int nFill = 0;
  for (; x < nWidth; ++x) {
    while (nFill < N) {
      nAcc |= uint32_t(*p++) << nFill;
      nFill += 8;
    }
    store(pDest + x, nAcc & kMask);
    nAcc >>= N;
    nFill -= N;
  }
}

template <int N, typename Y, bool UseTable>
VY_KERNEL_INLINE void unpackImage(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                  size_t nWidth, size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  const SStore<Y, UseTable> store{pTable};
  for (size_t y = 0; y < nHeight; ++y, dest.Next())
    unpackLine<N, Y, UseTable>(SrcLine<uint8_t>(pSrc, nSrcLinePitch, y), dest.Line<Y>(), nWidth, store);
}

/// One line through a computed table (a shift or a stretch): the vector body
/// where there is one, then chunks of the line unpacked into 16-bit cells on
/// the stack by the plain (vectorised) reader and mapped. A chunk is a whole
/// number of bytes of the stream for every N.
template <int N, typename Y>
VY_KERNEL_INLINE void unpackLineTable(const uint8_t* __restrict pSrc, Y* __restrict pDest, size_t nWidth,
                                      const STableShape& shape) {
  constexpr size_t kChunk = 1024;
  uint16_t aBuf[kChunk];
  const SStore<uint16_t, false> plain{nullptr};
  size_t x0 = 0;  // a multiple of 8 pixels, thus of whole bytes
  if constexpr (N == 10 || N == 12) {
    if (shape.nShift >= 0) {
      x0 = SimdUnpackPackedShiftLine(pSrc, pDest, nWidth, N, unsigned(shape.nShift));
    } else if constexpr (sizeof(Y) == 2) {
      x0 = SimdUnpackPackedStretchLine(pSrc, pDest, nWidth, N, shape.stretch);
    }
  }
  for (size_t x = x0; x < nWidth; x += kChunk) {
    const size_t n = nWidth - x < kChunk ? nWidth - x : kChunk;
    unpackLine<N, uint16_t, false>(pSrc + x / 8 * N, aBuf, n, plain);
    ApplyTableShape(aBuf, pDest + x, n, shape);
  }
}

template <int N, typename Y>
VY_KERNEL_INLINE void unpackImageTable(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                       size_t nWidth, size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  const STableShape shape = STableShape::Of(pTable, N);
  if (!shape.IsComputed()) {
    // Entries to read: one load a sample either way, and the fused reader
    // does it without the round trip through the stack.
    unpackImage<N, Y, true>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, pTable, bReverseY);
    return;
  }
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next())
    unpackLineTable<N, Y>(SrcLine<uint8_t>(pSrc, nSrcLinePitch, y), dest.Line<Y>(), nWidth, shape);
}

template <int N>
VY_KERNEL_INLINE void unpackBits(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                 size_t nWidth, size_t nHeight, size_t nDestBits, const uint16_t* pTable,
                                 bool bReverseY) {
  if (nDestBits == size_t(N)) {
    unpackImage<N, uint16_t, false>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nullptr, bReverseY);
  } else if (nDestBits > 8 && nDestBits <= 16) {
    VY_ASSERT(pTable != nullptr);
    unpackImageTable<N, uint16_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, pTable, bReverseY);
  } else if (nDestBits == 8) {
    VY_ASSERT(pTable != nullptr);
    unpackImageTable<N, uint8_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, pTable, bReverseY);
  } else {
    VY_ASSERT(false);
  }
}

/// Writer of one line: values ORed in at the fill, full bytes out lowest
/// first, a rest as one more byte.
template <typename X>
VY_KERNEL_INLINE void packLine(const X* __restrict pSrc, uint8_t* __restrict pDest, size_t nWidth, unsigned nBits,
                               const uint16_t* pTable) {
  const uint32_t nMask = (uint32_t(1) << nBits) - 1;
  uint32_t nAcc = 0;
  unsigned nFill = 0;
  for (size_t x = 0; x < nWidth; ++x) {
    const uint32_t v = pTable != nullptr ? pTable[pSrc[x]] : uint32_t(pSrc[x]);
    nAcc |= (v & nMask) << nFill;
    nFill += nBits;
    while (nFill >= 8) {
      *pDest++ = static_cast<uint8_t>(nAcc);
      nAcc >>= 8;
      nFill -= 8;
    }
  }
  if (nFill > 0) *pDest = static_cast<uint8_t>(nAcc);
}

template <typename X>
VY_KERNEL_INLINE void packImage(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                size_t nWidth, size_t nHeight, size_t nSrcBits, size_t nDestBits,
                                const uint16_t* pTable, bool bReverseY) {
  VY_ASSERT(nDestBits >= 1 && nDestBits <= 16);
  VY_ASSERT(pTable != nullptr || nSrcBits == nDestBits);
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next())
    packLine<X>(SrcLine<X>(pSrc, nSrcLinePitch, y), dest.Line<uint8_t>(), nWidth, unsigned(nDestBits), pTable);
}

}  // namespace

VY_KERNEL_CLONES
void ConverterPackedToUnpacked(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                               size_t nWidth, size_t nHeight, size_t nSrcBits, size_t nDestBits,
                               const uint16_t* pTable, bool bReverseY) {
  switch (nSrcBits) {
    case 1: unpackBits<1>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nDestBits, pTable, bReverseY); break;
    case 2: unpackBits<2>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nDestBits, pTable, bReverseY); break;
    case 4: unpackBits<4>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nDestBits, pTable, bReverseY); break;
    case 10: unpackBits<10>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nDestBits, pTable, bReverseY); break;
    case 12: unpackBits<12>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nDestBits, pTable, bReverseY); break;
    case 14: unpackBits<14>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nDestBits, pTable, bReverseY); break;
    default: VY_ASSERT(false);
  }
}

void ConverterUnpackedToPacked8(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                size_t nWidth, size_t nHeight, size_t nSrcBits, size_t nDestBits,
                                const uint16_t* pTable, bool bReverseY) {
  packImage<uint8_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nSrcBits, nDestBits, pTable,
                     bReverseY);
}

void ConverterUnpackedToPackedW(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                size_t nWidth, size_t nHeight, size_t nSrcBits, size_t nDestBits,
                                const uint16_t* pTable, bool bReverseY) {
  packImage<uint16_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, nSrcBits, nDestBits, pTable,
                      bReverseY);
}

}  // namespace PixelConversion
}  // namespace VyApi
