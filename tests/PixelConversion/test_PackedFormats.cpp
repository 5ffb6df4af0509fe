#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "PixelConversion/BitStreamPacking.h"
#include "PixelConversion/ColorBitStreamPacking.h"
#include "PixelConversion/GvspPacking.h"
#include "PixelConversion/Packed10p32.h"
#include "PixelConversion/SharedTableHolder.h"
#include "PixelConversion/VyLookUpTableManager.h"

using namespace VyApi;
using namespace VyApi::PixelConversion;

namespace {

using Bytes = std::vector<uint8_t>;
using Words = std::vector<uint16_t>;

Words Iota16(size_t n) {
  Words t(n);
  for (size_t i = 0; i < n; ++i) t[i] = uint16_t(i);
  return t;
}

/// Reference reader of an LSB-first stream, bit by bit.
uint32_t StreamBits(const uint8_t* p, size_t nBit, size_t n) {
  uint32_t v = 0;
  for (size_t k = 0; k < n; ++k) v |= uint32_t((p[(nBit + k) / 8] >> ((nBit + k) % 8)) & 1) << k;
  return v;
}

Bytes PackW(const Words& v, size_t nBits, size_t nWidth, size_t nHeight, size_t nPitch) {
  Bytes out(nPitch * nHeight, 0xEE);
  ConverterUnpackedToPackedW(v.data(), nWidth * 2, out.data(), nPitch, nWidth, nHeight, nBits, nBits, nullptr, false);
  return out;
}

Words UnpackW(const Bytes& b, size_t nBits, size_t nWidth, size_t nHeight, size_t nPitch) {
  Words out(nWidth * nHeight, 0xEEEE);
  ConverterPackedToUnpacked(b.data(), nPitch, out.data(), nWidth * 2, nWidth, nHeight, nBits, nBits, nullptr, false);
  return out;
}

}  // namespace

// ---------------------------------------------------------------- bit streams

TEST(BitStreamLayout, Mono10pBytesOfTheWireFormat) {
  const Words v = {0x3FF, 0, 0x155, 0x2AA};
  EXPECT_EQ(PackW(v, 10, 4, 1, 5), (Bytes{0xFF, 0x03, 0x50, 0x95, 0xAA}));
  EXPECT_EQ(UnpackW(Bytes{0xFF, 0x03, 0x50, 0x95, 0xAA}, 10, 4, 1, 5), v);
}

TEST(BitStreamLayout, Mono12pBytesOfTheWireFormat) {
  EXPECT_EQ(PackW(Words{0xABC, 0x123}, 12, 2, 1, 3), (Bytes{0xBC, 0x3A, 0x12}));
  EXPECT_EQ(UnpackW(Bytes{0xBC, 0x3A, 0x12}, 12, 2, 1, 3), (Words{0xABC, 0x123}));
}

TEST(BitStreamLayout, Mono14pGroupOfFourInSevenBytes) {
  const Words v = {0x3FFF, 0x0001, 0x2000, 0x1555};
  const Bytes b = PackW(v, 14, 4, 1, 7);
  // p0[7:0] | p1[1:0] p0[13:8] | p1[9:2] | p2[3:0] p1[13:10] | p2[11:4] | p3[5:0] p2[13:12] | p3[13:6]
  EXPECT_EQ(b, (Bytes{0xFF, 0x7F, 0x00, 0x00, 0x00, 0x56, 0x55}));
  EXPECT_EQ(UnpackW(b, 14, 4, 1, 7), v);
}

TEST(BitStreamLayout, SubBytePixelsStartAtTheLowBits) {
  EXPECT_EQ(PackW(Words{1, 0, 0, 0, 0, 0, 0, 1, 1}, 1, 9, 1, 2), (Bytes{0x81, 0x01}));
  EXPECT_EQ(PackW(Words{3, 0, 1, 2}, 2, 4, 1, 1), (Bytes{0x93}));
  // Width 3 in Mono4p: p1 p0, then 0 p2 (upper nibble of the last byte 0).
  EXPECT_EQ(PackW(Words{0x1, 0x2, 0x3}, 4, 3, 1, 2), (Bytes{0x21, 0x03}));
  EXPECT_EQ(UnpackW(Bytes{0x21, 0x03}, 4, 3, 1, 2), (Words{1, 2, 3}));
}

