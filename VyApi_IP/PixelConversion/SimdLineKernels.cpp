#include "PixelConversion/SimdLineKernels.h"

#include <atomic>

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

// Colour to mono, 64 pixels a step. The rule 2R + 5G + B (then >> 3) is a
// pair of byte dot products: pmaddubsw of (R, G) with (2, 5) plus (B, G) with
// (1, 0); at most 1785 + 255, so no 16-bit lane saturates, and the sum is the
// scalar ((2G + R) * 2 + G + B) exactly. Masked loads and stores let the last
// partial step stay inside the line, so the whole line is done here.
inline uint64_t LowBytes(size_t n) { return n >= 64 ? ~uint64_t(0) : (uint64_t(1) << n) - 1; }
inline size_t Rest(size_t n, size_t nDone) { return n > nDone ? n - nDone : 0; }

struct SMono3Vbmi {
  __m512i rg, bg, pack, wRG, wBG;
  VY_TARGET_VBMI explicit SMono3Vbmi(bool bBGR) {
    alignas(64) uint8_t aRG[64], aBG[64], aPack[64], aW1[64], aW2[64];
    for (int p = 0; p < 32; ++p) {
      aRG[2 * p] = uint8_t(3 * p + (bBGR ? 2 : 0));
      aBG[2 * p] = uint8_t(3 * p + (bBGR ? 0 : 2));
      aRG[2 * p + 1] = aBG[2 * p + 1] = uint8_t(3 * p + 1);
      aW1[2 * p] = 2, aW1[2 * p + 1] = 5;
      aW2[2 * p] = 1, aW2[2 * p + 1] = 0;
    }
    for (int k = 0; k < 64; ++k) aPack[k] = uint8_t(2 * k);  // low bytes of both registers' words
    rg = _mm512_load_si512(aRG), bg = _mm512_load_si512(aBG), pack = _mm512_load_si512(aPack);
    wRG = _mm512_load_si512(aW1), wBG = _mm512_load_si512(aW2);
  }
  // 32 pixels from the 128 bytes of lo:hi that start at byte 'off' (0 or 32).
  VY_TARGET_VBMI __m512i Half(__m512i lo, __m512i hi, __m512i off) const {
    const __m512i a = _mm512_permutex2var_epi8(lo, _mm512_add_epi8(rg, off), hi);
    const __m512i b = _mm512_permutex2var_epi8(lo, _mm512_add_epi8(bg, off), hi);
    return _mm512_srli_epi16(_mm512_add_epi16(_mm512_maddubs_epi16(a, wRG), _mm512_maddubs_epi16(b, wBG)), 3);
  }
  VY_TARGET_VBMI __m512i Step(__m512i a, __m512i b, __m512i c) const {
    return _mm512_permutex2var_epi8(Half(a, b, _mm512_setzero_si512()), pack, Half(b, c, _mm512_set1_epi8(32)));
  }
};

VY_TARGET_VBMI size_t ColorToMono8Vbmi3(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bBGR) {
  const SMono3Vbmi k(bBGR);
  size_t x = 0;
  for (; x + 64 <= nWidth; x += 64) {
    const uint8_t* p = pSrc + 3 * x;
    _mm512_storeu_si512(pDest + x,
                        k.Step(_mm512_loadu_si512(p), _mm512_loadu_si512(p + 64), _mm512_loadu_si512(p + 128)));
  }
  if (x < nWidth) {
    const uint8_t* p = pSrc + 3 * x;
    const size_t nBytes = 3 * (nWidth - x);
    const __m512i a = _mm512_maskz_loadu_epi8(LowBytes(nBytes), p);
    const __m512i b = _mm512_maskz_loadu_epi8(LowBytes(Rest(nBytes, 64)), p + 64);
    const __m512i c = _mm512_maskz_loadu_epi8(LowBytes(Rest(nBytes, 128)), p + 128);
    _mm512_mask_storeu_epi8(pDest + x, LowBytes(nWidth - x), k.Step(a, b, c));
  }
  return nWidth;
}

