// Every vector form of the BiCubic line and column rules against the scalar
// rule, on random samples, odd and even widths around the vector lengths, and
// limits that clip; then whole BiCubic images with long odd lines against
// the independent reference.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "BayerReference.h"
#include "BayerTestImage.h"
#include "ColorInterpolation/BayerLineInterpolation.h"
#include "ColorInterpolation/BayerLineSimd.h"
#include "ColorInterpolation/ColorInterporation.h"

using namespace VyApi;

namespace {

typedef CBayerLineInterpolation<uint8_t> Interp;

std::vector<uint8_t> RandomLine(size_t n, std::mt19937& gen) {
  std::vector<uint8_t> v(n);
  for (auto& b : v) b = static_cast<uint8_t>(gen());
  return v;
}

const std::vector<unsigned> kPaths = {0, 256, 512};
const std::vector<size_t> kWidths = {7, 8, 35, 36, 37, 38, 67, 68, 69, 70, 71, 99, 131, 257, 1001};

TEST(BayerLineSimd, PairsOfEveryPathMatchTheScalarRule) {
  std::mt19937 gen(7);
  for (unsigned nBits : kPaths) {
    const CBayerLineSimd::SPath* pPath = CBayerLineSimd::Path(nBits);
    if (pPath == nullptr) continue;  // not on this processor
    for (size_t w : kWidths)
      for (unsigned q : {0u, 1u})
        for (int16_t nMax : {int16_t(255), int16_t(100)}) {
          const std::vector<uint8_t> s = RandomLine(w, gen);
          const size_t kEnd = w >= 5 + q ? (w - 5 - q) / 2 + 1 : 1;
          // Canary bytes around the written range.
          std::vector<uint8_t> out(w, 0xA5), expected(w, 0xA5);
          size_t k = pPath->pfPairs(s.data(), out.data(), w, q, 1, kEnd, nMax);
          ASSERT_LE(k, kEnd);
          for (size_t j = 1; j < k; ++j) {
            const size_t c = 2 * j + q;
            expected[c] = s[c];
            expected[c + 1] = Interp::Kernel(s[c], s[c + 2], s[c - 2], s[c + 4], nMax);
          }
          EXPECT_EQ(expected, out) << "path " << nBits << " w " << w << " q " << q << " max " << nMax;
          if (nBits != 0 && w >= 99) {
            EXPECT_GT(k, 1u) << "path " << nBits << " did nothing on w " << w;
          }
        }
  }
}

TEST(BayerLineSimd, ColumnOfEveryPathMatchesTheScalarRule) {
  std::mt19937 gen(11);
  for (unsigned nBits : kPaths) {
    const CBayerLineSimd::SPath* pPath = CBayerLineSimd::Path(nBits);
    if (pPath == nullptr) continue;
    for (size_t w : kWidths)
      for (int16_t nMax : {int16_t(255), int16_t(100)}) {
        const auto a = RandomLine(w, gen), b = RandomLine(w, gen), e = RandomLine(w, gen), f = RandomLine(w, gen);
        std::vector<uint8_t> out(w + 1, 0xA5);
        const size_t n = pPath->pfColumn(a.data(), b.data(), e.data(), f.data(), out.data(), w, nMax);
        ASSERT_LE(n, w);
        for (size_t c = 0; c < n; ++c)
          ASSERT_EQ(Interp::Kernel(a[c], b[c], e[c], f[c], nMax), out[c]) << "path " << nBits << " column " << c;
        for (size_t c = n; c <= w; ++c) ASSERT_EQ(0xA5, out[c]) << "path " << nBits << " wrote column " << c;
      }
  }
}

TEST(BayerLineSimd, LongOddLinesOfBiCubicMatchTheReference) {
  uint32_t nSeed = 300;
  for (int nFilter = 2; nFilter <= 5; ++nFilter)
    for (size_t w : {69, 133, 203})
      for (size_t h : {9, 12})
        for (bool bFlip : {false, true}) {
          const BayerTest::Shape s{w, h, nFilter, 3, nFilter % 2 == 0, bFlip, w % 3, 1, 8};
          BayerRef::Image<uint8_t> expected = BayerTest::MakeImage<uint8_t>(s, nSeed++);
          BayerRef::Image<uint8_t> actual = expected;
          BayerRef::BiCubic(expected);
          ASSERT_EQ(0u, CColorInterporation<uint8_t>::Run(BayerMethod_BiCubic, static_cast<uint32_t>(nFilter),
                                                          BayerTest::JobOf(actual)));
          ASSERT_EQ(expected.dst, actual.dst) << "filter " << nFilter << " " << w << "x" << h << (bFlip ? " flip" : "");
        }
}

}  // namespace
