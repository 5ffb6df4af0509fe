#include "ColorInterpolation/YCbCrReadSimd.h"

#include <atomic>

#include "ColorInterpolation/YCbCrLayout.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define VY_HAVE_X86_SIMD 1
// Built for AVX-512 whatever the base target; entered only after the run-time check.
#define VY_TARGET_VBMI __attribute__((target("avx512f,avx512bw,avx512vbmi")))
#endif

namespace VyApi {
namespace {

std::atomic<bool> g_bEnabled{true};

#if defined(VY_HAVE_X86_SIMD)

bool HasVbmi() {
  static const bool bHas = [] {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
           __builtin_cpu_supports("avx512vbmi");
  }();
  return bHas;
}

bool Use() { return g_bEnabled.load(std::memory_order_relaxed) && HasVbmi(); }

// A step takes G groups: at most 64 bytes, at most 16 groups (one 32-bit
// lane each for the chroma sums) and at most 32 pixels (two registers of
// 32-bit pixels).
template <class L>
struct TStep {
  static constexpr int P = L::nPixels;
  static constexpr int B = L::nGroupBytes;
  static constexpr int G = P == 4 ? 8 : 16;
  static constexpr int nPixels = G * P;       // 16 or 32
  static constexpr int nHalves = nPixels / 16;  // registers of pixels
  static_assert(G * B <= 64, "a step is one 64-byte load");

