#include "PixelConversion/SimdLineKernels.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#define VY_HAVE_X86_SIMD 1
// The functions below are built for SSSE3 regardless of the compiler's base
// target; they are only entered after the run-time check.
#define VY_TARGET_SSSE3 __attribute__((target("ssse3")))
#endif

namespace VyApi {
namespace PixelConversion {

#if defined(VY_HAVE_X86_SIMD)

namespace {

struct SShuffleMasks {
  alignas(16) uint8_t channel[3][3][16];  // [component][source register][lane]
  alignas(16) uint8_t swapRB[16];
  alignas(16) uint8_t unpack12p[16];
  alignas(16) uint8_t gvsp[16];

  SShuffleMasks() {
    // Deinterleave 16 three-byte pixels held in three registers.
    for (int c = 0; c < 3; ++c)
      for (int r = 0; r < 3; ++r)
        for (int p = 0; p < 16; ++p) {
          const int nByte = 3 * p + c;
          channel[c][r][p] = (nByte / 16 == r) ? uint8_t(nByte % 16) : uint8_t(0x80);
        }
    // Five pixels with bytes 0 and 2 exchanged; byte 15 is rewritten by the next step.
    for (int i = 0; i < 15; ++i) swapRB[i] = uint8_t(3 * (i / 3) + 2 - i % 3);
    swapRB[15] = 15;
    // Pair k of a 12-bit stream (bytes 3k..3k+2): lane 2k takes bytes 3k, 3k+1,
    // lane 2k+1 bytes 3k+1, 3k+2. For GVSP both lanes hold byte 3k+1 low and the
    // high-part byte (3k resp. 3k+2) high.
    for (int k = 0; k < 4; ++k) {
      unpack12p[4 * k + 0] = uint8_t(3 * k);
      unpack12p[4 * k + 1] = uint8_t(3 * k + 1);
      unpack12p[4 * k + 2] = uint8_t(3 * k + 1);
      unpack12p[4 * k + 3] = uint8_t(3 * k + 2);
      gvsp[4 * k + 0] = uint8_t(3 * k + 1);
      gvsp[4 * k + 1] = uint8_t(3 * k);
      gvsp[4 * k + 2] = uint8_t(3 * k + 1);
      gvsp[4 * k + 3] = uint8_t(3 * k + 2);
    }
  }
};

const SShuffleMasks& Masks() {
  static const SShuffleMasks masks;
  return masks;
}

inline __m128i Load(const void* p) { return _mm_loadu_si128(static_cast<const __m128i*>(p)); }

VY_TARGET_SSSE3 inline __m128i Gather(const __m128i& a, const __m128i& b, const __m128i& c, const uint8_t (*m)[16]) {
  return _mm_or_si128(_mm_or_si128(_mm_shuffle_epi8(a, Load(m[0])), _mm_shuffle_epi8(b, Load(m[1]))),
                      _mm_shuffle_epi8(c, Load(m[2])));
}

VY_TARGET_SSSE3 inline __m128i Luma16(__m128i r, __m128i g, __m128i b) {
  // ((2G + R) * 2 + G + B) >> 3; at most 2040, so 16-bit lanes hold it.
  const __m128i t = _mm_add_epi16(_mm_slli_epi16(g, 1), r);
  return _mm_srli_epi16(_mm_add_epi16(_mm_add_epi16(_mm_slli_epi16(t, 1), g), b), 3);
}

VY_TARGET_SSSE3 size_t BGR8ToMono8Ssse3(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bBGR) {
  const SShuffleMasks& m = Masks();
  const int nR = bBGR ? 2 : 0;
  const int nB = bBGR ? 0 : 2;
  const __m128i zero = _mm_setzero_si128();
  size_t x = 0;
  for (; x + 16 <= nWidth; x += 16) {
    const __m128i a = Load(pSrc + 3 * x), b = Load(pSrc + 3 * x + 16), c = Load(pSrc + 3 * x + 32);
    const __m128i r = Gather(a, b, c, m.channel[nR]);
    const __m128i g = Gather(a, b, c, m.channel[1]);
    const __m128i bl = Gather(a, b, c, m.channel[nB]);
    const __m128i lo = Luma16(_mm_unpacklo_epi8(r, zero), _mm_unpacklo_epi8(g, zero), _mm_unpacklo_epi8(bl, zero));
    const __m128i hi = Luma16(_mm_unpackhi_epi8(r, zero), _mm_unpackhi_epi8(g, zero), _mm_unpackhi_epi8(bl, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pDest + x), _mm_packus_epi16(lo, hi));
  }
  return x;
}

VY_TARGET_SSSE3 size_t SwapRB8Ssse3(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth) {
  const __m128i mask = Load(Masks().swapRB);
  size_t x = 0;
  // Six pixels (18 bytes) must remain so that the 16-byte load and store stay in the line.
  for (; x + 6 <= nWidth; x += 5)
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pDest + 3 * x), _mm_shuffle_epi8(Load(pSrc + 3 * x), mask));
  return x;
}

VY_TARGET_SSSE3 size_t Unpack12pSsse3(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth) {
  const __m128i shuffle = Load(Masks().unpack12p);
  const __m128i evenMask = _mm_set1_epi32(0x00000FFF);
  const __m128i oddMask = _mm_set1_epi32(0x0FFF0000);
  const size_t nLineBytes = (nWidth * 12 + 7) / 8;
  size_t x = 0;
  // Eight pixels come from twelve bytes; the load reads sixteen.
  for (; x + 8 <= nWidth && x / 2 * 3 + 16 <= nLineBytes; x += 8) {
    const __m128i v = _mm_shuffle_epi8(Load(pSrc + x / 2 * 3), shuffle);
    const __m128i r = _mm_or_si128(_mm_and_si128(v, evenMask), _mm_and_si128(_mm_srli_epi16(v, 4), oddMask));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pDest + x), r);
  }
  return x;
}