// Four-cell pixels: one dot product gives (B + 5G, 2R) per pixel, a second
// (madd with ones) the sum in a 32-bit lane; two packs and a dword permute
// restore the pixel order of four registers.
VY_TARGET_VBMI size_t ColorToMono8Vbmi4(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bBGR) {
  const __m512i w = _mm512_set1_epi32(bBGR ? 0x00020501 : 0x00010502);
  const __m512i ones = _mm512_set1_epi16(1);
  alignas(64) int32_t aOrder[16];
  for (int k = 0; k < 16; ++k) aOrder[k] = 4 * (k % 4) + k / 4;
  const __m512i order = _mm512_load_si512(aOrder);
  auto mono = [&](__m512i v) VY_TARGET_VBMI {
    return _mm512_maskz_srli_epi32(__mmask16(0xFFFF), _mm512_madd_epi16(_mm512_maddubs_epi16(v, w), ones), 3);
  };
  auto step = [&](__m512i a, __m512i b, __m512i c, __m512i d) VY_TARGET_VBMI {
    const __m512i ab = _mm512_packus_epi32(mono(a), mono(b));
    const __m512i cd = _mm512_packus_epi32(mono(c), mono(d));
    return _mm512_maskz_permutexvar_epi32(__mmask16(0xFFFF), order, _mm512_packus_epi16(ab, cd));
  };
  size_t x = 0;
  for (; x + 64 <= nWidth; x += 64) {
    const uint8_t* p = pSrc + 4 * x;
    _mm512_storeu_si512(pDest + x, step(_mm512_loadu_si512(p), _mm512_loadu_si512(p + 64),
                                        _mm512_loadu_si512(p + 128), _mm512_loadu_si512(p + 192)));
  }
  if (x < nWidth) {
    const uint8_t* p = pSrc + 4 * x;
    const size_t nBytes = 4 * (nWidth - x);
    __m512i v[4];
    for (int i = 0; i < 4; ++i) v[i] = _mm512_maskz_loadu_epi8(LowBytes(Rest(nBytes, 64 * i)), p + 64 * i);
    _mm512_mask_storeu_epi8(pDest + x, LowBytes(nWidth - x), step(v[0], v[1], v[2], v[3]));
  }
  return nWidth;
}

// RGB10p32/CBGR10p32 words to 8-bit pixels through a shift table. Each field
// k goes to its cell with one rotate and a mask: rotating the word right by
// 10 k + shift - 8 cell brings the field's kept bits to the cell's byte, and
// the mask (the field's bits above the shift, at most a byte) drops the rest.
// Four-cell pixels are then stored with the alpha bytes masked out; three-cell
// ones are compacted, 64 pixels into three registers, by byte permutes.
struct S10p32Vbmi {
  __m512i rot[3], mask[3], pack[3];
  VY_TARGET_VBMI S10p32Vbmi(bool bSwap, unsigned nShift) {
    const uint32_t m = (0x3FFu >> nShift) & 0xFFu;
    for (int f = 0; f < 3; ++f) {
      const int nCell = f == 1 ? 1 : ((f == 0) != bSwap ? 0 : 2);
      rot[f] = _mm512_set1_epi32(int((10 * f + int(nShift) - 8 * nCell + 32) % 32));
      mask[f] = _mm512_set1_epi32(int(m << (8 * nCell)));
    }
    alignas(64) uint8_t aPack[3][64];
    for (int j = 0; j < 3; ++j)
      for (int k = 0; k < 64; ++k) aPack[j][k] = uint8_t(4 * ((64 * j + k) / 3 - 16 * j) + (64 * j + k) % 3);
    for (int j = 0; j < 3; ++j) pack[j] = _mm512_load_si512(aPack[j]);
  }
  VY_TARGET_VBMI __m512i Pixels(__m512i w) const {
    const __m512i a = _mm512_and_si512(_mm512_maskz_rorv_epi32(__mmask16(0xFFFF), w, rot[0]), mask[0]);
    const __m512i b = _mm512_and_si512(_mm512_maskz_rorv_epi32(__mmask16(0xFFFF), w, rot[1]), mask[1]);
    const __m512i c = _mm512_and_si512(_mm512_maskz_rorv_epi32(__mmask16(0xFFFF), w, rot[2]), mask[2]);
    return _mm512_or_si512(_mm512_or_si512(a, b), c);
  }
};

