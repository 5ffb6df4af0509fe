// Pixel movers of the reverse converter. A pixel is PixelBytes wide; its first
// MovedBytes are moved and the rest (an alpha cell) is left as the destination
// held it. Pixel values never change, so the movers are plain byte moves and
// need to know nothing about depth or colour: one instantiation per pixel
// width serves all formats of that width.
//
// Destinations are addressed by a base pointer and signed steps, so that a
// flip is a negative step and one template serves the moves of its family
// without any per-pixel branch.
#ifndef VYAPI_IP_KERNELS_REVERSEKERNEL_H
#define VYAPI_IP_KERNELS_REVERSEKERNEL_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "Kernels/ReverseLines.h"

// SSE2 is part of every x86-64 processor; the macro is the compilers' common
// way of saying it is there. Other targets take the scalar loops.
#if defined(__SSE2__)
#include <emmintrin.h>
#define VY_REVERSE_SSE2 1
#endif

namespace VyApi {
namespace Kernels {

/// Source line y is written reversed into the line at pDst + y * nDstLineStep;
/// a negative step walks the destination upwards (flip in both directions).
template <size_t PixelBytes, size_t MovedBytes = PixelBytes>
void ReverseLinesX(const uint8_t* pSrc, size_t nSrcPitch, size_t nWidth, size_t nHeight, uint8_t* pDst,
                   ptrdiff_t nDstLineStep) {
  static_assert(MovedBytes <= PixelBytes, "a pixel moves at most its own bytes");
  if (nWidth == 0) return;
  constexpr bool c_bVector = PixelBytes == 4 && (MovedBytes == 4 || MovedBytes == 3);
  for (size_t y = 0; y < nHeight; ++y) {
    const uint8_t* s = pSrc + y * nSrcPitch;
    if constexpr (c_bVector) {
      if (SimdReverseLine<PixelBytes, MovedBytes>(s, pDst + static_cast<ptrdiff_t>(y) * nDstLineStep, nWidth)) continue;
    }
    uint8_t* d = pDst + static_cast<ptrdiff_t>(y) * nDstLineStep + (nWidth - 1) * PixelBytes;
    for (size_t x = 0; x < nWidth; ++x) {
      std::memcpy(d, s, MovedBytes);
      s += PixelBytes;
      d -= PixelBytes;
    }
  }
}

#if defined(VY_REVERSE_SSE2)
namespace detail {

// Reverses the order of the 8-bit or 16-bit cells of a 16-byte register.
template <size_t CellBytes>
inline __m128i ReverseCells(__m128i v) {
  v = _mm_shuffle_epi32(v, _MM_SHUFFLE(0, 1, 2, 3));
  v = _mm_shufflelo_epi16(v, _MM_SHUFFLE(2, 3, 0, 1));
  v = _mm_shufflehi_epi16(v, _MM_SHUFFLE(2, 3, 0, 1));
  if (CellBytes == 1) v = _mm_or_si128(_mm_slli_epi16(v, 8), _mm_srli_epi16(v, 8));
  return v;
}

// One line of 1- or 2-byte pixels, 16 bytes at a time, with the scalar rule
// for the rest; the same bytes land where the generic loop puts them.
template <size_t CellBytes>
inline void ReverseLineCells(const uint8_t* s, uint8_t* d, size_t nWidth) {
  constexpr size_t c_nPerBlock = 16 / CellBytes;
  size_t x = 0;
  for (; x + c_nPerBlock <= nWidth; x += c_nPerBlock) {
    const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + x * CellBytes));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(d + (nWidth - x - c_nPerBlock) * CellBytes), ReverseCells<CellBytes>(v));
  }
  for (; x < nWidth; ++x) std::memcpy(d + (nWidth - 1 - x) * CellBytes, s + x * CellBytes, CellBytes);
}

}  // namespace detail