  // Byte permutes that put a byte of each group, or each pixel's luma byte,
  // at the bottom of a 32-bit lane (the other lanes' bytes are masked off).
  alignas(64) uint8_t cb[2][64] = {};  // groups 0..7 and 8..15, one per 64-bit lane
  alignas(64) uint8_t cr[2][64] = {};
  alignas(64) uint8_t y[2][64] = {};
  // 32-bit lane permutes that give each pixel its group's chroma sum.
  alignas(64) int32_t group[2][16] = {};
  constexpr TStep() {
    for (int g = 0; g < G; ++g) {
      cb[g / 8][8 * (g % 8)] = uint8_t(B * g + L::nCb);
      cr[g / 8][8 * (g % 8)] = uint8_t(B * g + L::nCr);
    }
    for (int h = 0; h < nHalves; ++h)
      for (int i = 0; i < 16; ++i) {
        const int p = 16 * h + i;
        y[h][4 * i] = uint8_t(B * (p / P) + L::Y(p % P));
        group[h][i] = p / P;
      }
  }
};

constexpr __mmask16 c_nAll = __mmask16(0xFFFF);
constexpr __mmask64 c_nLaneLowBytes = __mmask64(0x1111111111111111ull);
constexpr __mmask64 c_nQwordLowBytes = __mmask64(0x0101010101010101ull);

inline __mmask64 FirstBytes(size_t n) { return n >= 64 ? ~__mmask64(0) : (__mmask64(1) << n) - 1; }

// The byte permutes and the gathers in their mask form throughout: GCC 12
// warns on the unmasked ones.
VY_TARGET_VBMI inline __m512i Bytes32(const uint8_t* pIdx, __m512i v) {
  return _mm512_maskz_permutexvar_epi8(c_nLaneLowBytes, _mm512_load_si512(pIdx), v);
}

VY_TARGET_VBMI inline __m512i Gather(__m512i idx, const int32_t* pRow) {
  return _mm512_mask_i32gather_epi32(_mm512_setzero_si512(), __mmask16(0xFFFF), idx, pRow, 4);
}

// The read-side clip of a sum, as a byte in the bottom of each lane.
VY_TARGET_VBMI inline __m512i Clip(__m512i sum) {
  const __m512i c = _mm512_maskz_min_epi32(c_nAll, _mm512_maskz_max_epi32(c_nAll, sum, _mm512_setzero_si512()),
                                           _mm512_set1_epi32(YCbCrReadSumMax));
  return _mm512_maskz_srli_epi32(c_nAll, c, YCbCrFractionBits);
}

// The luma entry of a pixel: the plain family's luma row is the byte itself
// in table units (a scale of exactly 1, no rounding), so a shift gives the
// entry and saves a gather; the other families' rows are fetched.
template <bool bIdentityLuma>
VY_TARGET_VBMI inline __m512i Luma(__m512i y, const SYCbCrReadTable& t) {
  if constexpr (bIdentityLuma) return _mm512_maskz_slli_epi32(c_nAll, y, YCbCrFractionBits);
  return Gather(y, t.m_anRow[0]);
}

// The four chroma rows paired by their index byte, so that one 64-bit
// gather element fetches two entries: Cr gives red and its green part, Cb its
// green part and blue. Made once per family table.
struct SChromaPairs {
  int64_t m_anCr[256];
  int64_t m_anCb[256];
  explicit SChromaPairs(const SYCbCrReadTable& t) {
    for (int i = 0; i < 256; ++i) {
      m_anCr[i] = int64_t(uint32_t(t.m_anRow[1][i])) | int64_t(uint64_t(uint32_t(t.m_anRow[3][i])) << 32);
      m_anCb[i] = int64_t(uint32_t(t.m_anRow[2][i])) | int64_t(uint64_t(uint32_t(t.m_anRow[4][i])) << 32);
    }
  }
};

const SChromaPairs* PairsOf(const SYCbCrReadTable& t) {
  static const SChromaPairs plain(pnYCrCbConvTable), bt601(pnYCrCbConvTable601), bt709(pnYCrCbConvTable709);
  if (&t == &pnYCrCbConvTable) return &plain;
  if (&t == &pnYCrCbConvTable601) return &bt601;
  if (&t == &pnYCrCbConvTable709) return &bt709;
  return nullptr;
}

// Entries of 16 groups from a paired row: the low halves (first) and high
// halves (second) of the pairs, each as 16 lanes in group order.
struct SPairLanes {
  __m512i first, second;
};

VY_TARGET_VBMI inline SPairLanes GatherPairs(const uint8_t (*pIdx)[64], __m512i v, const int64_t* pPairs) {
  const __m512i lo = _mm512_mask_i64gather_epi64(
      _mm512_setzero_si512(), __mmask8(0xFF),
      _mm512_maskz_permutexvar_epi8(c_nQwordLowBytes, _mm512_load_si512(pIdx[0]), v), pPairs, 8);
  const __m512i hi = _mm512_mask_i64gather_epi64(
      _mm512_setzero_si512(), __mmask8(0xFF),
      _mm512_maskz_permutexvar_epi8(c_nQwordLowBytes, _mm512_load_si512(pIdx[1]), v), pPairs, 8);
  const __m512i even = _mm512_set_epi32(30, 28, 26, 24, 22, 20, 18, 16, 14, 12, 10, 8, 6, 4, 2, 0);
  const __m512i odd = _mm512_add_epi32(even, _mm512_set1_epi32(1));
  return {_mm512_maskz_permutex2var_epi32(c_nAll, lo, even, hi), _mm512_maskz_permutex2var_epi32(c_nAll, lo, odd, hi)};
}

template <class L, int nDestStep, bool bBGROrder, bool bIdentityLuma>
VY_TARGET_VBMI void ColorStep(const uint8_t* s, uint8_t* d, size_t nGroups, const SYCbCrReadTable& t,
                              const TStep<L>& k, const SChromaPairs& pairs) {
  using S = TStep<L>;
  const __m512i v = _mm512_maskz_loadu_epi8(FirstBytes(nGroups * S::B), s);
  const SPairLanes fromCr = GatherPairs(k.cr, v, pairs.m_anCr);
  const SPairLanes fromCb = GatherPairs(k.cb, v, pairs.m_anCb);
  const __m512i red = fromCr.first;
  const __m512i green = _mm512_add_epi32(fromCb.first, fromCr.second);
  const __m512i blue = fromCb.second;
  const size_t nPixels = nGroups * S::P;
  for (int h = 0; h < S::nHalves; ++h) {
    if (size_t(16 * h) >= nPixels) break;
    const __m512i luma = Luma<bIdentityLuma>(Bytes32(k.y[h], v), t);
    const __m512i g = _mm512_load_si512(k.group[h]);
    const __m512i r8 = Clip(_mm512_add_epi32(luma, _mm512_maskz_permutexvar_epi32(c_nAll, g, red)));
    const __m512i g8 = Clip(_mm512_add_epi32(luma, _mm512_maskz_permutexvar_epi32(c_nAll, g, green)));
    const __m512i b8 = Clip(_mm512_add_epi32(luma, _mm512_maskz_permutexvar_epi32(c_nAll, g, blue)));
    const __m512i first = bBGROrder ? b8 : r8;
    const __m512i third = bBGROrder ? r8 : b8;
    const __m512i px = _mm512_or_si512(_mm512_or_si512(first, _mm512_maskz_slli_epi32(c_nAll, g8, 8)), _mm512_maskz_slli_epi32(c_nAll, third, 16));
    const size_t n = nPixels - size_t(16 * h) < 16 ? nPixels - size_t(16 * h) : 16;
    uint8_t* dh = d + size_t(16 * h) * nDestStep;
    if constexpr (nDestStep == 4) {
      _mm512_mask_storeu_epi8(dh, c_nLaneLowBytes * 7 & FirstBytes(4 * n), px);
    } else {
      alignas(64) static constexpr struct SCompact {
        uint8_t a[64] = {};
        constexpr SCompact() {
          for (int i = 0; i < 48; ++i) a[i] = uint8_t(4 * (i / 3) + i % 3);
        }
      } compact;
      _mm512_mask_storeu_epi8(dh, FirstBytes(3 * n),
                              _mm512_maskz_permutexvar_epi8(~__mmask64(0), _mm512_load_si512(compact.a), px));
    }
  }
}

template <class L>
VY_TARGET_VBMI void MonoStep(const uint8_t* s, uint8_t* d, size_t nGroups, const SYCbCrReadTable& t,
                             const TStep<L>& k) {
  using S = TStep<L>;
  const __m512i v = _mm512_maskz_loadu_epi8(FirstBytes(nGroups * S::B), s);
  const size_t nPixels = nGroups * S::P;
  for (int h = 0; h < S::nHalves; ++h) {
    if (size_t(16 * h) >= nPixels) break;
    const __m512i luma = _mm512_maskz_srai_epi32(c_nAll, Gather(Bytes32(k.y[h], v), t.m_anRow[0]), YCbCrFractionBits);
    const size_t n = nPixels - size_t(16 * h) < 16 ? nPixels - size_t(16 * h) : 16;
    _mm512_mask_cvtepi32_storeu_epi8(d + 16 * h, __mmask16(FirstBytes(n)), luma);
  }
}

#endif

}  // namespace

void SetYCbCrSimdForTesting(bool bEnabled) { g_bEnabled.store(bEnabled, std::memory_order_relaxed); }

#if defined(VY_HAVE_X86_SIMD)

template <class TLayout, int nDestStep, bool bBGROrder>
size_t SimdYCbCrToColorGroups(const uint8_t* pSrc, uint8_t* pDest, size_t nGroups, const SYCbCrReadTable& t) {
  const SChromaPairs* pPairs = Use() ? PairsOf(t) : nullptr;
  if (pPairs == nullptr) return 0;
  static constexpr TStep<TLayout> k;
  using S = TStep<TLayout>;
  const bool bIdentityLuma = &t == &pnYCrCbConvTable;
  for (size_t g = 0; g < nGroups; g += S::G) {
    const size_t n = nGroups - g < size_t(S::G) ? nGroups - g : size_t(S::G);
    if (bIdentityLuma)
      ColorStep<TLayout, nDestStep, bBGROrder, true>(pSrc + g * S::B, pDest + g * S::P * nDestStep, n, t, k, *pPairs);
    else
      ColorStep<TLayout, nDestStep, bBGROrder, false>(pSrc + g * S::B, pDest + g * S::P * nDestStep, n, t, k, *pPairs);
  }
  return nGroups;
}

template <class TLayout>
size_t SimdYCbCrToMonoGroups(const uint8_t* pSrc, uint8_t* pDest, size_t nGroups, const SYCbCrReadTable& t) {
  if (!Use()) return 0;
  static constexpr TStep<TLayout> k;
  using S = TStep<TLayout>;
  for (size_t g = 0; g < nGroups; g += S::G) {
    const size_t n = nGroups - g < size_t(S::G) ? nGroups - g : size_t(S::G);
    MonoStep<TLayout>(pSrc + g * S::B, pDest + g * S::P, n, t, k);
  }
  return nGroups;
}

#else

template <class TLayout, int nDestStep, bool bBGROrder>
size_t SimdYCbCrToColorGroups(const uint8_t*, uint8_t*, size_t, const SYCbCrReadTable&) {
  return 0;
}
template <class TLayout>
size_t SimdYCbCrToMonoGroups(const uint8_t*, uint8_t*, size_t, const SYCbCrReadTable&) {
  return 0;
}

#endif

#define VY_YCBCR_READ_INSTANCES(sub, cbFirst)                                                                     \
  template size_t SimdYCbCrToColorGroups<TYCbCrLayout<sub, cbFirst>, 3, true>(const uint8_t*, uint8_t*, size_t,   \
                                                                              const SYCbCrReadTable&);            \
  template size_t SimdYCbCrToColorGroups<TYCbCrLayout<sub, cbFirst>, 3, false>(const uint8_t*, uint8_t*, size_t,  \
                                                                               const SYCbCrReadTable&);           \
  template size_t SimdYCbCrToColorGroups<TYCbCrLayout<sub, cbFirst>, 4, true>(const uint8_t*, uint8_t*, size_t,   \
                                                                              const SYCbCrReadTable&);            \
  template size_t SimdYCbCrToColorGroups<TYCbCrLayout<sub, cbFirst>, 4, false>(const uint8_t*, uint8_t*, size_t,  \
                                                                               const SYCbCrReadTable&);           \
  template size_t SimdYCbCrToMonoGroups<TYCbCrLayout<sub, cbFirst>>(const uint8_t*, uint8_t*, size_t,             \
                                                                    const SYCbCrReadTable&);

VY_YCBCR_READ_INSTANCES(YCbCrSubsampling_444, true)
VY_YCBCR_READ_INSTANCES(YCbCrSubsampling_444, false)
VY_YCBCR_READ_INSTANCES(YCbCrSubsampling_422, true)
VY_YCBCR_READ_INSTANCES(YCbCrSubsampling_422, false)
VY_YCBCR_READ_INSTANCES(YCbCrSubsampling_411, true)
VY_YCBCR_READ_INSTANCES(YCbCrSubsampling_411, false)

}  // namespace VyApi
