#include "PixelConversion/ByteMoveLines.h"

#include <cstring>

#include "PixelConversion/SimdLineKernels.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define VY_HAVE_X86_SIMD 1
// Built for the named instruction sets whatever the base target; entered only
// after the run-time check of SimdLineKernels.
#define VY_TARGET_SSSE3 __attribute__((target("ssse3")))
#define VY_TARGET_AVX2 __attribute__((target("avx2")))
#define VY_TARGET_VBMI __attribute__((target("avx512f,avx512bw,avx512vbmi")))
#endif

namespace VyApi {
namespace PixelConversion {

#if defined(VY_HAVE_X86_SIMD)
namespace {

// Byte k of a destination pixel of DC cells comes from byte Map(k) of the
// source pixel (SC cells); cell 3 of a four-cell destination is never written.
constexpr int SourceCell(int k, bool bSwap) { return bSwap && k != 1 ? 2 - k : k; }

// ---- AVX-512 (VBMI): one 64-byte permute per 16 pixels, masked loads and
// (the permute in its mask form: GCC 12 warns on the unmasked one)
// stores, so the whole line including its tail is done here.

// Permute index that takes 16 pixels of SC cells (from byte 0 of a register)
// to 16 pixels of DC cells; for grey (SC 1) every colour cell takes the pixel's byte.
template <int SC, int DC>
struct SPermute64 {
  alignas(64) uint8_t a[64] = {};
  explicit SPermute64(bool bSwap) {
    for (int p = 0; p < 16; ++p)
      for (int k = 0; k < DC; ++k) a[DC * p + k] = uint8_t(SC == 1 ? p : SC * p + (k < 3 ? SourceCell(k, bSwap) : k));
  }
};

template <int DC>
constexpr uint64_t ColourBytesMask() {
  uint64_t m = 0;
  for (int i = 0; i < 16 * DC; ++i)
    if (DC == 3 || i % 4 != 3) m |= uint64_t(1) << i;
  return m;
}

inline __mmask64 FirstBytes(size_t n) { return n >= 64 ? ~__mmask64(0) : (__mmask64(1) << n) - 1; }

// Pixels x .. x + n - 1, n at most 16.
template <int SC, int DC>
VY_TARGET_VBMI inline void MovePartVbmi(const uint8_t* pSrc, uint8_t* pDest, size_t x, size_t n, __m512i idx) {
  const __m512i v = _mm512_maskz_loadu_epi8(FirstBytes(SC * n), pSrc + SC * x);
  _mm512_mask_storeu_epi8(pDest + DC * x, __mmask64(ColourBytesMask<DC>()) & FirstBytes(DC * n),
                          _mm512_maskz_permutexvar_epi8(~__mmask64(0), idx, v));
}

template <int SC, int DC>
VY_TARGET_VBMI size_t MoveVbmi(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bSwap) {
  const SPermute64<SC, DC> perm(bSwap);
  const __m512i idx = _mm512_load_si512(perm.a);
  constexpr uint64_t c_nStore = ColourBytesMask<DC>();
  size_t x = 0;
  if constexpr (DC == 4) {
    // Stores that span two cache lines cost about twice: a first part step
    // aligns the rest when the destination is on a pixel boundary.
    const size_t nMisalign = reinterpret_cast<uintptr_t>(pDest) % 64;
    x = nMisalign % 4 == 0 ? (64 - nMisalign) % 64 / 4 : 0;
    if (x > nWidth) x = nWidth;
    if (x != 0) MovePartVbmi<SC, DC>(pSrc, pDest, 0, x, idx);
  }
  for (; x + 16 <= nWidth; x += 16) {
    const __m512i v = _mm512_maskz_loadu_epi8(FirstBytes(16 * SC), pSrc + SC * x);
    _mm512_mask_storeu_epi8(pDest + DC * x, __mmask64(c_nStore),
                            _mm512_maskz_permutexvar_epi8(~__mmask64(0), idx, v));
  }
  if (x < nWidth) MovePartVbmi<SC, DC>(pSrc, pDest, x, nWidth - x, idx);
  return nWidth;
}

// ---- AVX2: 8 pixels per step, each 128-bit half holding four, a byte
// shuffle within the halves; a four-cell destination gets its old alpha
// blended back.

template <int SC, int DC>
struct SShuffle32 {
  alignas(32) uint8_t a[32];
  explicit SShuffle32(bool bSwap) {
    for (int h = 0; h < 2; ++h)
      for (int i = 0; i < 16; ++i) {
        const int p = i / DC, k = i % DC;
        uint8_t v = 0x80;
        if (p < 4) v = uint8_t(SC == 1 ? p : SC * p + (k < 3 ? SourceCell(k, bSwap) : k));
        if (DC == 4 && k == 3) v = 0x80;
        a[16 * h + i] = v;
      }
  }
};

// Four bytes at any alignment.
inline int Load4(const uint8_t* p) {
  int n;
  std::memcpy(&n, p, 4);
  return n;
}
inline void Store4(uint8_t* p, int n) { std::memcpy(p, &n, 4); }

VY_TARGET_AVX2 inline __m256i LoadHalves(const uint8_t* pLow, const uint8_t* pHigh, int nBytes) {
  if (nBytes == 16)
    return _mm256_inserti128_si256(_mm256_castsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(pLow))),
                                   _mm_loadu_si128(reinterpret_cast<const __m128i*>(pHigh)), 1);
  // Four grey bytes per half.
  return _mm256_inserti128_si256(
      _mm256_castsi128_si256(_mm_cvtsi32_si128(Load4(pLow))), _mm_cvtsi32_si128(Load4(pHigh)), 1);
}

template <int SC, int DC>
VY_TARGET_AVX2 size_t MoveAvx2(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bSwap) {
  const SShuffle32<SC, DC> shuffle(bSwap);
  const __m256i mask = _mm256_load_si256(reinterpret_cast<const __m256i*>(shuffle.a));
  const __m256i alpha = _mm256_set1_epi32(int(0xFF000000u));
  // A three-cell source half is read 16 bytes wide for its 12: the last step
  // needs 4 bytes, two pixels, to spare.
  const size_t nSpare = SC == 3 ? 2 : 0;
  size_t x = 0;
  for (; x + 8 + nSpare <= nWidth; x += 8) {
    const uint8_t* s = pSrc + SC * x;
    __m256i v = _mm256_shuffle_epi8(LoadHalves(s, s + 4 * SC, SC == 1 ? 4 : 16), mask);
    uint8_t* d = pDest + DC * x;
    if constexpr (DC == 4) {
      const __m256i old = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(d));
      v = _mm256_blendv_epi8(v, old, alpha);
      _mm256_storeu_si256(reinterpret_cast<__m256i*>(d), v);
    } else {
      _mm_storeu_si128(reinterpret_cast<__m128i*>(d), _mm256_castsi256_si128(v));  // 12 bytes + 4 rewritten
      const __m128i hi = _mm256_extracti128_si256(v, 1);
      // Bytes 12..23: the first 12 of the high half; write 8 then 4.
      _mm_storel_epi64(reinterpret_cast<__m128i*>(d + 12), hi);
      Store4(d + 20, _mm_extract_epi32(hi, 2));
    }
  }
  return x;
}