template <>
inline void ReverseLinesX<1, 1>(const uint8_t* pSrc, size_t nSrcPitch, size_t nWidth, size_t nHeight, uint8_t* pDst,
                                ptrdiff_t nDstLineStep) {
  for (size_t y = 0; y < nHeight; ++y) {
    const uint8_t* s = pSrc + y * nSrcPitch;
    uint8_t* d = pDst + static_cast<ptrdiff_t>(y) * nDstLineStep;
    if (!SimdReverseLine<1, 1>(s, d, nWidth)) detail::ReverseLineCells<1>(s, d, nWidth);
  }
}

template <>
inline void ReverseLinesX<2, 2>(const uint8_t* pSrc, size_t nSrcPitch, size_t nWidth, size_t nHeight, uint8_t* pDst,
                                ptrdiff_t nDstLineStep) {
  for (size_t y = 0; y < nHeight; ++y) {
    const uint8_t* s = pSrc + y * nSrcPitch;
    uint8_t* d = pDst + static_cast<ptrdiff_t>(y) * nDstLineStep;
    if (!SimdReverseLine<2, 2>(s, d, nWidth)) detail::ReverseLineCells<2>(s, d, nWidth);
  }
}
#endif

/// Source pixel (x, y) goes to pDst + x * nDstStepX + y * nDstStepY, where
/// nDstStepX is a destination line pitch and nDstStepY a pixel width, either of
/// them negative: the four quarter-turn moves (turns, transposition,
/// anti-transposition). A source column becomes a destination line, so the
/// image is walked in square tiles, each destination line of a tile written
/// contiguously while the few source lines it reads down stay in cache.
/// Contiguous stores matter most here: scattering them over lines is many
/// times slower than scattering the loads.
template <size_t PixelBytes, size_t MovedBytes = PixelBytes, size_t Tile = (PixelBytes <= 2 ? 64 : 32)>
void TurnQuarter(const uint8_t* pSrc, size_t nSrcPitch, size_t nWidth, size_t nHeight, uint8_t* pDst,
                 ptrdiff_t nDstStepX, ptrdiff_t nDstStepY) {
  static_assert(MovedBytes <= PixelBytes, "a pixel moves at most its own bytes");
  // Each destination line is written forwards: when the move reverses it, the
  // source column is read upwards instead.
  const bool bUp = nDstStepY < 0;
  const ptrdiff_t nSrcStep = bUp ? -static_cast<ptrdiff_t>(nSrcPitch) : static_cast<ptrdiff_t>(nSrcPitch);
  const ptrdiff_t nDstStep = bUp ? -nDstStepY : nDstStepY;
  for (size_t y0 = 0; y0 < nHeight; y0 += Tile) {
    const size_t y1 = std::min(nHeight, y0 + Tile);
    const size_t yFirst = bUp ? y1 - 1 : y0;
    for (size_t x0 = 0; x0 < nWidth; x0 += Tile) {
      const size_t x1 = std::min(nWidth, x0 + Tile);
      for (size_t x = x0; x < x1; ++x) {
        const uint8_t* s = pSrc + yFirst * nSrcPitch + x * PixelBytes;
        uint8_t* d = pDst + static_cast<ptrdiff_t>(x) * nDstStepX + static_cast<ptrdiff_t>(yFirst) * nDstStepY;
        for (size_t n = y1 - y0; n != 0; --n) {
          std::memcpy(d, s, MovedBytes);
          s += nSrcStep;
          d += nDstStep;
        }
      }
    }
  }
}

/// Source line y goes whole to the line at pDst + (nHeight - 1 - y) * nDstPitch.
/// Each line carries nLineBytes (its padding and alpha included); the last
/// source line carries at most nLastLineBytes, so that a view into a larger
/// image is never read beyond its own last pixel.
inline void ReverseLinesY(const uint8_t* pSrc, size_t nSrcPitch, size_t nHeight, uint8_t* pDst, size_t nDstPitch,
                          size_t nLineBytes, size_t nLastLineBytes) {
  for (size_t y = 0; y < nHeight; ++y) {
    const size_t n = y + 1 == nHeight ? std::min(nLineBytes, nLastLineBytes) : nLineBytes;
    std::memcpy(pDst + (nHeight - 1 - y) * nDstPitch, pSrc + y * nSrcPitch, n);
  }
}

}  // namespace Kernels
}  // namespace VyApi

#endif
