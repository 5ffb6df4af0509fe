#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "PixelConversion/ColorToColorConversion.h"
#include "PixelConversion/ColorToMonoConversion.h"
#include "PixelConversion/MonoToColorConversion.h"
#include "PixelConversion/PlanarConversion.h"
#include "PixelConversion/RawMonoConversion.h"
#include "PixelConversion/SharedTableHolder.h"
#include "PixelConversion/VyLookUpTableManager.h"

using namespace VyApi;
using namespace VyApi::PixelConversion;

namespace {
using Bytes = std::vector<uint8_t>;
using Words = std::vector<uint16_t>;
}  // namespace

// ------------------------------------------------------------- colour to mono

TEST(MonoFromColor, WeightsQuarterFiveEighthsEighthTruncated) {
  const Bytes px = {10, 20, 30};  // B G R in BGR8
  uint8_t m = 0;
  ConverterBGR8ToMono8(px.data(), 3, 3, true, &m, 1, 1, 1, nullptr, false);
  EXPECT_EQ(m, 21);  // ((2*20 + 30) * 2 + 20 + 10) >> 3
  ConverterBGR8ToMono8(px.data(), 3, 3, false, &m, 1, 1, 1, nullptr, false);
  EXPECT_EQ(m, 18);  // the same bytes read as RGB8: R = 10, B = 30
  const Bytes white = {255, 255, 255, 0};
  ConverterBGR8ToMono8(white.data(), 4, 4, true, &m, 1, 1, 1, nullptr, false);
  EXPECT_EQ(m, 255);
}

TEST(MonoFromColor, DeepSourcesCopyAtEqualDepthAndMapLuminanceOnceOtherwise) {
  const Words bgr16 = {1000, 2000, 4000, 9, 60000, 65535, 65535, 7};  // BGRa16, width 2
  Words mono(2);
  ConverterBGR16ToMono16(bgr16.data(), 16, 4, true, mono.data(), 4, 2, 1, nullptr, false);
  EXPECT_EQ(mono[0], ((2 * 2000 + 4000) * 2 + 2000 + 1000) >> 3);
  EXPECT_EQ(mono[1], ((2u * 65535 + 65535) * 2 + 65535 + 60000) >> 3);  // 32-bit arithmetic

  CVyLookUpTableManager m;
  m.m_dGammaValue = 2.0;
  CSharedTableHolder t(m, 12, 10);  // BGR12 to Mono10
  const Words bgr12 = {100, 2000, 4095};
  ConverterBGR16ToMono16(bgr12.data(), 6, 3, true, mono.data(), 2, 1, 1, t.Get(), false);
  EXPECT_EQ(mono[0], t.Get()[((2 * 2000 + 4095) * 2 + 2000 + 100) >> 3]);

  CSharedTableHolder t8(m, 12, 8);
  uint8_t m8 = 0;
  ConverterBGR16ToMono8(bgr12.data(), 6, 3, false, &m8, 1, 1, 1, t8.Get(), false);
  EXPECT_EQ(m8, t8.Get()[((2 * 2000 + 100) * 2 + 2000 + 4095) >> 3]);
}

// ------------------------------------------------------------- mono to colour

TEST(MonoToColor, ValueToThreeComponentsAlphaKeepsTheBuffer) {
  const Bytes mono = {7, 200, 13};
  Bytes bgra(12, 0xA5);
  ConverterMonoB2BGRB_RGBB(mono.data(), 3, bgra.data(), 12, 4, 3, 1, nullptr, false);
  EXPECT_EQ(bgra, (Bytes{7, 7, 7, 0xA5, 200, 200, 200, 0xA5, 13, 13, 13, 0xA5}));

  Bytes bgr(9);
  ConverterMonoB2BGRB_RGBB(mono.data(), 3, bgr.data(), 9, 3, 3, 1, nullptr, false);
  EXPECT_EQ(bgr, (Bytes{7, 7, 7, 200, 200, 200, 13, 13, 13}));
}

TEST(MonoToColor, DepthChangesGoThroughTheTable) {
  CVyLookUpTableManager m;
  CSharedTableHolder t(m, 8, 16);
  const Bytes mono = {255, 1};
  Words bgr(6);
  ConverterMonoB2BGRW_RGBW(mono.data(), 2, bgr.data(), 12, 3, 2, 1, t.Get(), false);
  EXPECT_EQ(bgr, (Words{65535, 65535, 65535, 257, 257, 257}));

  const Words mono12 = {4095};
  Words bgra(4, 0x1234);
  CSharedTableHolder t2(m, 12, 14);
  ConverterMonoW2BGRW_RGBW(mono12.data(), 2, bgra.data(), 8, 4, 1, 1, t2.Get(), false);
  EXPECT_EQ(bgra, (Words{16383, 16383, 16383, 0x1234}));
}

