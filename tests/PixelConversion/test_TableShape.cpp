// Depth tables applied as shifts or through their entries: every road must
// give what reading the entries gives, at odd widths on both sides of the
// vector lengths and with padded pitches and the flip.
#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "PixelConversion/BitStreamPacking.h"
#include "PixelConversion/GvspPacking.h"
#include "PixelConversion/Packed10p32.h"
#include "PixelConversion/RawMonoConversion.h"
#include "PixelConversion/TableShape.h"
#include "PixelConversion/VyLookUpTableManager.h"

using namespace VyApi;
using namespace VyApi::PixelConversion;

namespace {

std::vector<uint16_t> Table(size_t s, size_t d, double dGamma = 1.0) {
  std::vector<uint16_t> t(size_t(1) << s);
  CVyLookUpTableManager::FillTable(t.data(), s, d, dGamma, VyBitExpansionMode_Gamma);
  return t;
}

// The gamma-1 table, and the same with one entry off so that it must be read.
std::vector<std::vector<uint16_t>> TablesFor(size_t s, size_t d) {
  std::vector<uint16_t> a = Table(s, d), b = a;
  b[b.size() / 3] ^= 1;
  return {a, b};
}

std::vector<uint8_t> RandomBytes(size_t n, uint32_t nSeed) {
  std::mt19937 gen(nSeed);
  std::vector<uint8_t> v(n);
  for (auto& b : v) b = static_cast<uint8_t>(gen());
  return v;
}

const size_t kWidths[] = {1, 7, 31, 33, 43, 63, 65, 97, 255, 257, 1029, 2449};
constexpr size_t kHeight = 3;

TEST(TableShape, RecognisesShiftTablesOnly) {
  EXPECT_EQ(4, STableShape::Of(Table(12, 8).data(), 12).nShift);
  EXPECT_EQ(8, STableShape::Of(Table(16, 8).data(), 16).nShift);
  EXPECT_EQ(-1, STableShape::Of(Table(12, 8, 2.2).data(), 12).nShift);
  EXPECT_EQ(-1, STableShape::Of(Table(12, 16).data(), 12).nShift);  // rounding expansion
  EXPECT_EQ(-1, STableShape::Of(TablesFor(10, 8)[1].data(), 10).nShift);
  EXPECT_EQ(-1, STableShape::Of(nullptr, 12).nShift);
}

// The integer stretch against the rounded division it stands for, every value
// of every depth pair it can be made for.
TEST(TableShape, StretchIsTheRoundedDivisionEverywhere) {
  for (size_t s = 2; s < 16; ++s)
    for (size_t d = s + 1; d <= 16; ++d) {
      const SStretch f = SStretch::Make(s, d);
      ASSERT_GT(f.nLeft, 0u) << s << " to " << d;
      const uint64_t nMaxS = (uint64_t(1) << s) - 1, nMaxD = (uint64_t(1) << d) - 1;
      for (uint64_t i = 0; i <= nMaxS; ++i)
        ASSERT_EQ((i * 2 * nMaxD + nMaxS) / (2 * nMaxS), f(uint32_t(i))) << s << " to " << d << " at " << i;
    }
  EXPECT_EQ(0u, SStretch::Make(1, 8).nLeft);
  EXPECT_EQ(0u, SStretch::Make(12, 12).nLeft);
  EXPECT_EQ(0u, SStretch::Make(12, 8).nLeft);
}

TEST(TableShape, RecognisesGammaOneExpansionsAsStretches) {
  const size_t aPairs[][2] = {{8, 10}, {8, 12}, {8, 14}, {8, 16}, {10, 12}, {10, 14},
                              {10, 16}, {12, 14}, {12, 16}, {14, 16}};
  for (const auto& p : aPairs) {
    const std::vector<std::vector<uint16_t>> tables = TablesFor(p[0], p[1]);
    const STableShape a = STableShape::Of(tables[0].data(), p[0]);
    EXPECT_TRUE(a.IsStretch() && a.nShift < 0) << p[0] << " to " << p[1];
    for (uint32_t i = 0; i < tables[0].size(); ++i) ASSERT_EQ(tables[0][i], a(i)) << p[0] << " to " << p[1];
    EXPECT_FALSE(STableShape::Of(tables[1].data(), p[0]).IsComputed()) << p[0] << " to " << p[1];
  }
  EXPECT_FALSE(STableShape::Of(Table(12, 16, 2.2).data(), 12).IsComputed());
  EXPECT_FALSE(STableShape::Of(Table(12, 16, 0.45).data(), 12).IsComputed());
  // The other expansion modes are not stretches, though the shift that
  // fills with ones also ends on 2^d - 1 (and the copy is a shift by 0).
  std::vector<uint16_t> t(4096);
  for (auto eMode : {VyBitExpansionMode_LeftShiftBy1, VyBitExpansionMode_Fixed}) {
    CVyLookUpTableManager::FillTable(t.data(), 12, 16, 1.0, eMode);
    EXPECT_FALSE(STableShape::Of(t.data(), 12).IsStretch()) << eMode;
  }
}

// Reference reader of one value of a packed line.
uint32_t PackedValue(const uint8_t* p, size_t x, size_t nBits, bool bGvsp) {
  if (bGvsp) {
    const unsigned s = unsigned(nBits - 8);
    const uint8_t* q = p + x / 2 * 3;
    return x & 1 ? (uint32_t(q[2]) << s) | (q[1] & ((1u << s) - 1))
                 : (uint32_t(q[0]) << s) | ((q[1] >> 4) & ((1u << s) - 1));
  }
  uint32_t v = 0;
  for (size_t b = 0; b < nBits; ++b) {
    const size_t nBit = x * nBits + b;
    v |= uint32_t((p[nBit / 8] >> (nBit % 8)) & 1) << b;
  }
  return v;
}

template <typename Y>
void CheckPacked(bool bGvsp, size_t nSrcBits, size_t nDestBits) {
  uint32_t nSeed = 1;
  for (const auto& table : TablesFor(nSrcBits, nDestBits))
    for (size_t w : kWidths)
      for (bool bFlip : {false, true}) {
        const size_t nSrcPitch = (bGvsp ? w / 2 * 3 + (w & 1) * 2 : (w * nSrcBits + 7) / 8) + 5;
        const size_t nDestPitch = w + 3;  // in cells
        const std::vector<uint8_t> src = RandomBytes(nSrcPitch * kHeight, nSeed++);
        std::vector<Y> dst(nDestPitch * kHeight, Y(0x5A)), expected = dst;
        for (size_t y = 0; y < kHeight; ++y) {
          const uint8_t* p = src.data() + y * nSrcPitch;
          Y* pOut = expected.data() + (bFlip ? kHeight - 1 - y : y) * nDestPitch;
          for (size_t x = 0; x < w; ++x) pOut[x] = static_cast<Y>(table[PackedValue(p, x, nSrcBits, bGvsp)]);
        }
        if (bGvsp)
          ConverterGEVPackedToUnpacked(src.data(), nSrcPitch, dst.data(), nDestPitch * sizeof(Y), w, kHeight,
                                       nSrcBits, nDestBits, table.data(), bFlip);
        else
          ConverterPackedToUnpacked(src.data(), nSrcPitch, dst.data(), nDestPitch * sizeof(Y), w, kHeight, nSrcBits,
                                    nDestBits, table.data(), bFlip);
        ASSERT_EQ(expected, dst) << (bGvsp ? "GVSP " : "packed ") << nSrcBits << " w " << w << " to " << nDestBits
                                 << (bFlip ? " flip" : "");
      }
}

TEST(TableShapeRoads, Mono12pAndGvspThroughShiftOrEntries) {
  CheckPacked<uint8_t>(false, 12, 8);
  CheckPacked<uint16_t>(false, 12, 10);
  CheckPacked<uint16_t>(false, 12, 16);  // gamma-1 expansion: a stretch
  CheckPacked<uint8_t>(true, 12, 8);
  CheckPacked<uint16_t>(true, 12, 11);
  CheckPacked<uint16_t>(true, 12, 16);
}

TEST(TableShapeRoads, Mono10pAndGvspThroughShiftStretchOrEntries) {
  CheckPacked<uint8_t>(false, 10, 8);
  CheckPacked<uint16_t>(false, 10, 12);
  CheckPacked<uint16_t>(false, 10, 16);
  CheckPacked<uint16_t>(true, 10, 16);
}

TEST(TableShapeRoads, ExpansionsToOtherDepthsThroughStretchOrEntries) {
  CheckPacked<uint16_t>(false, 12, 14);
  CheckPacked<uint16_t>(true, 12, 14);
  CheckPacked<uint8_t>(false, 4, 8);  // a stretch into 8-bit cells, no vector body
}

template <typename X>
void CheckRawExpansion(size_t nSrcBits, size_t nDestBits) {
  std::mt19937 gen(uint32_t(7 + nSrcBits * 17 + nDestBits));
  for (const auto& table : TablesFor(nSrcBits, nDestBits))
    for (size_t w : kWidths)
      for (bool bFlip : {false, true}) {
        const size_t nSrcPitch = w + 5, nDestPitch = w + 3;  // in cells
        std::vector<X> src(nSrcPitch * kHeight);
        for (auto& v : src) v = static_cast<X>(gen() & ((1u << nSrcBits) - 1));
        std::vector<uint16_t> dst(nDestPitch * kHeight, 0x5A5A), expected = dst;
        for (size_t y = 0; y < kHeight; ++y)
          for (size_t x = 0; x < w; ++x)
            expected[(bFlip ? kHeight - 1 - y : y) * nDestPitch + x] = table[src[y * nSrcPitch + x]];
        if (sizeof(X) == 1)
          ConverterRawMono8ToRawMono16(src.data(), nSrcPitch, dst.data(), 2 * nDestPitch, w, kHeight, nSrcBits,
                                       table.data(), bFlip);
        else
          ConverterRawMono16ToRawMono16(src.data(), 2 * nSrcPitch, dst.data(), 2 * nDestPitch, w, kHeight,
                                        nSrcBits, table.data(), bFlip);
        ASSERT_EQ(expected, dst) << nSrcBits << " w " << w << " to " << nDestBits << (bFlip ? " flip" : "");
      }
}

TEST(TableShapeRoads, RawExpansionsThroughStretchOrEntries) {
  CheckRawExpansion<uint8_t>(8, 16);
  CheckRawExpansion<uint8_t>(8, 10);
  CheckRawExpansion<uint16_t>(12, 16);
  CheckRawExpansion<uint16_t>(10, 14);
  CheckRawExpansion<uint16_t>(14, 16);
}

TEST(TableShapeRoads, Raw16ToRaw8ThroughShiftOrEntries) {
  std::mt19937 gen(5);
  for (const auto& table : TablesFor(12, 8))
    for (size_t w : kWidths) {
      std::vector<uint16_t> src(w * kHeight);
      for (auto& v : src) v = static_cast<uint16_t>(gen() & 0xFFF);
      std::vector<uint8_t> dst(w * kHeight), expected(w * kHeight);
      for (size_t i = 0; i < src.size(); ++i) expected[i] = static_cast<uint8_t>(table[src[i]]);
      ConverterRawMono16ToRawMono8(src.data(), 2 * w, dst.data(), w, w, kHeight, 12, table.data(), false);
      ASSERT_EQ(expected, dst) << "w " << w;
    }
}

TEST(TableShapeRoads, Rgb10p32ToBgr8ThroughShiftOrEntries) {
  std::mt19937 gen(6);
  for (const auto& table : TablesFor(10, 8))
    for (size_t w : {1, 17, 63}) {
      std::vector<uint32_t> src(w);
      for (auto& v : src) v = gen() & 0x3FFFFFFF;
      std::vector<uint8_t> dst(3 * w), expected(3 * w);
      for (size_t x = 0; x < w; ++x)
        for (int c = 0; c < 3; ++c) expected[3 * x + 2 - c] = static_cast<uint8_t>(table[(src[x] >> (10 * c)) & 0x3FF]);
      ConverterBGR10p32ToBGRx8(src.data(), 4 * w, false, dst.data(), 3 * w, 3, true, w, 1, table.data(), false);
      ASSERT_EQ(expected, dst) << "w " << w;
    }
}

}  // namespace
