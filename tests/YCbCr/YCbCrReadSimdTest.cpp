// The vector YCbCr readers against the per-pixel rule. Exhaustively: every
// (Y, Cb, Cr) byte triple through each table family's 4:2:2 reader, to both
// pixel steps and orders and to mono. Then every layout with random bytes,
// widths with partial groups and lines shorter than one vector step, padded
// pitches and the flip, alpha and padding left as the buffer held them.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "ColorInterpolation/YCbCrLayout.h"
#include "ColorInterpolation/YCbCrReadSimd.h"
#include "ColorInterpolation/YCbCrToBGRKernel.h"

using namespace VyApi;

namespace {

using Bytes = std::vector<uint8_t>;
constexpr uint8_t kOld = 0xC3;

struct SEnableGuard {
  ~SEnableGuard() { SetYCbCrSimdForTesting(true); }
};

using Kernel = void (*)(const uint8_t*, size_t, uint8_t*, size_t, size_t, size_t, bool, const SYCbCrReadTable&);

// Runs a kernel with the vector form on and off over the same source and
// destination bytes; the results must be the same bytes.
void ExpectSameBothWays(Kernel k, const Bytes& src, size_t sp, size_t dp, size_t w, size_t h, bool flip,
                        const SYCbCrReadTable& t, const char* what) {
  SEnableGuard guard;
  Bytes a(dp * h, kOld), b(dp * h, kOld);
  SetYCbCrSimdForTesting(true);
  k(src.data(), sp, a.data(), dp, w, h, flip, t);
  SetYCbCrSimdForTesting(false);
  k(src.data(), sp, b.data(), dp, w, h, flip, t);
  for (size_t i = 0; i < a.size(); ++i)
    ASSERT_EQ(a[i], b[i]) << what << ": byte " << i << " (line " << i / dp << ", width " << w << ")";
}

template <class L>
void CheckLayoutRandom(const char* name) {
  std::mt19937 gen(3);
  const SYCbCrReadTable* tables[] = {&pnYCrCbConvTable, &pnYCrCbConvTable601, &pnYCrCbConvTable709};
  for (const SYCbCrReadTable* t : tables)
    for (size_t w : {1, 2, 3, 5, 8, 15, 16, 17, 31, 32, 33, 63, 64, 65, 100, 129})
      for (bool flip : {false, true}) {
        const size_t h = 3, sp = L::LineBytes(w) + 5;
        Bytes src(sp * h);
        for (auto& x : src) x = uint8_t(gen());
        ExpectSameBothWays(YCbCrToColorKernel<L, 3, true>, src, sp, 3 * w + 7, w, h, flip, *t, name);
        ExpectSameBothWays(YCbCrToColorKernel<L, 3, false>, src, sp, 3 * w + 7, w, h, flip, *t, name);
        ExpectSameBothWays(YCbCrToColorKernel<L, 4, true>, src, sp, 4 * w + 6, w, h, flip, *t, name);
        ExpectSameBothWays(YCbCrToColorKernel<L, 4, false>, src, sp, 4 * w + 6, w, h, flip, *t, name);
        ExpectSameBothWays(YCbCrToMonoKernel<L>, src, sp, w + 3, w, h, flip, *t, name);
      }
}

}  // namespace

TEST(YCbCrReadSimd, ThePlainLumaRowIsTheByteInTableUnits) {
  // The vector form shifts instead of fetching this row.
  for (int i = 0; i < 256; ++i) ASSERT_EQ(pnYCrCbConvTable.m_anRow[0][i], i << YCbCrFractionBits) << i;
}

TEST(YCbCrReadSimd, EveryByteTripleGivesTheRulesPixelInEveryFamily) {
  // One line per (Cb, Cr): 256 groups whose first luma runs through every
  // byte and whose second runs backwards.
  using L = TYCbCrLayout<YCbCrSubsampling_422, false>;
  const size_t w = 512, h = 256;
  Bytes src(4 * 256 * h);
  const SYCbCrReadTable* tables[] = {&pnYCrCbConvTable, &pnYCrCbConvTable601, &pnYCrCbConvTable709};
  for (const SYCbCrReadTable* t : tables)
    for (int cb = 0; cb < 256; ++cb) {
      for (size_t cr = 0; cr < h; ++cr)
        for (size_t g = 0; g < 256; ++g) {
          uint8_t* p = &src[4 * (256 * cr + g)];
          p[L::Y(0)] = uint8_t(g);
          p[L::Y(1)] = uint8_t(255 - g);
          p[L::nCb] = uint8_t(cb);
          p[L::nCr] = uint8_t(cr);
        }
      ExpectSameBothWays(YCbCrToColorKernel<L, 4, true>, src, 4 * 256, 4 * w, w, h, false, *t, "4:2:2 to BGRa8");
      ExpectSameBothWays(YCbCrToColorKernel<L, 3, false>, src, 4 * 256, 3 * w, w, h, false, *t, "4:2:2 to RGB8");
      if (cb == 0) ExpectSameBothWays(YCbCrToMonoKernel<L>, src, 4 * 256, w, w, h, false, *t, "4:2:2 to Mono8");
    }
}

TEST(YCbCrReadSimd, EveryLayoutMatchesTheRuleOnRandomLines) {
  CheckLayoutRandom<TYCbCrLayout<YCbCrSubsampling_444, true>>("4:4:4 Cb first");
  CheckLayoutRandom<TYCbCrLayout<YCbCrSubsampling_444, false>>("4:4:4");
  CheckLayoutRandom<TYCbCrLayout<YCbCrSubsampling_422, true>>("4:2:2 Cb first");
  CheckLayoutRandom<TYCbCrLayout<YCbCrSubsampling_422, false>>("4:2:2");
  CheckLayoutRandom<TYCbCrLayout<YCbCrSubsampling_411, true>>("4:1:1 Cb first");
  CheckLayoutRandom<TYCbCrLayout<YCbCrSubsampling_411, false>>("4:1:1");
}
