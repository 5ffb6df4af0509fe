// The byte-moving line bodies (component order, alpha added or dropped, grey
// to colour) against the per-pixel rule, through the converter's kernels,
// for every instruction set's form. Destinations start at every offset of a
// 64-byte block so that both aligned and split stores run; widths sit on
// both sides of the vector steps. Alpha and line padding must come back as
// the buffer held them.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "PixelConversion/ColorToColorConversion.h"
#include "PixelConversion/MonoToColorConversion.h"
#include "PixelConversion/SimdLineKernels.h"

using namespace VyApi::PixelConversion;

namespace {

using Bytes = std::vector<uint8_t>;

const size_t kWidths[] = {1, 3, 4, 5, 7, 8, 9, 10, 15, 16, 17, 18, 31, 33, 47, 64, 65, 100, 129};
const ESimdCap_t kCaps[] = {SimdCap_All, SimdCap_Avx2, SimdCap_Ssse3, SimdCap_None};
const size_t kOffsets[] = {0, 1, 4, 12, 36, 60};
constexpr uint8_t kOld = 0xA5;

struct SCapGuard {
  ~SCapGuard() { SetSimdCapForTesting(SimdCap_All); }
};

Bytes RandomBytes(size_t n, std::mt19937& gen) {
  Bytes v(n);
  for (auto& b : v) b = uint8_t(gen());
  return v;
}

// Runs one conversion of h lines into a buffer whose first line starts at
// nOffset and checks every destination byte: colour cells from pick(src
// line, x, cell), everything else (alpha, padding, the bytes before) as it was.
template <typename Convert, typename Pick>
void Check(size_t nSrcCells, size_t nDestCells, Convert convert, Pick pick, const char* what) {
  SCapGuard guard;
  std::mt19937 gen(11);
  const size_t h = 3;
  for (ESimdCap_t cap : kCaps)
    for (size_t w : kWidths)
      for (size_t nOffset : kOffsets)
        for (bool flip : {false, true}) {
          const size_t sp = nSrcCells * w + 3, dp = nDestCells * w + 5;
          const Bytes src = RandomBytes(sp * h, gen);
          Bytes out(nOffset + dp * h, kOld);
          SetSimdCapForTesting(cap);
          convert(src.data(), sp, out.data() + nOffset, dp, w, h, flip);
          for (size_t i = 0; i < nOffset; ++i) ASSERT_EQ(out[i], kOld) << what << ": before the image";
          for (size_t y = 0; y < h; ++y) {
            const uint8_t* d = &out[nOffset + (flip ? h - 1 - y : y) * dp];
            const uint8_t* s = &src[y * sp];
            for (size_t x = 0; x < w; ++x)
              for (size_t k = 0; k < nDestCells; ++k)
                ASSERT_EQ(d[nDestCells * x + k], k < 3 ? pick(s, x, k) : kOld)
                    << what << ": cap " << cap << " w " << w << " offset " << nOffset << " x " << x << " cell " << k;
            for (size_t i = nDestCells * w; i < dp; ++i) ASSERT_EQ(d[i], kOld) << what << ": padding, w " << w;
          }
        }
}

}  // namespace

TEST(ByteMoveLines, ColourToColourMatchesTheRuleInEveryOrderAndCellCount) {
  for (size_t sc : {3, 4})
    for (size_t dc : {3, 4})
      for (bool sbgr : {false, true})
        for (bool dbgr : {false, true}) {
          const bool swap = sbgr != dbgr;
          const std::string what = std::to_string(sc) + " to " + std::to_string(dc) + (swap ? " swapped" : "");
          Check(
              sc, dc,
              [&](const uint8_t* s, size_t sp, uint8_t* d, size_t dp, size_t w, size_t h, bool flip) {
                ConverterBGRx8ToBGRx8(s, sp, sc, sbgr, d, dp, dc, dbgr, w, h, nullptr, flip);
              },
              [&](const uint8_t* s, size_t x, size_t k) { return s[sc * x + (swap && k != 1 ? 2 - k : k)]; },
              what.c_str());
        }
}

TEST(ByteMoveLines, GreyToColourFillsTheThreeCellsAndKeepsAlpha) {
  for (size_t dc : {3, 4})
    Check(
        1, dc,
        [&](const uint8_t* s, size_t sp, uint8_t* d, size_t dp, size_t w, size_t h, bool flip) {
          ConverterMonoB2BGRB_RGBB(s, sp, d, dp, dc, w, h, nullptr, flip);
        },
        [](const uint8_t* s, size_t x, size_t) { return s[x]; }, dc == 3 ? "grey to 3" : "grey to 4");
}