// ----------------------------------------------------------- colour to colour

TEST(ColorToColor, OrderRuleExchangesOnlyWhenOrdersDiffer) {
  const Bytes bgr = {1, 2, 3, 4, 5, 6, 7, 8, 9};  // width 3
  Bytes out(9);
  ConverterBGRx8ToBGRx8(bgr.data(), 9, 3, true, out.data(), 9, 3, false, 3, 1, nullptr, false);
  EXPECT_EQ(out, (Bytes{3, 2, 1, 6, 5, 4, 9, 8, 7}));
  ConverterBGRx8ToBGRx8(bgr.data(), 9, 3, false, out.data(), 9, 3, false, 3, 1, nullptr, false);
  EXPECT_EQ(out, bgr);

  Bytes rgba(12, 0xEE);
  ConverterBGRx8ToBGRx8(bgr.data(), 9, 3, true, rgba.data(), 12, 4, false, 3, 1, nullptr, false);
  EXPECT_EQ(rgba, (Bytes{3, 2, 1, 0xEE, 6, 5, 4, 0xEE, 9, 8, 7, 0xEE}));
  // A source alpha is ignored.
  Bytes back(9);
  ConverterBGRx8ToBGRx8(rgba.data(), 12, 4, false, back.data(), 9, 3, true, 3, 1, nullptr, false);
  EXPECT_EQ(back, bgr);
}

TEST(ColorToColor, DeepFormatsCopyAtEqualDepthOrMapEachComponent) {
  const Words bgr10 = {1, 512, 1023};
  Words out(4, 0x5555);
  ConverterBGRxWToBGRxW(bgr10.data(), 6, 3, true, out.data(), 8, 4, true, 1, 1, nullptr, false);
  EXPECT_EQ(out, (Words{1, 512, 1023, 0x5555}));

  CVyLookUpTableManager m;
  m.m_eBitExpansionMode = VyBitExpansionMode_LeftShiftBy1;
  CSharedTableHolder t(m, 10, 16);
  ConverterBGRxWToBGRxW(bgr10.data(), 6, 3, true, out.data(), 6, 3, false, 1, 1, t.Get(), false);
  EXPECT_EQ(out[0], (1023 << 6) | 63);
  EXPECT_EQ(out[1], (512 << 6) | 63);
  EXPECT_EQ(out[2], (1 << 6) | 63);

  CSharedTableHolder down(m, 10, 8);
  Bytes b(3);
  ConverterBGRx16ToBGRx8(bgr10.data(), 6, 3, true, b.data(), 3, 3, true, 1, 1, down.Get(), false);
  EXPECT_EQ(b, (Bytes{0, 128, 255}));
  CSharedTableHolder up(m, 8, 10);
  ConverterBGRx8ToBGRx16(b.data(), 3, 3, true, out.data(), 6, 3, true, 1, 1, up.Get(), false);
  EXPECT_EQ(out[0], 3);  // LeftShiftBy1: (0 << 2) | 3
}

TEST(ColorToColor, OddWidthsAndPaddedPitchesLeaveTheRestAlone) {
  // Width 17 (not a multiple of any vector width), pitch with padding.
  const size_t w = 17, sp = 3 * w + 5, dp = 3 * w + 7;
  Bytes src(sp * 2), out(dp * 2, 0xCC);
  for (size_t i = 0; i < src.size(); ++i) src[i] = uint8_t(i * 7);
  ConverterBGRx8ToBGRx8(src.data(), sp, 3, true, out.data(), dp, 3, false, w, 2, nullptr, false);
  for (size_t y = 0; y < 2; ++y) {
    for (size_t x = 0; x < w; ++x)
      for (int c = 0; c < 3; ++c) ASSERT_EQ(out[y * dp + 3 * x + c], src[y * sp + 3 * x + 2 - c]);
    for (size_t i = 3 * w; i < dp; ++i) ASSERT_EQ(out[y * dp + i], 0xCC);
  }
}

// ------------------------------------------------------------------ raw mono

