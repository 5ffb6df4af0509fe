#include "Kernels/LookUpTableKernel.h"

#include <immintrin.h>

namespace VyApi {
namespace Kernels {

namespace {

void MapBytesScalar(uint8_t* p, size_t n, const uint8_t* t) {
  size_t i = 0;
  for (; i + 4 <= n; i += 4) {
    const uint8_t a = t[p[i]], b = t[p[i + 1]], c = t[p[i + 2]], d = t[p[i + 3]];
    p[i] = a;
    p[i + 1] = b;
    p[i + 2] = c;
    p[i + 3] = d;
  }
  for (; i < n; ++i) p[i] = t[p[i]];
}

// The vector paths are compiled for their instruction sets only, through
// GCC's target attribute, so that the rest of the library keeps the baseline
// ISA; which one runs is decided once from the processor's features.

// 256-entry byte table in four 64-byte registers: two two-source byte
// permutes cover indices 0..127 and 128..255, the index's top bit chooses.
__attribute__((target("avx512f,avx512bw,avx512vbmi,bmi2"))) void MapBytesVbmi(uint8_t* p, size_t n, const uint8_t* t) {
  const __m512i t0 = _mm512_loadu_si512(t);
  const __m512i t1 = _mm512_loadu_si512(t + 64);
  const __m512i t2 = _mm512_loadu_si512(t + 128);
  const __m512i t3 = _mm512_loadu_si512(t + 192);
  size_t i = 0;
  for (; i + 64 <= n; i += 64) {
    const __m512i x = _mm512_loadu_si512(p + i);
    const __m512i lo = _mm512_permutex2var_epi8(t0, x, t1);
    const __m512i hi = _mm512_permutex2var_epi8(t2, x, t3);
    _mm512_storeu_si512(p + i, _mm512_mask_blend_epi8(_mm512_movepi8_mask(x), lo, hi));
  }
  if (i < n) {
    const __mmask64 m = _bzhi_u64(~0ULL, static_cast<unsigned>(n - i));
    const __m512i x = _mm512_maskz_loadu_epi8(m, p + i);
    const __m512i lo = _mm512_permutex2var_epi8(t0, x, t1);
    const __m512i hi = _mm512_permutex2var_epi8(t2, x, t3);
    _mm512_mask_storeu_epi8(p + i, m, _mm512_mask_blend_epi8(_mm512_movepi8_mask(x), lo, hi));
  }
}

// Sixteen 16-entry shuffles, one per high nibble, merged by comparison.
__attribute__((target("avx2"))) void MapBytesAvx2(uint8_t* p, size_t n, const uint8_t* t) {
  __m256i tables[16];
  for (int k = 0; k < 16; ++k)
    tables[k] = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(t + 16 * k)));
  const __m256i low = _mm256_set1_epi8(0x0F);
  size_t i = 0;
  for (; i + 32 <= n; i += 32) {
    const __m256i x = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p + i));
    const __m256i idx = _mm256_and_si256(x, low);
    const __m256i hi = _mm256_and_si256(_mm256_srli_epi16(x, 4), low);
    __m256i r = _mm256_setzero_si256();
    for (int k = 0; k < 16; ++k) {
      const __m256i sel = _mm256_cmpeq_epi8(hi, _mm256_set1_epi8(static_cast<char>(k)));
      r = _mm256_or_si256(r, _mm256_and_si256(sel, _mm256_shuffle_epi8(tables[k], idx)));
    }
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(p + i), r);
  }
  MapBytesScalar(p + i, n - i, t);
}

using PfnMapBytes = void (*)(uint8_t*, size_t, const uint8_t*);

PfnMapBytes SelectMapBytes() {
  __builtin_cpu_init();
  if (__builtin_cpu_supports("avx512vbmi") && __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("bmi2"))
    return MapBytesVbmi;
  if (__builtin_cpu_supports("avx2")) return MapBytesAvx2;
  return MapBytesScalar;
}

const PfnMapBytes g_pfnMapBytes = SelectMapBytes();

}  // namespace

void MapBytes(uint8_t* p, size_t n, const uint8_t* pTable256) { g_pfnMapBytes(p, n, pTable256); }

bool MapBytesPathSupported(int nPath) {
  __builtin_cpu_init();
  switch (nPath) {
    case 0: return true;
    case 1: return __builtin_cpu_supports("avx2");
    case 2:
      return __builtin_cpu_supports("avx512vbmi") && __builtin_cpu_supports("avx512bw") &&
             __builtin_cpu_supports("bmi2");
    default: return false;
  }
}

void MapBytesOnPath(uint8_t* p, size_t n, const uint8_t* pTable256, int nPath) {
  switch (nPath) {
    case 1: MapBytesAvx2(p, n, pTable256); break;
    case 2: MapBytesVbmi(p, n, pTable256); break;
    default: MapBytesScalar(p, n, pTable256); break;
  }
}

}  // namespace Kernels
}  // namespace VyApi