VY_TARGET_VBMI size_t Unpack10p32Vbmi3(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bSwap,
                                       unsigned nShift) {
  const S10p32Vbmi k(bSwap, nShift);
  auto store = [&](uint8_t* pd, const __m512i (&px)[4], size_t nBytes) VY_TARGET_VBMI {
    for (int j = 0; j < 3; ++j)
      _mm512_mask_storeu_epi8(pd + 64 * j, LowBytes(Rest(nBytes, 64 * j)),
                              _mm512_permutex2var_epi8(px[j], k.pack[j], px[j + 1]));
  };
  size_t x = 0;
  for (; x + 64 <= nWidth; x += 64) {
    __m512i px[4];
    for (int i = 0; i < 4; ++i) px[i] = k.Pixels(_mm512_loadu_si512(pSrc + 4 * x + 64 * i));
    uint8_t* pd = pDest + 3 * x;
    for (int j = 0; j < 3; ++j)
      _mm512_storeu_si512(pd + 64 * j, _mm512_permutex2var_epi8(px[j], k.pack[j], px[j + 1]));
  }
  if (x < nWidth) {
    const size_t nBytes = 4 * (nWidth - x);
    __m512i px[4];
    for (int i = 0; i < 4; ++i)
      px[i] = k.Pixels(_mm512_maskz_loadu_epi8(LowBytes(Rest(nBytes, 64 * i)), pSrc + 4 * x + 64 * i));
    store(pDest + 3 * x, px, 3 * (nWidth - x));
  }
  return nWidth;
}

VY_TARGET_VBMI size_t Unpack10p32Vbmi4(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bSwap,
                                       unsigned nShift) {
  const S10p32Vbmi k(bSwap, nShift);
  constexpr uint64_t kNoAlpha = 0x7777777777777777ull;
  size_t x = 0;
  for (; x + 16 <= nWidth; x += 16)
    _mm512_mask_storeu_epi8(pDest + 4 * x, kNoAlpha, k.Pixels(_mm512_loadu_si512(pSrc + 4 * x)));
  if (x < nWidth) {
    const uint64_t nValid = LowBytes(4 * (nWidth - x));
    _mm512_mask_storeu_epi8(pDest + 4 * x, kNoAlpha & nValid,
                            k.Pixels(_mm512_maskz_loadu_epi8(nValid, pSrc + 4 * x)));
  }
  return nWidth;
}

// AVX2 forms for processors without AVX-512. Byte shuffles stay inside each
// 128-bit half, so every half is given the bytes of its own 8 pixels.
#define VY_TARGET_AVX2 __attribute__((target("avx2")))

// Colour to mono, 16 three-cell pixels a half step: each half receives its
// 24 bytes as two overlapping 16-byte loads (bytes 0..15 and 8..23), and a
// shuffle of each gathers the (R, G) and (B, G) pairs for the same two dot
// products as the VBMI form.
struct SMono3Avx2 {
  __m256i rgA, rgB, bgA, bgB, wRG, wBG;
  VY_TARGET_AVX2 explicit SMono3Avx2(bool bBGR) {
    alignas(32) uint8_t a[4][32], wr[32], wb[32];
    for (int half = 0; half < 2; ++half)
      for (int p = 0; p < 8; ++p)
        for (int j = 0; j < 2; ++j) {
          const int nLane = 16 * half + 2 * p + j;
          const int nRG = 3 * p + (j == 1 ? 1 : (bBGR ? 2 : 0));
          const int nBG = 3 * p + (j == 1 ? 1 : (bBGR ? 0 : 2));
          // Byte i of the half's 24 comes from the first load below 16, else the second.
          a[0][nLane] = nRG < 16 ? uint8_t(nRG) : 0x80;
          a[1][nLane] = nRG < 16 ? 0x80 : uint8_t(nRG - 8);
          a[2][nLane] = nBG < 16 ? uint8_t(nBG) : 0x80;
          a[3][nLane] = nBG < 16 ? 0x80 : uint8_t(nBG - 8);
          wr[nLane] = j == 0 ? 2 : 5;
          wb[nLane] = j == 0 ? 1 : 0;
        }
    rgA = _mm256_load_si256(reinterpret_cast<const __m256i*>(a[0]));
    rgB = _mm256_load_si256(reinterpret_cast<const __m256i*>(a[1]));
    bgA = _mm256_load_si256(reinterpret_cast<const __m256i*>(a[2]));
    bgB = _mm256_load_si256(reinterpret_cast<const __m256i*>(a[3]));
    wRG = _mm256_load_si256(reinterpret_cast<const __m256i*>(wr));
    wBG = _mm256_load_si256(reinterpret_cast<const __m256i*>(wb));
  }
  // 16 pixels (48 bytes at p) to 16 words.
  VY_TARGET_AVX2 __m256i Words(const uint8_t* p) const {
    const __m256i a = _mm256_inserti128_si256(_mm256_castsi128_si256(Load(p)), Load(p + 24), 1);
    const __m256i b = _mm256_inserti128_si256(_mm256_castsi128_si256(Load(p + 8)), Load(p + 32), 1);
    const __m256i rg = _mm256_or_si256(_mm256_shuffle_epi8(a, rgA), _mm256_shuffle_epi8(b, rgB));
    const __m256i bg = _mm256_or_si256(_mm256_shuffle_epi8(a, bgA), _mm256_shuffle_epi8(b, bgB));
    return _mm256_srli_epi16(_mm256_add_epi16(_mm256_maddubs_epi16(rg, wRG), _mm256_maddubs_epi16(bg, wBG)), 3);
  }
};