TEST(BitStreamLayout, EachLineStartsOnItsOwnPitchAndTheStreamDoesNotRunOn) {
  // Two lines of three 10-bit pixels (30 bits: 4 bytes), pitch 6.
  const Words v = {0x3FF, 0x3FF, 0x3FF, 0x001, 0x002, 0x003};
  const Bytes b = PackW(v, 10, 3, 2, 6);
  EXPECT_EQ(b[3], 0x3F);    // the partial last byte has its upper bits 0
  EXPECT_EQ(b[4], 0xEE);    // the pitch's padding is not written
  EXPECT_EQ(b[6], 0x01);    // line 1 starts at the pitch
  EXPECT_EQ(UnpackW(b, 10, 3, 2, 6), v);
}

TEST(BitStreamRoundTrip, MatchesABitByBitReaderAtEveryDepthAndOddWidth) {
  std::mt19937 rng(7);
  for (size_t nBits : {1u, 2u, 4u, 10u, 12u, 14u}) {
    for (size_t nWidth : {1u, 3u, 7u, 33u, 131u}) {
      const size_t nHeight = 3;
      const size_t nPitch = (nWidth * nBits + 7) / 8 + 1;
      Words v(nWidth * nHeight);
      for (auto& x : v) x = uint16_t(rng() & ((1u << nBits) - 1));
      const Bytes b = PackW(v, nBits, nWidth, nHeight, nPitch);
      for (size_t y = 0; y < nHeight; ++y)
        for (size_t x = 0; x < nWidth; ++x)
          ASSERT_EQ(StreamBits(b.data() + y * nPitch, x * nBits, nBits), v[y * nWidth + x])
              << nBits << " bits, width " << nWidth << ", pixel " << x;
      ASSERT_EQ(UnpackW(b, nBits, nWidth, nHeight, nPitch), v) << nBits << " bits, width " << nWidth;
    }
  }
}

TEST(BitStreamDepthChange, ReaderMapsThroughTheTableIntoEightOrSixteenBitCells) {
  CVyLookUpTableManager m;
  const Bytes b = {0xBC, 0x3A, 0x12};  // Mono12p 0xABC, 0x123
  {
    CSharedTableHolder t(m, 12, 8);
    Bytes out(2);
    ConverterPackedToUnpacked(b.data(), 3, out.data(), 2, 2, 1, 12, 8, t.Get(), false);
    EXPECT_EQ(out, (Bytes{0xAB, 0x12}));
  }
  {
    CSharedTableHolder t(m, 12, 16);
    Words out(2);
    ConverterPackedToUnpacked(b.data(), 3, out.data(), 4, 2, 1, 12, 16, t.Get(), false);
    EXPECT_EQ(out[0], uint16_t(0xABC * 65535.0 / 4095 + 0.5));
  }
}

TEST(BitStreamDepthChange, WriterFrom8BitsThroughTheTable) {
  CVyLookUpTableManager m;
  m.m_eBitExpansionMode = VyBitExpansionMode_LeftShiftBy0;
  CSharedTableHolder t(m, 8, 12);
  const Bytes src = {0xAB, 0x12};
  Bytes out(3);
  ConverterUnpackedToPacked8(src.data(), 2, out.data(), 3, 2, 1, 8, 12, t.Get(), false);
  EXPECT_EQ(out, (Bytes{0xB0, 0x0A, 0x12}));  // 0xAB0, 0x120
  // Equal depths write eight bits a pixel, unchanged.
  ConverterUnpackedToPacked8(src.data(), 2, out.data(), 3, 2, 1, 8, 8, nullptr, false);
  EXPECT_EQ(out[0], 0xAB);
  EXPECT_EQ(out[1], 0x12);
}