TEST(RawMono, TableRoadAndCopyRoad) {
  CVyLookUpTableManager m;
  CSharedTableHolder t(m, 12, 8);
  const Words mono12 = {4095, 16, 15};
  Bytes b(3);
  ConverterRawMono16ToRawMono8(mono12.data(), 6, b.data(), 3, 3, 1, 12, t.Get(), false);
  EXPECT_EQ(b, (Bytes{255, 1, 0}));

  Words w(3);
  ConverterRawMono16ToRawMono16(mono12.data(), 6, w.data(), 6, 3, 1, 12, nullptr, false);
  EXPECT_EQ(w, mono12);

  CSharedTableHolder up(m, 8, 16);
  ConverterRawMono8ToRawMono16(b.data(), 3, w.data(), 6, 3, 1, 8, up.Get(), false);
  EXPECT_EQ(w, (Words{65535, 257, 0}));
}

TEST(Flip, FirstSourceLineLandsOnTheLastDestinationLine) {
  const Bytes mono = {1, 2, 3, 4, 5, 6};  // 2 x 3
  Bytes bgr(18);
  ConverterMonoB2BGRB_RGBB(mono.data(), 2, bgr.data(), 6, 3, 2, 3, nullptr, true);
  EXPECT_EQ(bgr, (Bytes{5, 5, 5, 6, 6, 6, 3, 3, 3, 4, 4, 4, 1, 1, 1, 2, 2, 2}));

  Words w(6);
  const Words src = {1, 2, 3, 4, 5, 6};
  ConverterRawMono16ToRawMono16(src.data(), 4, w.data(), 4, 2, 3, 16, nullptr, true);
  EXPECT_EQ(w, (Words{5, 6, 3, 4, 1, 2}));

  Bytes m(3);
  const Bytes bgr3 = {0, 8, 0, 0, 16, 0, 0, 24, 0};  // width 1, height 3
  ConverterBGR8ToMono8(bgr3.data(), 3, 3, true, m.data(), 1, 1, 3, nullptr, true);
  EXPECT_EQ(m, (Bytes{15, 10, 5}));
}

// -------------------------------------------------------------------- planar

TEST(Planar, MonoToPlanarFillsThreePlanesAtTheirPitches) {
  const Bytes mono = {9, 8, 7, 6};  // 2 x 2
  Bytes planes(3 * 5, 0xEE);        // plane pitch 5, line pitch 2
  ConverterMonoToPlanar_8_8(mono.data(), 2, planes.data(), 2, 5, 2, 2, 8, nullptr, true);
  EXPECT_EQ(planes, (Bytes{7, 6, 9, 8, 0xEE, 7, 6, 9, 8, 0xEE, 7, 6, 9, 8, 0xEE}));

  CVyLookUpTableManager m;
  m.m_dGammaValue = 2.0;
  CSharedTableHolder t(m, 16, 8);  // Mono16 to RGB8_Planar with gamma 2
  const Words mono16 = {65535, 32768};
  Bytes p8(6);
  ConverterMonoToPlanar_16_8(mono16.data(), 4, p8.data(), 2, 2, 2, 1, 16, t.Get(), false);
  EXPECT_EQ(p8, (Bytes{255, 64, 255, 64, 255, 64}));  // (32768/65535)^2 * 255 + 0.5 = 64.25
}

TEST(Planar, InterleavedToPlanarAndBackFollowTheOrderRule) {
  const Bytes bgra = {1, 2, 3, 0xAA, 4, 5, 6, 0xBB};  // width 2
  Bytes planes(6);
  ConverterNonPlanarToPlanar_8_8(bgra.data(), 8, 4, true, planes.data(), 2, 2, 2, 1, 8, nullptr, false);
  EXPECT_EQ(planes, (Bytes{3, 6, 2, 5, 1, 4}));  // R plane, G plane, B plane

  Bytes rgba(8, 0xEE);
  ConverterPlanarToNonPlanar_8_8(planes.data(), 2, 2, rgba.data(), 8, 4, false, 2, 1, 8, nullptr, false);
  EXPECT_EQ(rgba, (Bytes{3, 2, 1, 0xEE, 6, 5, 4, 0xEE}));

  CVyLookUpTableManager m;
  CSharedTableHolder up(m, 8, 12);
  Words p12(6);
  ConverterPlanarToPlanar_8_16(planes.data(), 2, 2, p12.data(), 4, 4, 2, 1, 8, up.Get(), false);
  EXPECT_EQ(p12[0], up.Get()[3]);
  EXPECT_EQ(p12[5], up.Get()[4]);
  Words bgr12(6);
  ConverterPlanarToNonPlanar_16_16(p12.data(), 4, 4, bgr12.data(), 12, 3, true, 2, 1, 12, nullptr, false);
  EXPECT_EQ(bgr12[0], p12[4]);  // blue first
  Words p16(6);
  CSharedTableHolder u16(m, 12, 16);
  ConverterNonPlanarToPlanar_16_16(bgr12.data(), 12, 3, true, p16.data(), 4, 4, 2, 1, 12, u16.Get(), false);
  EXPECT_EQ(p16[0], u16.Get()[p12[0]]);
  CSharedTableHolder d8(m, 16, 8);
  Bytes p8(6);
  ConverterPlanarToPlanar_16_8(p16.data(), 4, 4, p8.data(), 2, 2, 2, 1, 16, d8.Get(), true);
  EXPECT_EQ(p8, (Bytes{3, 6, 2, 5, 1, 4}));
}