// ---- SSSE3: 4 pixels per step, the same shuffle on 16 bytes.
template <int SC, int DC>
VY_TARGET_SSSE3 size_t MoveSsse3(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bSwap) {
  const SShuffle32<SC, DC> shuffle(bSwap);
  const __m128i mask = _mm_load_si128(reinterpret_cast<const __m128i*>(shuffle.a));
  const __m128i alpha = _mm_set1_epi32(int(0xFF000000u));
  const size_t nSpare = SC == 3 ? 2 : 0;
  size_t x = 0;
  for (; x + 4 + nSpare <= nWidth; x += 4) {
    const uint8_t* s = pSrc + SC * x;
    const __m128i in = SC == 1 ? _mm_cvtsi32_si128(Load4(s))
                               : _mm_loadu_si128(reinterpret_cast<const __m128i*>(s));
    __m128i v = _mm_shuffle_epi8(in, mask);
    uint8_t* d = pDest + DC * x;
    if constexpr (DC == 4) {
      const __m128i old = _mm_loadu_si128(reinterpret_cast<const __m128i*>(d));
      v = _mm_or_si128(_mm_andnot_si128(alpha, v), _mm_and_si128(old, alpha));
      _mm_storeu_si128(reinterpret_cast<__m128i*>(d), v);
    } else {
      _mm_storel_epi64(reinterpret_cast<__m128i*>(d), v);
      Store4(d + 8, _mm_cvtsi128_si32(_mm_srli_si128(v, 8)));
    }
  }
  return x;
}

template <int SC, int DC>
size_t Move(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bSwap) {
  if (UseSimdVbmi()) return MoveVbmi<SC, DC>(pSrc, pDest, nWidth, bSwap);
  if (UseSimdAvx2()) return MoveAvx2<SC, DC>(pSrc, pDest, nWidth, bSwap);
  if (UseSimdSsse3()) return MoveSsse3<SC, DC>(pSrc, pDest, nWidth, bSwap);
  return 0;
}

}  // namespace

size_t SimdMoveColor8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nSrcCells, int nDestCells,
                          bool bSwap) {
  if (nSrcCells == 3) {
    if (nDestCells == 3) {
      if (!bSwap) return 0;
      // The SSSE3 swap of five pixels per step is the better narrow form.
      return UseSimdVbmi() || UseSimdAvx2() ? Move<3, 3>(pSrc, pDest, nWidth, true)
                                            : SimdSwapRB8Line(pSrc, pDest, nWidth);
    }
    return Move<3, 4>(pSrc, pDest, nWidth, bSwap);
  }
  return nDestCells == 3 ? Move<4, 3>(pSrc, pDest, nWidth, bSwap) : Move<4, 4>(pSrc, pDest, nWidth, bSwap);
}

size_t SimdMonoToColor8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nDestCells) {
  return nDestCells == 3 ? Move<1, 3>(pSrc, pDest, nWidth, false) : Move<1, 4>(pSrc, pDest, nWidth, false);
}

#else

size_t SimdMoveColor8Line(const uint8_t*, uint8_t*, size_t, int, int, bool) { return 0; }
size_t SimdMonoToColor8Line(const uint8_t*, uint8_t*, size_t, int) { return 0; }

#endif

}  // namespace PixelConversion
}  // namespace VyApi