TEST(BitStreamFlip, FirstSourceLineLandsOnTheLastDestinationLine) {
  const Bytes b = {0xBC, 0x3A, 0x12, 0x01, 0x20, 0x00};  // line 0: ABC 123, line 1: 001 002
  Words out(4);
  ConverterPackedToUnpacked(b.data(), 3, out.data(), 4, 2, 2, 12, 12, nullptr, true);
  EXPECT_EQ(out, (Words{0x001, 0x002, 0xABC, 0x123}));
  Bytes back(6);
  ConverterUnpackedToPackedW(out.data(), 4, back.data(), 3, 2, 2, 12, 12, nullptr, true);
  EXPECT_EQ(back, b);
}

TEST(BitStreamDeath, ImpossibleDestinationDepthAsserts) {
  const Bytes b = {0xBC, 0x3A, 0x12};
  Words out(2);
  const Words t = Iota16(4096);
  EXPECT_DEATH(ConverterPackedToUnpacked(b.data(), 3, out.data(), 4, 2, 1, 12, 7, t.data(), false), "false");
}

// ----------------------------------------------------------------------- GVSP

TEST(GvspLayout, WriterAndReaderAreDeliberatelyNotMirrored) {
  Words t(256, 0);
  t[1] = 0xABC;
  t[2] = 0x123;
  const Bytes src = {1, 2};
  Bytes packed(3);
  ConverterUnpackedBToGevPacked(src.data(), 2, packed.data(), 3, 2, 1, 12, t.data(), false);
  EXPECT_EQ(packed, (Bytes{0xAB, 0x3C, 0x12}));
  Words back(2);
  ConverterGEVPackedToUnpacked(packed.data(), 3, back.data(), 4, 2, 1, 12, 12, nullptr, false);
  EXPECT_EQ(back, (Words{0xAB3, 0x12C}));
}

TEST(GvspLayout, TenBitPairsUseTwoLowBits) {
  // v0 = 0x2F5 (b0 0xBD, low 01), v1 = 0x0CE (b2 0x33, low 10).
  const Bytes b = {0xBD, 0x12, 0x33};
  Words out(2);
  ConverterGEVPackedToUnpacked(b.data(), 3, out.data(), 4, 2, 1, 10, 10, nullptr, false);
  EXPECT_EQ(out, (Words{(0xBD << 2) | 0x1, (0x33 << 2) | 0x2}));
  Words t(256, 0);
  t[0] = 0x2F5;
  t[1] = 0x0CE;
  const Bytes src = {0, 1};
  Bytes packed(3);
  ConverterUnpackedBToGevPacked(src.data(), 2, packed.data(), 3, 2, 1, 10, t.data(), false);
  EXPECT_EQ(packed, (Bytes{0xBD, 0x21, 0x33}));
}

TEST(GvspLayout, OddWidthEndsWithTwoBytes) {
  Words t(256, 0);
  t[5] = 0xABC;
  const Bytes src = {5, 5, 5};
  Bytes packed(6, 0xEE);
  ConverterUnpackedBToGevPacked(src.data(), 3, packed.data(), 6, 3, 1, 12, t.data(), false);
  EXPECT_EQ(packed, (Bytes{0xAB, 0xCC, 0xAB, 0xAB, 0x0C, 0xEE}));
  Words out(3);
  ConverterGEVPackedToUnpacked(packed.data(), 6, out.data(), 6, 3, 1, 12, 12, nullptr, false);
  EXPECT_EQ(out, (Words{0xABC, 0xABC, 0xAB0}));  // the odd pixel reads its low bits from the high nibble
}

