// The fixed-point tables: spot values, the studio-range clamps of the
// indices, the limits, the clip rules, and the 32-bit headroom of the sums.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>

#include "ColorInterpolation/ColorInterpolation_YCbCr.h"
#include "ColorInterpolation/YCbCrFormat.h"
#include "ColorInterpolation/YCbCrTables.h"

using namespace VyApi;

namespace {

constexpr int32_t F = 1 << 22;

const SYCbCrReadTable* const ReadTables[] = {&pnYCrCbConvTable, &pnYCrCbConvTable601, &pnYCrCbConvTable709};
const SYCbCrWriteTable* const WriteTables[] = {&pnRGB2YCrCbConvTable, &pnRGB2YCrCb601ConvTable,
                                               &pnRGB2YCrCb709ConvTable};

}  // namespace

TEST(YCbCrTables, SpotValuesAreTheRoundedProducts) {
  // Values worked out by hand from the coefficients, in units of 2^-22.
  EXPECT_EQ(pnYCrCbConvTable.m_anRow[1][0], -752693019);  // 1.402 x -128
  EXPECT_EQ(pnYCrCbConvTable.m_anRow[4][255], 943902949);  // 1.772 x 127
  EXPECT_EQ(pnYCrCbConvTable601.m_anRow[0][235], 1069544248);  // 1.16438 x 219
  EXPECT_EQ(pnYCrCbConvTable601.m_anRow[1][240], 749754321);  // 1.59603 x 112
  EXPECT_EQ(pnYCrCbConvTable709.m_anRow[4][16], -992325350);  // 2.1124 x -112
  EXPECT_EQ(pnRGB2YCrCb601ConvTable.m_anRow[2][255], 171828262);  // 0.09791 x 255 + 16
  EXPECT_EQ(pnRGB2YCrCb709ConvTable.m_anRow[8][0], 128 * F);
  EXPECT_EQ(pnRGB2YCrCb709ConvTable.m_anRow[8][255], 493800233);  // -0.04027 x 255 + 128
  EXPECT_EQ(pnRGB2YCrCb601ConvTable.m_anRow[6][255], 469766662);  // 0.43922 x 255, no offset
}

TEST(YCbCrTables, PlainReadTableIsFullRange) {
  for (int i = 0; i < 256; ++i) EXPECT_EQ(pnYCrCbConvTable.m_anRow[0][i], i * F) << i;
  // No clamp of the chroma index: the ends differ from 16 and 240.
  EXPECT_LT(pnYCrCbConvTable.m_anRow[1][0], pnYCrCbConvTable.m_anRow[1][16]);
  EXPECT_GT(pnYCrCbConvTable.m_anRow[4][255], pnYCrCbConvTable.m_anRow[4][240]);
  for (int r = 1; r < 5; ++r) EXPECT_EQ(pnYCrCbConvTable.m_anRow[r][128], 0);
}

TEST(YCbCrTables, StudioReadTablesClampTheirIndices) {
  for (const SYCbCrReadTable* t : {&pnYCrCbConvTable601, &pnYCrCbConvTable709}) {
    for (int i = 0; i <= 16; ++i) EXPECT_EQ(t->m_anRow[0][i], 0) << i;
    for (int i = 235; i < 256; ++i) EXPECT_EQ(t->m_anRow[0][i], t->m_anRow[0][235]) << i;
    // Y 235 stretches to 254.999, which stays below white.
    EXPECT_LT(t->m_anRow[0][235], YCbCrReadSumMax);
    EXPECT_EQ(t->m_anRow[0][235] >> 22, 254);
    for (int r = 1; r < 5; ++r) {
      EXPECT_EQ(t->m_anRow[r][128], 0);
      for (int i = 0; i < 16; ++i) EXPECT_EQ(t->m_anRow[r][i], t->m_anRow[r][16]) << r << " " << i;
      for (int i = 241; i < 256; ++i) EXPECT_EQ(t->m_anRow[r][i], t->m_anRow[r][240]) << r << " " << i;
      EXPECT_NE(t->m_anRow[r][16], t->m_anRow[r][17]);
    }
  }
  // The two studio families share the luma row and differ in chroma.
  for (int i = 0; i < 256; ++i) EXPECT_EQ(pnYCrCbConvTable601.m_anRow[0][i], pnYCrCbConvTable709.m_anRow[0][i]);
  EXPECT_NE(pnYCrCbConvTable601.m_anRow[1][200], pnYCrCbConvTable709.m_anRow[1][200]);
}

TEST(YCbCrTables, LimitsAreFullOrStudioRange) {
  const int32_t anFull[4] = {0, 255, 0, 255};
  const int32_t anStudio[4] = {16, 235, 16, 240};
  for (int k = 0; k < 4; ++k) {
    EXPECT_EQ(pnRGB2YCrCbConvTable.m_anLimit[k], anFull[k]);
    EXPECT_EQ(pnRGB2YCrCb601ConvTable.m_anLimit[k], anStudio[k]);
    EXPECT_EQ(pnRGB2YCrCb709ConvTable.m_anLimit[k], anStudio[k]);
  }
}

