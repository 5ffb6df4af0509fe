#include "ColorInterpolation/BayerLineSimd.h"

#include <initializer_list>

#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
#include <immintrin.h>
#define VY_BAYER_SIMD_X86 1
// The bodies below are built for AVX2 or AVX-512BW whatever the base target
// of the build (GCC/Clang target attribute); they are only entered after the
// run-time check in Pick().
#define VY_TARGET_AVX2 __attribute__((target("avx2")))
#define VY_TARGET_AVX512 __attribute__((target("avx512f,avx512bw")))
#endif

namespace VyApi {
namespace {

#if defined(VY_BAYER_SIMD_X86)

VY_TARGET_AVX2 inline __m256i Load256(const uint8_t* p) { return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)); }
VY_TARGET_AVX2 inline __m256i Widen256(const uint8_t* p) {
  return _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(p)));
}
VY_TARGET_AVX512 inline __m512i Widen512(const uint8_t* p) {
  return _mm512_cvtepu8_epi16(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(p)));
}

// The four-tap kernel on 16-bit lanes: p = (s >> 3) + (s >> 1) with
// s = a + b, t = (e + f) >> 3, result p - t limited to 0 and nMax. With 8-bit
// samples p is at most 318 and t at most 63, so the difference never wraps,
// and "p <= t gives 0" is the lower limit of max(p - t, 0).
VY_TARGET_AVX512 inline __m512i Kernel512(__m512i a, __m512i b, __m512i e, __m512i f, __m512i vMax) {
  const __m512i s = _mm512_add_epi16(a, b);
  const __m512i t = _mm512_srli_epi16(_mm512_add_epi16(e, f), 3);
  const __m512i p = _mm512_add_epi16(_mm512_srli_epi16(s, 3), _mm512_srli_epi16(s, 1));
  return _mm512_min_epi16(_mm512_max_epi16(_mm512_sub_epi16(p, t), _mm512_setzero_si512()), vMax);
}

VY_TARGET_AVX2 inline __m256i Kernel256(__m256i a, __m256i b, __m256i e, __m256i f, __m256i vMax) {
  const __m256i s = _mm256_add_epi16(a, b);
  const __m256i t = _mm256_srli_epi16(_mm256_add_epi16(e, f), 3);
  const __m256i p = _mm256_add_epi16(_mm256_srli_epi16(s, 3), _mm256_srli_epi16(s, 1));
  return _mm256_min_epi16(_mm256_max_epi16(_mm256_sub_epi16(p, t), _mm256_setzero_si256()), vMax);
}

// Pairs: a 16-bit load at c = 2k + q holds the site sample s[c] in its low
// byte, so loads at c - 2, c + 2 and c + 4 give the kernel's four inputs of
// one pair per lane, and the result goes back as (kernel << 8) | s[c].
VY_TARGET_AVX512 size_t Pairs512(const uint8_t* s, uint8_t* pOut, size_t w, unsigned q, size_t k, size_t kEnd,
                                 int16_t nMax) {
  const __m512i lowByte = _mm512_set1_epi16(0xFF);
  const __m512i vMax = _mm512_set1_epi16(nMax);
  // 32 pairs read bytes c - 2 .. c + 67.
  for (; k + 32 <= kEnd && 2 * k + q + 67 < w; k += 32) {
    const uint8_t* p = s + 2 * k + q;
    const __m512i a = _mm512_and_si512(_mm512_loadu_si512(p), lowByte);
    const __m512i b = _mm512_and_si512(_mm512_loadu_si512(p + 2), lowByte);
    const __m512i e = _mm512_and_si512(_mm512_loadu_si512(p - 2), lowByte);
    const __m512i f = _mm512_and_si512(_mm512_loadu_si512(p + 4), lowByte);
    const __m512i r = Kernel512(a, b, e, f, vMax);
    _mm512_storeu_si512(pOut + 2 * k + q, _mm512_or_si512(a, _mm512_slli_epi16(r, 8)));
  }
  return k;
}

VY_TARGET_AVX2 size_t Pairs256(const uint8_t* s, uint8_t* pOut, size_t w, unsigned q, size_t k, size_t kEnd,
                               int16_t nMax) {
  const __m256i lowByte = _mm256_set1_epi16(0xFF);
  const __m256i vMax = _mm256_set1_epi16(nMax);
  // 16 pairs read bytes c - 2 .. c + 35.
  for (; k + 16 <= kEnd && 2 * k + q + 35 < w; k += 16) {
    const uint8_t* p = s + 2 * k + q;
    const __m256i a = _mm256_and_si256(Load256(p), lowByte);
    const __m256i b = _mm256_and_si256(Load256(p + 2), lowByte);
    const __m256i e = _mm256_and_si256(Load256(p - 2), lowByte);
    const __m256i f = _mm256_and_si256(Load256(p + 4), lowByte);
    const __m256i r = Kernel256(a, b, e, f, vMax);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(pOut + 2 * k + q), _mm256_or_si256(a, _mm256_slli_epi16(r, 8)));
  }
  return k;
}