TEST(GvspLayout, ReaderAgreesWithTheFormulaOnLongLinesAndThroughTables) {
  std::mt19937 rng(3);
  const size_t nWidth = 101, nHeight = 2, nPitch = 153;
  Bytes b(nPitch * nHeight);
  for (auto& x : b) x = uint8_t(rng());
  CVyLookUpTableManager m;
  m.m_dGammaValue = 0.5;
  for (size_t nBits : {10u, 12u}) {
    const unsigned s = unsigned(nBits - 8), mask = (1u << s) - 1;
    CSharedTableHolder t8(m, nBits, 8);
    Words out16(nWidth * nHeight);
    Bytes out8(nWidth * nHeight);
    ConverterGEVPackedToUnpacked(b.data(), nPitch, out16.data(), nWidth * 2, nWidth, nHeight, nBits, nBits, nullptr,
                                 true);
    ConverterGEVPackedToUnpacked(b.data(), nPitch, out8.data(), nWidth, nWidth, nHeight, nBits, 8, t8.Get(), false);
    for (size_t y = 0; y < nHeight; ++y) {
      const uint8_t* p = b.data() + y * nPitch;
      for (size_t x = 0; x < nWidth; ++x) {
        const uint8_t* g = p + 3 * (x / 2);
        const uint32_t v = (x & 1) ? (uint32_t(g[2]) << s) | (g[1] & mask)
                                   : (uint32_t(g[0]) << s) | ((g[1] >> 4) & mask);
        ASSERT_EQ(out16[(nHeight - 1 - y) * nWidth + x], v) << nBits << " bits, x " << x;
        ASSERT_EQ(out8[y * nWidth + x], t8.Get()[v]) << nBits << " bits, x " << x;
      }
    }
  }
}

// ------------------------------------------------------- colour bit streams

TEST(ColorBitStream, ComponentsFormOneStreamInMemoryOrder) {
  // BGR10p, two pixels: B0 G0 R0 B1 G1 R1 at bits 0, 10, 20, 30, 40, 50.
  const Words bgr = {0x001, 0x002, 0x3FF, 0x155, 0x2AA, 0x3FF};
  Bytes packed(8, 0xEE);
  ConverterBGRxToBGRXp_16_16(bgr.data(), 12, 3, true, packed.data(), 8, 10, true, 2, 1, nullptr, false);
  for (size_t j = 0; j < 6; ++j) EXPECT_EQ(StreamBits(packed.data(), j * 10, 10), bgr[j]) << j;
  EXPECT_EQ(packed[7], 0x0F);  // the last 16-bit word is written whole, high bits 0

  // Read into RGBa16: order exchanged, alpha untouched.
  Words rgba(8, 0x7777);
  ConverterBGRpxToBGRX_16_16(packed.data(), 8, 10, true, rgba.data(), 16, 4, false, 2, 1, nullptr, false);
  EXPECT_EQ(rgba, (Words{0x3FF, 0x002, 0x001, 0x7777, 0x3FF, 0x2AA, 0x155, 0x7777}));
}

TEST(ColorBitStream, TwelveBitRgbFromEightBitsThroughTheTableAndBack) {
  CVyLookUpTableManager m;
  const Bytes bgr = {10, 20, 30, 255, 0, 128, 1, 2, 3};  // BGR8, width 3
  CSharedTableHolder up(m, 8, 12);
  // Width 3 is 108 bits: six full words and a 12-bit partial one.
  Bytes packed(15, 0xEE);
  ConverterBGRxToBGRXp_8_16(bgr.data(), 9, 3, true, packed.data(), 14, 12, false, 3, 1, up.Get(), false);
  EXPECT_EQ(StreamBits(packed.data(), 0, 12), up.Get()[30]);  // RGB12p: red first
  EXPECT_EQ(StreamBits(packed.data(), 12, 12), up.Get()[20]);
  EXPECT_EQ(StreamBits(packed.data(), 24, 12), up.Get()[10]);
  EXPECT_EQ(packed[14], 0xEE);  // 14-byte pitch: nothing beyond the stream's last byte
  CSharedTableHolder down(m, 12, 8);
  Bytes back(9);
  ConverterBGRpxToBGRX_16_8(packed.data(), 14, 12, false, back.data(), 9, 3, true, 3, 1, down.Get(), false);
  EXPECT_EQ(back, bgr);
}