template <int S>
VY_TARGET_SSSE3 size_t UnpackGvspSsse3(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth) {
  const __m128i shuffle = Load(Masks().gvsp);
  const __m128i highMask = _mm_set1_epi16(short(0xFF << S));
  const __m128i lowEven = _mm_set1_epi32((1 << S) - 1);
  const __m128i lowOdd = _mm_set1_epi32(((1 << S) - 1) << 16);
  const size_t nLineBytes = nWidth / 2 * 3 + (nWidth & 1) * 2;
  size_t x = 0;
  for (; x + 8 <= nWidth && x / 2 * 3 + 16 <= nLineBytes; x += 8) {
    const __m128i v = _mm_shuffle_epi8(Load(pSrc + x / 2 * 3), shuffle);
    const __m128i high = _mm_and_si128(_mm_srli_epi16(v, 8 - S), highMask);
    const __m128i low = _mm_or_si128(_mm_and_si128(_mm_srli_epi16(v, 4), lowEven), _mm_and_si128(v, lowOdd));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pDest + x), _mm_or_si128(high, low));
  }
  return x;
}

// 32 pixels of a 10- or 12-bit stream (40 or 48 bytes) per step from one
// 64-byte load: a byte permute puts the two bytes that hold each value into
// its 16-bit lane, a per-lane shift drops the bits of the value before it and
// applies the table's shift, a mask keeps the value's bits.
// (Mask forms throughout: GCC 12 warns on the unmasked ones.)
#define VY_TARGET_VBMI __attribute__((target("avx512f,avx512bw,avx512vbmi")))

VY_TARGET_VBMI inline __m512i StreamWords(const uint8_t* p, __m512i perm, __m512i counts, __m512i mask) {
  const __m512i v = _mm512_maskz_permutexvar_epi8(~__mmask64(0), perm, _mm512_loadu_si512(p));
  return _mm512_and_si512(_mm512_srlv_epi16(v, counts), mask);
}

// GVSP: even lanes hold (middle, first) bytes, odd lanes (middle, third);
// the first value is the word >> 4, the second the third byte << 4 with the
// middle byte's low nibble.
VY_TARGET_VBMI inline __m512i GvspWords(const uint8_t* p, __m512i perm, unsigned nShift) {
  const __m512i w = _mm512_maskz_permutexvar_epi8(~__mmask64(0), perm, _mm512_loadu_si512(p));
  const __m512i a = _mm512_srli_epi16(w, 4);
  const __m512i b = _mm512_or_si512(_mm512_and_si512(a, _mm512_set1_epi16(0x0FF0)),
                                    _mm512_and_si512(w, _mm512_set1_epi16(0x000F)));
  return _mm512_srl_epi16(_mm512_mask_blend_epi16(__mmask32(0xAAAAAAAAu), a, b), _mm_cvtsi32_si128(int(nShift)));
}