VY_TARGET_AVX2 size_t ColorToMono8Avx2(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bBGR) {
  const SMono3Avx2 k(bBGR);
  size_t x = 0;
  for (; x + 32 <= nWidth; x += 32) {
    // The pack interleaves the halves of its two inputs; the qword permute restores pixel order.
    const __m256i v = _mm256_packus_epi16(k.Words(pSrc + 3 * x), k.Words(pSrc + 3 * x + 48));
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(pDest + x), _mm256_permute4x64_epi64(v, 0xD8));
  }
  return x;
}

// 10p32 words to three-cell pixels, 8 a step: each field reaches its cell by a
// right and a left shift, one of them by 32 (which gives 0); the cells are
// compacted inside each half, then the halves' 12 bytes joined.
VY_TARGET_AVX2 size_t Unpack10p32Avx2(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, bool bSwap,
                                      unsigned nShift) {
  const uint32_t m = (0x3FFu >> nShift) & 0xFFu;
  __m128i right[3], left[3];
  __m256i mask[3];
  for (int f = 0; f < 3; ++f) {
    const int nCell = f == 1 ? 1 : ((f == 0) != bSwap ? 0 : 2);
    const int r = 10 * f + int(nShift) - 8 * nCell;
    right[f] = _mm_cvtsi32_si128(r >= 0 ? r : 32);
    left[f] = _mm_cvtsi32_si128(r >= 0 ? 32 : -r);
    mask[f] = _mm256_set1_epi32(int(m << (8 * nCell)));
  }
  const __m256i compact = _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1,  //
                                           0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
  const __m256i join = _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7);
  size_t x = 0;
  for (; x + 8 <= nWidth; x += 8) {
    const __m256i w = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(pSrc + 4 * x));
    __m256i px = _mm256_setzero_si256();
    for (int f = 0; f < 3; ++f)
      px = _mm256_or_si256(
          px, _mm256_and_si256(_mm256_or_si256(_mm256_srl_epi32(w, right[f]), _mm256_sll_epi32(w, left[f])), mask[f]));
    const __m256i v = _mm256_permutevar8x32_epi32(_mm256_shuffle_epi8(px, compact), join);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(pDest + 3 * x), _mm256_castsi256_si128(v));
    _mm_storel_epi64(reinterpret_cast<__m128i*>(pDest + 3 * x + 16), _mm256_extracti128_si256(v, 1));
  }
  return x;
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

bool HasAvx2() {
  static const bool bHas = __builtin_cpu_supports("avx2");
  return bHas;
}

std::atomic<int> g_nSimdCap{int(SimdCap_All)};

bool Allowed(ESimdCap_t eLevel) { return g_nSimdCap.load(std::memory_order_relaxed) >= int(eLevel); }
bool UseVbmi() { return Allowed(SimdCap_Vbmi) && HasVbmi(); }
bool UseAvx2() { return Allowed(SimdCap_Avx2) && HasAvx2(); }

}  // namespace