TEST(ColorBitStream, PartialWordKeepsItsZeroHighByteOnlyWhereThePitchHasRoom) {
  const Words bgr = {0xFFF, 0xFFF, 0xFFF};  // 36 bits: two words and a 4-bit rest
  Bytes packed(6, 0xEE);
  ConverterBGRxToBGRXp_16_16(bgr.data(), 6, 3, true, packed.data(), 6, 12, true, 1, 1, nullptr, false);
  EXPECT_EQ(packed, (Bytes{0xFF, 0xFF, 0xFF, 0xFF, 0x0F, 0x00}));
  Bytes tight(6, 0xEE);
  ConverterBGRxToBGRXp_16_16(bgr.data(), 6, 3, true, tight.data(), 5, 12, true, 1, 1, nullptr, false);
  EXPECT_EQ(tight, (Bytes{0xFF, 0xFF, 0xFF, 0xFF, 0x0F, 0xEE}));
}

// ------------------------------------------------------------ 10 bits in 32

TEST(Packed10p32, FieldOrderOfRgbAndCustomBgr) {
  const Words bgr = {0x001, 0x155, 0x3FF};  // B, G, R
  uint32_t w = 0xFFFFFFFF;
  ConverterBGRx16ToBGR10p(bgr.data(), 6, 3, true, &w, 4, false, 1, 1, nullptr, false);
  EXPECT_EQ(w, 0x3FFu | (0x155u << 10) | (0x001u << 20));  // RGB10p32: red low, bits 31:30 zero
  ConverterBGRx16ToBGR10p(bgr.data(), 6, 3, true, &w, 4, true, 1, 1, nullptr, false);
  EXPECT_EQ(w, 0x001u | (0x155u << 10) | (0x3FFu << 20));  // CBGR10p32: blue low

  Words back(4, 0x7777);
  ConverterBGR10pToBGRx16(&w, 4, true, back.data(), 8, 4, false, 1, 1, nullptr, false);
  EXPECT_EQ(back, (Words{0x3FF, 0x155, 0x001, 0x7777}));  // into RGBa: alpha untouched
}

TEST(Packed10p32, WritingFromRgb8StretchesThroughTheTable) {
  CVyLookUpTableManager m;  // gamma 1.0, mode Gamma
  CSharedTableHolder t(m, 8, 10);
  const Bytes rgb = {255, 0, 128};
  uint32_t w = 0;
  ConverterBGRx8ToBGR10p(rgb.data(), 3, 3, false, &w, 4, false, 1, 1, t.Get(), false);
  EXPECT_EQ(w & 0x3FF, 1023u);
  EXPECT_EQ((w >> 10) & 0x3FF, 0u);
  EXPECT_EQ(w >> 20, 514u);  // 128/255*1023 + 0.5 = 514.0
}

TEST(Packed10p32, ReadingToEightBitsWithFlipAndOddWidth) {
  CVyLookUpTableManager m;
  CSharedTableHolder t(m, 10, 8);
  const std::vector<uint32_t> src = {0x3FFu | (4u << 10) | (8u << 20), 0, 0, 16u << 20, 0, 0};  // 3 x 2
  Bytes bgr(18, 0);
  ConverterBGR10p32ToBGRx8(src.data(), 12, false, bgr.data(), 9, 3, true, 3, 2, t.Get(), true);
  EXPECT_EQ(bgr[9], 2);     // first source line, first pixel, lands on the last line: B = 8 >> 2
  EXPECT_EQ(bgr[10], 1);    // G = 4 >> 2
  EXPECT_EQ(bgr[11], 255);  // R
  EXPECT_EQ(bgr[0], 4);     // second source line lands on line 0: B = 16 >> 2
}
