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

namespace VyApi {
namespace Kernels {

/// Source line y is written reversed into the line at pDst + y * nDstLineStep;
/// a negative step walks the destination upwards (flip in both directions).
template <size_t PixelBytes, size_t MovedBytes = PixelBytes>
void ReverseLinesX(const uint8_t* pSrc, size_t nSrcPitch, size_t nWidth, size_t nHeight, uint8_t* pDst,
                   ptrdiff_t nDstLineStep) {
  static_assert(MovedBytes <= PixelBytes, "a pixel moves at most its own bytes");
  if (nWidth == 0) return;
  for (size_t y = 0; y < nHeight; ++y) {
    const uint8_t* s = pSrc + y * nSrcPitch;
    uint8_t* d = pDst + static_cast<ptrdiff_t>(y) * nDstLineStep + (nWidth - 1) * PixelBytes;
    for (size_t x = 0; x < nWidth; ++x) {
      std::memcpy(d, s, MovedBytes);
      s += PixelBytes;
      d -= PixelBytes;
    }
  }
}

/// Source pixel (x, y) goes to pDst + x * nDstStepX + y * nDstStepY, where one
/// step is a destination line pitch and the other a pixel width, either of them
/// negative: the four quarter-turn moves (turns, transposition,
/// anti-transposition). The image is walked in square tiles so that the lines
/// written with a stride of one pitch stay in cache while a tile is done.
template <size_t PixelBytes, size_t MovedBytes = PixelBytes>
void TurnQuarter(const uint8_t* pSrc, size_t nSrcPitch, size_t nWidth, size_t nHeight, uint8_t* pDst,
                 ptrdiff_t nDstStepX, ptrdiff_t nDstStepY) {
  static_assert(MovedBytes <= PixelBytes, "a pixel moves at most its own bytes");
  // About 64 bytes of source line per tile row: one cache line.
  constexpr size_t c_nTile = PixelBytes >= 8 ? 8 : 64 / PixelBytes;
  for (size_t y0 = 0; y0 < nHeight; y0 += c_nTile) {
    const size_t y1 = std::min(nHeight, y0 + c_nTile);
    for (size_t x0 = 0; x0 < nWidth; x0 += c_nTile) {
      const size_t x1 = std::min(nWidth, x0 + c_nTile);
      for (size_t y = y0; y < y1; ++y) {
        const uint8_t* s = pSrc + y * nSrcPitch + x0 * PixelBytes;
        uint8_t* d = pDst + static_cast<ptrdiff_t>(x0) * nDstStepX + static_cast<ptrdiff_t>(y) * nDstStepY;
        for (size_t x = x0; x < x1; ++x) {
          std::memcpy(d, s, MovedBytes);
          s += PixelBytes;
          d += nDstStepX;
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