VY_TARGET_VBMI inline void StoreWords(uint8_t* p, __m512i v) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(p), _mm512_maskz_cvtepi16_epi8(~__mmask32(0), v));
}
VY_TARGET_VBMI inline void StoreWords(uint16_t* p, __m512i v) { _mm512_storeu_si512(p, v); }

/// What the unpacked values become: the identity (a shift already applied
/// while unpacking) or the rounded stretch, the integer steps of SStretch in
/// 16-bit lanes.
struct SKeep {
  VY_TARGET_VBMI __m512i operator()(__m512i v) const { return v; }
};

struct SStretchWords {
  __m512i r, h, m;
  __m128i left, right;
  VY_TARGET_VBMI explicit SStretchWords(const SStretch& f)
      : r(_mm512_set1_epi16(short(f.nR))), h(_mm512_set1_epi16(short(f.nH))), m(_mm512_set1_epi16(short(f.nM))),
        left(_mm_cvtsi32_si128(f.nLeft)), right(_mm_cvtsi32_si128(f.nRight)) {}
  VY_TARGET_VBMI __m512i operator()(__m512i v) const {
    const __m512i t = _mm512_add_epi16(_mm512_mullo_epi16(v, r), h);
    return _mm512_add_epi16(_mm512_sll_epi16(v, left), _mm512_srl_epi16(_mm512_mulhi_epu16(t, m), right));
  }
};

template <int N, typename Y, typename Map>
VY_TARGET_VBMI size_t UnpackStreamVbmi(const uint8_t* pSrc, Y* pDest, size_t nWidth, unsigned nShift, Map map) {
  alignas(64) uint8_t aPerm[64];
  alignas(64) uint16_t aCount[32];
  for (int k = 0; k < 32; ++k) {
    // Value k starts at bit N k: in byte N k / 8, N k % 8 bits up (at most
    // 6 for N = 10, so the value stays inside the two bytes).
    aPerm[2 * k] = uint8_t(N * k / 8);
    aPerm[2 * k + 1] = uint8_t(N * k / 8 + 1);
    aCount[k] = uint16_t(N * k % 8 + nShift);
  }
  const __m512i perm = _mm512_load_si512(aPerm);
  const __m512i counts = _mm512_load_si512(aCount);
  const __m512i mask = _mm512_set1_epi16(short(((1 << N) - 1) >> nShift));
  const size_t nLineBytes = (nWidth * N + 7) / 8;
  size_t x = 0;
  for (; x + 32 <= nWidth && x * N / 8 + 64 <= nLineBytes; x += 32)
    StoreWords(pDest + x, map(StreamWords(pSrc + x * N / 8, perm, counts, mask)));
  return x;
}

template <typename Y, typename Map>
VY_TARGET_VBMI size_t UnpackGvsp12Vbmi(const uint8_t* pSrc, Y* pDest, size_t nWidth, unsigned nShift, Map map) {
  alignas(64) uint8_t aPerm[64];
  for (int k = 0; k < 16; ++k) {
    aPerm[4 * k + 0] = uint8_t(3 * k + 1);
    aPerm[4 * k + 1] = uint8_t(3 * k);
    aPerm[4 * k + 2] = uint8_t(3 * k + 1);
    aPerm[4 * k + 3] = uint8_t(3 * k + 2);
  }
  const __m512i perm = _mm512_load_si512(aPerm);
  const size_t nLineBytes = nWidth / 2 * 3 + (nWidth & 1) * 2;
  size_t x = 0;
  for (; x + 32 <= nWidth && x / 2 * 3 + 64 <= nLineBytes; x += 32)
    StoreWords(pDest + x, map(GvspWords(pSrc + x / 2 * 3, perm, nShift)));
  return x;
}

template <typename Y>
VY_TARGET_VBMI size_t UnpackPackedShiftVbmi(const uint8_t* pSrc, Y* pDest, size_t nWidth, int nBits,
                                            unsigned nShift) {
  return nBits == 12 ? UnpackStreamVbmi<12>(pSrc, pDest, nWidth, nShift, SKeep())
                     : UnpackStreamVbmi<10>(pSrc, pDest, nWidth, nShift, SKeep());
}