size_t SimdUnpackPackedShiftLine(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nBits, unsigned nShift) {
  return UseVbmi() ? UnpackPackedShiftVbmi(pSrc, pDest, nWidth, nBits, nShift) : 0;
}
size_t SimdUnpackPackedShiftLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nBits, unsigned nShift) {
  return UseVbmi() ? UnpackPackedShiftVbmi(pSrc, pDest, nWidth, nBits, nShift) : 0;
}
size_t SimdUnpackPackedStretchLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nBits,
                                   const SStretch& f) {
  return UseVbmi() ? UnpackPackedStretchVbmi(pSrc, pDest, nWidth, nBits, f) : 0;
}
size_t SimdUnpackGvsp12ShiftLine(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, unsigned nShift) {
  return UseVbmi() ? UnpackGvsp12Vbmi(pSrc, pDest, nWidth, nShift, SKeep()) : 0;
}
size_t SimdUnpackGvsp12ShiftLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, unsigned nShift) {
  return UseVbmi() ? UnpackGvsp12Vbmi(pSrc, pDest, nWidth, nShift, SKeep()) : 0;
}
size_t SimdUnpackGvsp12StretchLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, const SStretch& f) {
  return UseVbmi() ? UnpackGvsp12StretchVbmi(pSrc, pDest, nWidth, f) : 0;
}

bool HasSsse3() {
  static const bool bHas = __builtin_cpu_supports("ssse3");
  return bHas;
}
static bool UseSsse3() { return Allowed(SimdCap_Ssse3) && HasSsse3(); }

void SetSimdCapForTesting(ESimdCap_t eCap) { g_nSimdCap.store(int(eCap), std::memory_order_relaxed); }
bool UseSimdVbmi() { return UseVbmi(); }
bool UseSimdAvx2() { return UseAvx2(); }
bool UseSimdSsse3() { return UseSsse3(); }

size_t SimdColorToMono8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nCells, bool bSrcBGROrder) {
  if (UseVbmi())
    return nCells == 3 ? ColorToMono8Vbmi3(pSrc, pDest, nWidth, bSrcBGROrder)
                       : ColorToMono8Vbmi4(pSrc, pDest, nWidth, bSrcBGROrder);
  if (nCells != 3) return 0;
  if (UseAvx2()) return ColorToMono8Avx2(pSrc, pDest, nWidth, bSrcBGROrder);
  return UseSsse3() ? BGR8ToMono8Ssse3(pSrc, pDest, nWidth, bSrcBGROrder) : 0;
}
size_t SimdUnpack10p32ShiftLine(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth, int nCells, bool bSwap,
                                unsigned nShift) {
  if (UseVbmi())
    return nCells == 3 ? Unpack10p32Vbmi3(pSrc, pDest, nWidth, bSwap, nShift)
                       : Unpack10p32Vbmi4(pSrc, pDest, nWidth, bSwap, nShift);
  return nCells == 3 && UseAvx2() ? Unpack10p32Avx2(pSrc, pDest, nWidth, bSwap, nShift) : 0;
}
size_t SimdSwapRB8Line(const uint8_t* pSrc, uint8_t* pDest, size_t nWidth) {
  return UseSsse3() ? SwapRB8Ssse3(pSrc, pDest, nWidth) : 0;
}
size_t SimdUnpack12pLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth) {
  return UseSsse3() ? Unpack12pSsse3(pSrc, pDest, nWidth) : 0;
}
size_t SimdUnpackGvspLine(const uint8_t* pSrc, uint16_t* pDest, size_t nWidth, int nLowBits) {
  if (!UseSsse3()) return 0;
  return nLowBits == 4 ? UnpackGvspSsse3<4>(pSrc, pDest, nWidth) : UnpackGvspSsse3<2>(pSrc, pDest, nWidth);
}

#else

void SetSimdCapForTesting(ESimdCap_t) {}
bool HasSsse3() { return false; }
bool UseSimdVbmi() { return false; }
bool UseSimdAvx2() { return false; }
bool UseSimdSsse3() { return false; }
size_t SimdColorToMono8Line(const uint8_t*, uint8_t*, size_t, int, bool) { return 0; }
size_t SimdUnpack10p32ShiftLine(const uint8_t*, uint8_t*, size_t, int, bool, unsigned) { return 0; }
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
