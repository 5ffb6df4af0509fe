#include "Kernels/ReverseLines.h"

#include "PixelConversion/SimdLineKernels.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define VY_HAVE_X86_SIMD 1
// Built for AVX-512 whatever the base target; entered only after the run-time check.
#define VY_TARGET_VBMI __attribute__((target("avx512f,avx512bw,avx512vbmi")))
#endif

namespace VyApi {
namespace Kernels {

#if defined(VY_HAVE_X86_SIMD)
namespace {

// Lane i of a step takes lane (nLast - i) of the load, lanes counted in
// pixels; a full step has nLast = lanes - 1, the tail nLast = its count - 1.
// The permutes in their mask form: GCC 12 warns on the unmasked ones.
template <size_t PixelBytes>
VY_TARGET_VBMI inline __m512i Reverse(__m512i v, int nLast) {
  constexpr int c_nLanes = int(64 / PixelBytes);
  if constexpr (PixelBytes == 1) {
    const __m512i idx = _mm512_sub_epi8(_mm512_set1_epi8(char(nLast)),
                                        _mm512_set_epi8(63, 62, 61, 60, 59, 58, 57, 56, 55, 54, 53, 52, 51, 50, 49,
                                                        48, 47, 46, 45, 44, 43, 42, 41, 40, 39, 38, 37, 36, 35, 34,
                                                        33, 32, 31, 30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19,
                                                        18, 17, 16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2,
                                                        1, 0));
    return _mm512_maskz_permutexvar_epi8(~__mmask64(0), _mm512_and_si512(idx, _mm512_set1_epi8(c_nLanes - 1)), v);
  } else if constexpr (PixelBytes == 2) {
    const __m512i idx = _mm512_sub_epi16(_mm512_set1_epi16(short(nLast)),
                                         _mm512_set_epi16(31, 30, 29, 28, 27, 26, 25, 24, 23, 22, 21, 20, 19, 18, 17,
                                                          16, 15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0));
    return _mm512_maskz_permutexvar_epi16(~__mmask32(0), _mm512_and_si512(idx, _mm512_set1_epi16(c_nLanes - 1)), v);
  } else {
    const __m512i idx = _mm512_sub_epi32(_mm512_set1_epi32(nLast),
                                         _mm512_set_epi32(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0));
    return _mm512_maskz_permutexvar_epi32(~__mmask16(0), _mm512_and_si512(idx, _mm512_set1_epi32(c_nLanes - 1)), v);
  }
}

inline __mmask64 FirstBytes(size_t n) { return n >= 64 ? ~__mmask64(0) : (__mmask64(1) << n) - 1; }

template <size_t PixelBytes, size_t MovedBytes>
constexpr uint64_t MovedMask() {
  uint64_t m = 0;
  for (size_t i = 0; i < 64; ++i)
    if (i % PixelBytes < MovedBytes) m |= uint64_t(1) << i;
  return m;
}

// Source pixels a .. a + n - 1 (n at most one step) to destination pixels
// nWidth - a - n .. nWidth - a - 1, reversed.
template <size_t PixelBytes, size_t MovedBytes>
VY_TARGET_VBMI inline void ReversePart(const uint8_t* pSrc, uint8_t* pDst, size_t nWidth, size_t a, size_t n) {
  constexpr __mmask64 c_nMoved = __mmask64(MovedMask<PixelBytes, MovedBytes>());
  const __m512i v = _mm512_maskz_loadu_epi8(FirstBytes(n * PixelBytes), pSrc + a * PixelBytes);
  _mm512_mask_storeu_epi8(pDst + (nWidth - a - n) * PixelBytes, c_nMoved & FirstBytes(n * PixelBytes),
                          Reverse<PixelBytes>(v, int(n) - 1));
}

template <size_t PixelBytes, size_t MovedBytes>
VY_TARGET_VBMI void ReverseVbmi(const uint8_t* pSrc, uint8_t* pDst, size_t nWidth) {
  constexpr size_t c_nLanes = 64 / PixelBytes;
  constexpr __mmask64 c_nMoved = __mmask64(MovedMask<PixelBytes, MovedBytes>());
  // A store that spans two cache lines costs about twice one that does not:
  // a first part step makes the full steps' stores aligned, whenever the
  // destination's end is a whole number of pixels from a 64-byte boundary.
  const size_t nEnd = reinterpret_cast<uintptr_t>(pDst + nWidth * PixelBytes) % 64;
  size_t x = nEnd % PixelBytes == 0 ? nEnd / PixelBytes : 0;
  if (x > nWidth) x = nWidth;
  if (x != 0) ReversePart<PixelBytes, MovedBytes>(pSrc, pDst, nWidth, 0, x);
  for (; x + c_nLanes <= nWidth; x += c_nLanes) {
    const __m512i v = _mm512_loadu_si512(pSrc + x * PixelBytes);
    _mm512_mask_storeu_epi8(pDst + (nWidth - x - c_nLanes) * PixelBytes, c_nMoved,
                            Reverse<PixelBytes>(v, int(c_nLanes) - 1));
  }
  if (x < nWidth) ReversePart<PixelBytes, MovedBytes>(pSrc, pDst, nWidth, x, nWidth - x);
}

}  // namespace

template <size_t PixelBytes, size_t MovedBytes>
bool SimdReverseLine(const uint8_t* pSrc, uint8_t* pDst, size_t nWidth) {
  if (!PixelConversion::UseSimdVbmi()) return false;
  ReverseVbmi<PixelBytes, MovedBytes>(pSrc, pDst, nWidth);
  return true;
}

#else

template <size_t PixelBytes, size_t MovedBytes>
bool SimdReverseLine(const uint8_t*, uint8_t*, size_t) {
  return false;
}

#endif

template bool SimdReverseLine<1, 1>(const uint8_t*, uint8_t*, size_t);
template bool SimdReverseLine<2, 2>(const uint8_t*, uint8_t*, size_t);
template bool SimdReverseLine<4, 4>(const uint8_t*, uint8_t*, size_t);
template bool SimdReverseLine<4, 3>(const uint8_t*, uint8_t*, size_t);

}  // namespace Kernels
}  // namespace VyApi