TEST(YCbCrTables, FormatListIsConsistent) {
  EXPECT_EQ(FindYCbCrFormat(VyPixelFormat_BGR8), nullptr);
  EXPECT_EQ(FindYCbCrFormat(VyPixelFormat_Mono8), nullptr);
  for (size_t i = 0; i < YCbCrFormatCount; ++i) {
    const SYCbCrFormat& f = GetYCbCrFormat(i);
    EXPECT_EQ(FindYCbCrFormat(f.m_eFormat), &f) << "duplicate format code " << std::hex << f.m_eFormat;
    // The bits per pixel in the code agree with the layout.
    EXPECT_EQ((f.m_eFormat >> 16) & 0xFF, 8u * (f.m_eSubsampling + 2) / f.m_eSubsampling) << std::hex << f.m_eFormat;
  }
}

TEST(YCbCrTables, ClipRules) {
  EXPECT_EQ(ClipYCbCrReadSum(INT32_MIN), 0);
  EXPECT_EQ(ClipYCbCrReadSum(0), 0);
  EXPECT_EQ(ClipYCbCrReadSum(0x3FC00000 - 1), 254);
  EXPECT_EQ(ClipYCbCrReadSum(0x3FC00000), 255);
  EXPECT_EQ(ClipYCbCrReadSum(INT32_MAX), 255);

  EXPECT_EQ(ClipYCbCrWriteSum(17 * F - 1, 16, 235), 16);
  EXPECT_EQ(ClipYCbCrWriteSum(17 * F, 16, 235), 17);
  EXPECT_EQ(ClipYCbCrWriteSum(240 * F + 7, 16, 240), 240);
}

TEST(YCbCrTables, WorstCaseSumsFitIn32Bits) {
  // Each sum a pixel forms must stay inside int32 for every index choice.
  const auto lo = [](const int32_t* r) { return static_cast<int64_t>(*std::min_element(r, r + 256)); };
  const auto hi = [](const int32_t* r) { return static_cast<int64_t>(*std::max_element(r, r + 256)); };
  for (const SYCbCrReadTable* t : ReadTables) {
    const auto& a = t->m_anRow;
    EXPECT_LE(hi(a[0]) + std::max(hi(a[1]), std::max(hi(a[2]) + hi(a[3]), hi(a[4]))), INT32_MAX);
    EXPECT_GE(lo(a[0]) + std::min(lo(a[1]), std::min(lo(a[2]) + lo(a[3]), lo(a[4]))), INT32_MIN);
  }
  for (const SYCbCrWriteTable* t : WriteTables) {
    for (int r = 0; r < 9; r += 3) {
      const auto& a = t->m_anRow;
      EXPECT_LE(hi(a[r]) + hi(a[r + 1]) + hi(a[r + 2]), INT32_MAX);
      EXPECT_GE(lo(a[r]) + lo(a[r + 1]) + lo(a[r + 2]), INT32_MIN);
    }
  }
}

TEST(YCbCrTables, NeutralAndExtremePixels) {
  // Plain: Y 128, Cb 128, Cr 128 is grey 128.
  const uint8_t grey[3] = {128, 128, 128};
  uint8_t bgr[3] = {0, 0, 0};
  ASSERT_TRUE(TransformYCbCrToColor(VyPixelFormat_YCbCr8, grey, 3, bgr, 3, 3, true, 1, 1, false));
  EXPECT_EQ(bgr[0], 128);
  EXPECT_EQ(bgr[1], 128);
  EXPECT_EQ(bgr[2], 128);

  // BT.601 studio luma: 16 is black, 235 (and anything above) is 254.
  for (const auto& c : {std::pair<uint8_t, uint8_t>{16, 0}, {235, 254}, {255, 254}, {0, 0}}) {
    const uint8_t px[3] = {128, c.first, 128};  // Cb Y Cr
    ASSERT_TRUE(TransformYCbCrToColor(VyPixelFormat_YCbCr601_8_CbYCr, px, 3, bgr, 3, 3, true, 1, 1, false));
    EXPECT_EQ(bgr[0], c.second) << int(c.first);
    EXPECT_EQ(bgr[1], c.second) << int(c.first);
    EXPECT_EQ(bgr[2], c.second) << int(c.first);
  }

  // White to BT.601 meets the luma limit 235, black the limit 16.
  const uint8_t white[3] = {255, 255, 255}, black[3] = {0, 0, 0};
  uint8_t ycc[3] = {};
  ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, white, 3, 3, true, VyPixelFormat_YCbCr601_8_CbYCr, ycc, 3, 1, 1,
                               false));
  EXPECT_EQ(ycc[1], 235);
  EXPECT_EQ(ycc[0], 128);
  EXPECT_EQ(ycc[2], 128);
  ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, black, 3, 3, true, VyPixelFormat_YCbCr709_8_CbYCr, ycc, 3, 1, 1,
                               false));
  EXPECT_EQ(ycc[1], 16);

  // Plain white falls one short of 255: each of the three rounded products
  // of 255 lies just below its exact value, and the sum is 255 x F - 1.
  ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, white, 3, 3, true, VyPixelFormat_YCbCr8, ycc, 3, 1, 1, false));
  EXPECT_EQ(ycc[0], 254);

  // Saturated blue drives plain Cb to its top, saturated red the BT.601 Cr
  // to the chroma limit.
  const uint8_t blue[3] = {255, 0, 0}, red[3] = {0, 0, 255};
  ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, blue, 3, 3, true, VyPixelFormat_YCbCr8, ycc, 3, 1, 1, false));
  EXPECT_EQ(ycc[1], 255);
  ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, red, 3, 3, true, VyPixelFormat_YCbCr601_8_CbYCr, ycc, 3, 1, 1,
                               false));
  EXPECT_EQ(ycc[2], 240);  // 240.001 before the clip
}
