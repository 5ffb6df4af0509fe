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

template <typename Y>
void CheckPacked12(bool bGvsp, size_t nDestBits) {
  uint32_t nSeed = 1;
  for (const auto& table : TablesFor(12, nDestBits))
    for (size_t w : kWidths)
      for (bool bFlip : {false, true}) {
        const size_t nSrcPitch = (bGvsp ? w / 2 * 3 + (w & 1) * 2 : (w * 12 + 7) / 8) + 5;
        const size_t nDestPitch = w + 3;  // in cells
        const std::vector<uint8_t> src = RandomBytes(nSrcPitch * kHeight, nSeed++);
        std::vector<Y> dst(nDestPitch * kHeight, Y(0x5A)), expected = dst;
        for (size_t y = 0; y < kHeight; ++y) {
          const uint8_t* p = src.data() + y * nSrcPitch;
          Y* pOut = expected.data() + (bFlip ? kHeight - 1 - y : y) * nDestPitch;
          for (size_t x = 0; x < w; ++x) {
            const uint8_t* q = p + x / 2 * 3;
            uint32_t v;
            if (bGvsp)
              v = x & 1 ? (uint32_t(q[2]) << 4) | (q[1] & 0xF) : (uint32_t(q[0]) << 4) | (q[1] >> 4);
            else
              v = x & 1 ? (uint32_t(q[1]) >> 4) | (uint32_t(q[2]) << 4) : q[0] | ((uint32_t(q[1]) & 0xF) << 8);
            pOut[x] = static_cast<Y>(table[v]);
          }
        }
        if (bGvsp)
          ConverterGEVPackedToUnpacked(src.data(), nSrcPitch, dst.data(), nDestPitch * sizeof(Y), w, kHeight, 12,
                                       nDestBits, table.data(), bFlip);
        else
          ConverterPackedToUnpacked(src.data(), nSrcPitch, dst.data(), nDestPitch * sizeof(Y), w, kHeight, 12,
                                    nDestBits, table.data(), bFlip);
        ASSERT_EQ(expected, dst) << (bGvsp ? "GVSP" : "12p") << " w " << w << " to " << nDestBits
                                 << (bFlip ? " flip" : "");
      }
}

TEST(TableShapeRoads, Mono12pAndGvspThroughShiftOrEntries) {
  CheckPacked12<uint8_t>(false, 8);
  CheckPacked12<uint16_t>(false, 10);
  CheckPacked12<uint16_t>(false, 16);
  CheckPacked12<uint8_t>(true, 8);
  CheckPacked12<uint16_t>(true, 11);
  CheckPacked12<uint16_t>(true, 16);
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
