// AVX-512 line reversal for the reverse converter's mirrors: one 64-byte
// permute per step, masked loads and stores for the line's tail and for the
// alpha cell, which keeps the destination's value. Pixels of 1, 2 and 4
// bytes (three of four moved for the alpha formats).
#ifndef VYAPI_IP_KERNELS_REVERSELINES_H
#define VYAPI_IP_KERNELS_REVERSELINES_H

#include <cstddef>
#include <cstdint>

namespace VyApi {
namespace Kernels {

/// Writes the nWidth pixels at pSrc in reverse order to pDst (the first
/// destination pixel takes the last source pixel) and returns true, or
/// returns false without writing when the processor (or the test cap) has no
/// AVX-512 form; the caller then moves the line itself. PixelBytes is 1, 2 or
/// 4; MovedBytes is PixelBytes, or 3 with PixelBytes 4. Raises nothing.
template <size_t PixelBytes, size_t MovedBytes>
bool SimdReverseLine(const uint8_t* pSrc, uint8_t* pDst, size_t nWidth);

}  // namespace Kernels
}  // namespace VyApi

#endif