VY_TARGET_AVX512 size_t Column512(const uint8_t* pa, const uint8_t* pb, const uint8_t* pe, const uint8_t* pf,
                                  uint8_t* pOut, size_t n, int16_t nMax) {
  const __m512i vMax = _mm512_set1_epi16(nMax);
  size_t c = 0;
  for (; c + 32 <= n; c += 32) {
    const __m512i r = Kernel512(Widen512(pa + c), Widen512(pb + c), Widen512(pe + c), Widen512(pf + c), vMax);
    // Truncation to the low byte, as the scalar cast does (the all-ones
    // mask form, because GCC 12 warns on the unmasked one's undefined source).
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(pOut + c), _mm512_maskz_cvtepi16_epi8(~__mmask32(0), r));
  }
  return c;
}

VY_TARGET_AVX2 size_t Column256(const uint8_t* pa, const uint8_t* pb, const uint8_t* pe, const uint8_t* pf,
                                uint8_t* pOut, size_t n, int16_t nMax) {
  const __m256i vMax = _mm256_set1_epi16(nMax);
  const __m256i lowByte = _mm256_set1_epi16(0xFF);
  size_t c = 0;
  for (; c + 32 <= n; c += 32) {
    const __m256i lo = Kernel256(Widen256(pa + c), Widen256(pb + c), Widen256(pe + c), Widen256(pf + c), vMax);
    const __m256i hi =
        Kernel256(Widen256(pa + c + 16), Widen256(pb + c + 16), Widen256(pe + c + 16), Widen256(pf + c + 16), vMax);
    // Low bytes only (the scalar cast truncates), then back into sample order.
    const __m256i packed = _mm256_packus_epi16(_mm256_and_si256(lo, lowByte), _mm256_and_si256(hi, lowByte));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(pOut + c), _mm256_permute4x64_epi64(packed, 0xD8));
  }
  return c;
}

#endif

size_t PairsNone(const uint8_t*, uint8_t*, size_t, unsigned, size_t k, size_t, int16_t) { return k; }
size_t ColumnNone(const uint8_t*, const uint8_t*, const uint8_t*, const uint8_t*, uint8_t*, size_t, int16_t) {
  return 0;
}

bool Supports(unsigned nBits) {
#if defined(VY_BAYER_SIMD_X86)
  __builtin_cpu_init();
  if (nBits == 512) return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw");
  if (nBits == 256) return __builtin_cpu_supports("avx2");
#endif
  return nBits == 0;
}

const CBayerLineSimd::SPath s_none = {&PairsNone, &ColumnNone};
#if defined(VY_BAYER_SIMD_X86)
const CBayerLineSimd::SPath s_avx2 = {&Pairs256, &Column256};
const CBayerLineSimd::SPath s_avx512 = {&Pairs512, &Column512};
#endif

unsigned PickBits() {
  for (unsigned nBits : {512u, 256u})
    if (Supports(nBits)) return nBits;
  return 0;
}

unsigned ChosenBits() {
  static const unsigned s_nBits = PickBits();
  return s_nBits;
}

const CBayerLineSimd::SPath& Chosen() {
  static const CBayerLineSimd::SPath& s_path = *CBayerLineSimd::Path(ChosenBits());
  return s_path;
}

}  // namespace

const CBayerLineSimd::SPath* CBayerLineSimd::Path(unsigned nVectorBits) {
  if (!Supports(nVectorBits)) return nullptr;
#if defined(VY_BAYER_SIMD_X86)
  if (nVectorBits == 512) return &s_avx512;
  if (nVectorBits == 256) return &s_avx2;
#endif
  return &s_none;
}

size_t CBayerLineSimd::BiCubicPairs8(const uint8_t* s, uint8_t* pOut, size_t w, unsigned q, size_t kBegin,
                                     size_t kEnd, int16_t nMax) {
  return Chosen().pfPairs(s, pOut, w, q, kBegin, kEnd, nMax);
}

size_t CBayerLineSimd::BiCubicColumn8(const uint8_t* pa, const uint8_t* pb, const uint8_t* pe, const uint8_t* pf,
                                      uint8_t* pOut, size_t n, int16_t nMax) {
  return Chosen().pfColumn(pa, pb, pe, pf, pOut, n, nMax);
}

unsigned CBayerLineSimd::VectorBits() { return ChosenBits(); }

}  // namespace VyApi