VY_TARGET_VBMI size_t UnpackPackedStretchVbmi(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nBits,
                                              const SStretch& f) {
  const SStretchWords map(f);
  return nBits == 12 ? UnpackStreamVbmi<12>(pSrc, pDest, nWidth, 0, map)
                     : UnpackStreamVbmi<10>(pSrc, pDest, nWidth, 0, map);
}

VY_TARGET_VBMI size_t UnpackGvsp12StretchVbmi(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth,
                                              const SStretch& f) {
  return UnpackGvsp12Vbmi(pSrc, pDest, nWidth, 0, SStretchWords(f));
}

bool DetectVbmi() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
         __builtin_cpu_supports("avx512vbmi");
}

bool HasVbmi() {
  static const bool bHas = DetectVbmi();
  return bHas;
}

}  // namespace

size_t SimdUnpackPackedShiftLine(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nBits, unsigned nShift) {
  return HasVbmi() ? UnpackPackedShiftVbmi(pSrc, pDest, nWidth, nBits, nShift) : 0;
}
size_t SimdUnpackPackedShiftLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nBits, unsigned nShift) {
  return HasVbmi() ? UnpackPackedShiftVbmi(pSrc, pDest, nWidth, nBits, nShift) : 0;
}
size_t SimdUnpackPackedStretchLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nBits,
                                   const SStretch& f) {
  return HasVbmi() ? UnpackPackedStretchVbmi(pSrc, pDest, nWidth, nBits, f) : 0;
}
size_t SimdUnpackGvsp12ShiftLine(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, unsigned nShift) {
  return HasVbmi() ? UnpackGvsp12Vbmi(pSrc, pDest, nWidth, nShift, SKeep()) : 0;
}
size_t SimdUnpackGvsp12ShiftLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, unsigned nShift) {
  return HasVbmi() ? UnpackGvsp12Vbmi(pSrc, pDest, nWidth, nShift, SKeep()) : 0;
}
size_t SimdUnpackGvsp12StretchLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, const SStretch& f) {
  return HasVbmi() ? UnpackGvsp12StretchVbmi(pSrc, pDest, nWidth, f) : 0;
}

bool HasSsse3() {
  static const bool bHas = __builtin_cpu_supports("ssse3");
  return bHas;
}

size_t SimdBGR8ToMono8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bSrcBGROrder) {
  return HasSsse3() ? BGR8ToMono8Ssse3(pSrc, pDest, nWidth, bSrcBGROrder) : 0;
}
size_t SimdSwapRB8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth) {
  return HasSsse3() ? SwapRB8Ssse3(pSrc, pDest, nWidth) : 0;
}
size_t SimdUnpack12pLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth) {
  return HasSsse3() ? Unpack12pSsse3(pSrc, pDest, nWidth) : 0;
}
size_t SimdUnpackGvspLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nLowBits) {
  if (!HasSsse3()) return 0;
  return nLowBits == 4 ? UnpackGvspSsse3<4>(pSrc, pDest, nWidth) : UnpackGvspSsse3<2>(pSrc, pDest, nWidth);
}

#else

bool HasSsse3() { return false; }
size_t SimdBGR8ToMono8Line(const uint8_t*, uint8_t*, size_t, bool) { return 0; }
size_t SimdSwapRB8Line(const uint8_t*, uint8_t*, size_t) { return 0; }
size_t SimdUnpack12pLine(const uint8_t*, uint16_t*, size_t) { return 0; }
size_t SimdUnpackGvspLine(const uint8_t*, uint16_t*, size_t, int) { return 0; }
size_t SimdUnpackPackedShiftLine(const uint8_t*, uint8_t*, size_t, int, unsigned) { return 0; }
size_t SimdUnpackPackedShiftLine(const uint8_t*, uint16_t*, size_t, int, unsigned) { return 0; }
size_t SimdUnpackPackedStretchLine(const uint8_t*, uint16_t*, size_t, int, const SStretch&) { return 0; }
size_t SimdUnpackGvsp12ShiftLine(const uint8_t*, uint8_t*, size_t, unsigned) { return 0; }
size_t SimdUnpackGvsp12ShiftLine(const uint8_t*, uint16_t*, size_t, unsigned) { return 0; }
size_t SimdUnpackGvsp12StretchLine(const uint8_t*, uint16_t*, size_t, const SStretch&) { return 0; }

#endif

}  // namespace PixelConversion
}  // namespace VyApi
