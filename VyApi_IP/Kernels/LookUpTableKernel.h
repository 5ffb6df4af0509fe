// Look-up table passes over image lines, in place.
//
// What a caller passes: the address of pixel (0, 0), the line pitch in bytes,
// the height, and per line the number of pixel groups; a group is Stride cells
// of which the first Count pass through the table and the rest (alpha, chroma)
// stay. Cells are 8 bit (ApplyTable8: byte p becomes the low byte of
// table[p]) or 16 bit (ApplyTable16: cell c becomes table[c], unmasked: the
// table must cover every value the image holds).
#ifndef VYAPI_IP_KERNELS_LOOKUPTABLEKERNEL_H
#define VYAPI_IP_KERNELS_LOOKUPTABLEKERNEL_H

#include <cstddef>
#include <cstdint>

namespace VyApi {
namespace Kernels {

/// Maps n contiguous bytes through a 256-entry byte table, in place. The
/// fastest implementation the processor offers is chosen once.
void MapBytes(uint8_t* p, size_t n, const uint8_t* pTable256);

/// The implementations of MapBytes, for tests that compare them:
/// 0 scalar, 1 AVX2, 2 AVX-512 VBMI. Only supported paths may be run.
bool MapBytesPathSupported(int nPath);
void MapBytesOnPath(uint8_t* p, size_t n, const uint8_t* pTable256, int nPath);

/// Every line: groups of Stride bytes, the first Count through the table.
template <size_t Stride, size_t Count>
void ApplyTable8(uint8_t* pImage, size_t nPitch, size_t nHeight, size_t nGroups, const uint16_t* pTable) {
  static_assert(Count >= 1 && Count <= Stride, "a group passes 1 to Stride cells");
  uint8_t table8[256];
  for (int i = 0; i < 256; ++i) table8[i] = static_cast<uint8_t>(pTable[i]);
  for (size_t y = 0; y < nHeight; ++y) {
    uint8_t* p = pImage + y * nPitch;
    if (Stride == Count) {
      MapBytes(p, nGroups * Stride, table8);
    } else {
      for (size_t g = 0; g < nGroups; ++g, p += Stride)
        for (size_t k = 0; k < Count; ++k) p[k] = table8[p[k]];
    }
  }
}

/// Every line: groups of Stride 16-bit cells, the first Count through the table.
template <size_t Stride, size_t Count>
void ApplyTable16(uint8_t* pImage, size_t nPitch, size_t nHeight, size_t nGroups, const uint16_t* pTable) {
  static_assert(Count >= 1 && Count <= Stride, "a group passes 1 to Stride cells");
  for (size_t y = 0; y < nHeight; ++y) {
    uint16_t* p = reinterpret_cast<uint16_t*>(pImage + y * nPitch);
    const size_t n = nGroups * Stride;
    for (size_t i = 0; i < n; i += Stride)
      for (size_t k = 0; k < Count; ++k) p[i + k] = pTable[p[i + k]];
  }
}

}  // namespace Kernels
}  // namespace VyApi

#endif