// ------------------------------------------------------------ range checks

TEST(RangeCheckDeath, SixteenBitSourcesAboveTheirDepthStopTheProcess) {
  const Words bad = {4095, 4096};
  Words w(2);
  Bytes b(6);
  CVyLookUpTableManager m;
  CSharedTableHolder t(m, 12, 8);
  EXPECT_DEATH(ConverterRawMono16ToRawMono16(bad.data(), 4, w.data(), 4, 2, 1, 12, nullptr, false),
               "pxSrcCurLine\\[x\\] < \\(1 << nInputBitCount\\)");
  EXPECT_DEATH(ConverterRawMono16ToRawMono8(bad.data(), 4, b.data(), 2, 2, 1, 12, t.Get(), false),
               "pxSrcCurLine\\[x\\] < \\(1 << nInputBitCount\\)");
  EXPECT_DEATH(ConverterMonoToPlanar_16_8(bad.data(), 4, b.data(), 2, 2, 2, 1, 12, t.Get(), false),
               "pxSrcPos\\[x\\] < \\(1 << nInputBitCount\\)");
  const Words badG = {1, 4096, 1};
  EXPECT_DEATH(ConverterNonPlanarToPlanar_16_8(badG.data(), 6, 3, true, b.data(), 1, 1, 1, 1, 12, t.Get(), false),
               "\\*\\(pxSrcPos \\+ 1\\) < \\(1 << nInputBitCount\\)");
  const Words planes = {1, 1, 5000};
  EXPECT_DEATH(ConverterPlanarToNonPlanar_16_8(planes.data(), 2, 2, b.data(), 3, 3, true, 1, 1, 12, t.Get(), false),
               "\\*pxSrcPlane2 < \\(1 << nInputBitCount\\)");
  EXPECT_DEATH(ConverterPlanarToPlanar_16_8(planes.data(), 2, 2, b.data(), 1, 1, 1, 1, 12, t.Get(), false),
               "\\*pxSrcPlane2 < \\(1 << nInputBitCount\\)");
}

TEST(RangeCheck, ValidSamplesAtTheTopOfTheRangePass) {
  const Words top = {4095, 4095, 4095};
  Bytes b(9);
  CVyLookUpTableManager m;
  CSharedTableHolder t(m, 12, 8);
  ConverterNonPlanarToPlanar_16_8(top.data(), 6, 3, false, b.data(), 1, 1, 1, 1, 12, t.Get(), false);
  EXPECT_EQ(b[0], 255);
  // The families without a check, such as colour to mono, accept alpha bits above the depth.
  const Words bgra = {4095, 4095, 4095, 0xFFFF};
  ConverterBGR16ToMono8(bgra.data(), 8, 4, true, b.data(), 1, 1, 1, t.Get(), false);
  EXPECT_EQ(b[0], 255);
}

TEST(MonoFromColor, LongLinesGiveTheScalarRuleInEveryPixel) {
  // 37 pixels: two vector blocks of 16 and a scalar tail, in both orders.
  const size_t w = 37, h = 3, sp = 3 * w + 1;
  Bytes src(sp * h);
  for (size_t i = 0; i < src.size(); ++i) src[i] = uint8_t((i * 97 + 13) ^ (i >> 3));
  for (bool bgr : {true, false}) {
    Bytes out(w * h);
    ConverterBGR8ToMono8(src.data(), sp, 3, bgr, out.data(), w, w, h, nullptr, false);
    for (size_t y = 0; y < h; ++y)
      for (size_t x = 0; x < w; ++x) {
        const uint8_t* p = &src[y * sp + 3 * x];
        const uint32_t r = bgr ? p[2] : p[0], g = p[1], b = bgr ? p[0] : p[2];
        ASSERT_EQ(out[y * w + x], (2 * r + 5 * g + b) / 8) << "x " << x << (bgr ? " BGR" : " RGB");
      }
  }
}
