// Test charts: routing by format, exact grey and colour values, geometry,
// and the 16-bit routine's writing onto RGB8 and RGBa8 lines.
#include <gtest/gtest.h>

#include <cstring>

#include <VyApi_IP/VyApi_TL.h>

#include "VySDKCommon/VyImageChart.h"

using namespace VyApi;

namespace {

uint16_t Cell16(const CVyImageBuffer& b, size_t x, size_t y) {
  uint16_t v;
  std::memcpy(&v, static_cast<const unsigned char*>(b.GetImageBuffer()) + y * b.GetImageLinePitch() + 2 * x, 2);
  return v;
}

const unsigned char* Line(const CVyImageBuffer& b, size_t y) {
  return static_cast<const unsigned char*>(b.GetImageBuffer()) + y * b.GetImageLinePitch();
}

}  // namespace

TEST(ChartRouting, EachFormatGoesToItsRoutine) {
  EXPECT_EQ(GetFunction(VyPixelFormat_Mono8), &MakeChartMono8);
  for (auto f : {VyPixelFormat_Mono10, VyPixelFormat_Mono12, VyPixelFormat_Mono14, VyPixelFormat_Mono16})
    EXPECT_EQ(GetFunction(f), &MakeChartMono16);
  EXPECT_EQ(GetFunction(VyPixelFormat_BGR8), &MakeChartBGR8);
  EXPECT_EQ(GetFunction(VyPixelFormat_BGRa8), &MakeChartBGR8);
  for (auto f : {VyPixelFormat_BGR10, VyPixelFormat_BGRa12, VyPixelFormat_BGR14, VyPixelFormat_BGRa16,
                 VyPixelFormat_RGB8, VyPixelFormat_RGBa8})
    EXPECT_EQ(GetFunction(f), &MakeChartBGR16);
  for (auto f : {VyPixelFormat_RGB16, VyPixelFormat_BayerRG8, VyPixelFormat_Mono12p, VyPixelFormat_YCbCr422_8})
    EXPECT_EQ(GetFunction(f), nullptr);
}

TEST(ChartRouting, OnlyTheChartInitialisationDraws) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(24, 10, VyPixelFormat_Mono8, VyMemoryInitialization_Full);
  for (auto init : {VyMemoryInitialization_None, VyMemoryInitialization_Zero, VyMemoryInitialization_Full}) {
    EXPECT_FALSE(MakeChartMono8(buffer.GetIVyImage(), init));
    EXPECT_FALSE(MakeChartBGR16(buffer.GetIVyImage(), init));
  }
  EXPECT_EQ(Line(buffer, 0)[0], 255);
  EXPECT_TRUE(MakeChartMono8(buffer.GetIVyImage(), VyMemoryInitialization_Chart));
  EXPECT_EQ(Line(buffer, 0)[0], 131);
}

TEST(ChartMono, Mono12StepsRampsAndBackground) {
  CVyImageBuffer b(nullptr);
  b.CreateBuffer(240, 100, VyPixelFormat_Mono12, VyMemoryInitialization_Chart);
  const uint16_t g = 131 * 16;
  for (size_t y : {0, 9, 90, 99})
    for (size_t x : {0, 120, 239}) EXPECT_EQ(Cell16(b, x, y), g) << x << "," << y;
  // Band 0, lines 10 to 29: steps from 255 down, 20 cells each, from x = 10.
  const unsigned steps[11] = {255, 234, 212, 190, 167, 143, 120, 94, 67, 37, 0};
  for (size_t y : {10, 29}) {
    EXPECT_EQ(Cell16(b, 9, y), g);
    for (size_t k = 0; k < 11; ++k) {
      EXPECT_EQ(Cell16(b, 10 + 20 * k, y), steps[k] * 16) << k;
      EXPECT_EQ(Cell16(b, 29 + 20 * k, y), steps[k] * 16) << k;
    }
    EXPECT_EQ(Cell16(b, 230, y), g);
  }
  // Band 1: rising ramp, ends on exactly 4095. Band 2: falling.
  for (size_t i = 0; i < 220; ++i) {
    ASSERT_EQ(Cell16(b, 10 + i, 30), 4095 * i / 219) << i;
    ASSERT_EQ(Cell16(b, 10 + i, 50), 4095 * (219 - i) / 219) << i;
  }
  EXPECT_EQ(Cell16(b, 229, 49), 4095);
  // Band 3: steps from 0 up.
  EXPECT_EQ(Cell16(b, 10, 70), 0);
  EXPECT_EQ(Cell16(b, 229, 89), 255 * 16);
  EXPECT_EQ(Cell16(b, 230, 89), g);
}

TEST(ChartMono, NarrowImagesAreOnlyBackground) {
  CVyImageBuffer b(nullptr);
  b.CreateBuffer(11, 20, VyPixelFormat_Mono8, VyMemoryInitialization_Chart);
  for (size_t y = 0; y < 20; ++y)
    for (size_t x = 0; x < 11; ++x) ASSERT_EQ(Line(b, y)[x], 131) << x << "," << y;
  b.CreateBuffer(12, 20, VyPixelFormat_Mono8, VyMemoryInitialization_Chart);
  EXPECT_EQ(Line(b, 2)[0], 255) << "c = 0, one-cell steps";
  EXPECT_EQ(Line(b, 6)[10], 255) << "ramp of 11 cells ends on the maximum";
}

TEST(ChartColour, BGR8PatchesAndGaps) {
  CVyImageBuffer b(nullptr);
  b.CreateBuffer(770, 450, VyPixelFormat_BGR8, VyMemoryInitialization_Full);
  b.CreateBuffer(770, 450, VyPixelFormat_BGR8, VyMemoryInitialization_Chart);
  for (size_t y : {0, 29, 120, 129, 430, 449})
    for (size_t x : {0, 1000, 2309}) EXPECT_EQ(Line(b, y)[x], 0) << x << "," << y;
  const unsigned char* l = Line(b, 30);
  EXPECT_EQ(l[89], 0);
  EXPECT_EQ(l[90], 68);
  EXPECT_EQ(l[91], 82);
  EXPECT_EQ(l[92], 115);
  EXPECT_EQ(l[3 * 139 + 2], 115) << "patches are 110 pixels wide";
  EXPECT_EQ(l[3 * 140], 0);
  EXPECT_EQ(l[3 * 150], 130);  // patch 1, blue first
  EXPECT_EQ(l[3 * 749 + 2], 0);
  // Band 1 from line 130, patch 6.
  EXPECT_EQ(Line(b, 130)[90], 44);
  EXPECT_EQ(Line(b, 130)[92], 214);
  // Band 3, last patch: 52 grey.
  EXPECT_EQ(Line(b, 419)[3 * (30 + 5 * 120)], 52);  // band 3 ends at line 419
  EXPECT_EQ(Line(b, 420)[3 * (30 + 5 * 120)], 0);
}

TEST(ChartColour, AlphaCellsOfPatchesKeepTheirMemory) {
  CVyImageBuffer b(nullptr);
  b.CreateBuffer(77, 45, VyPixelFormat_BGRa8, VyMemoryInitialization_Full);
  ASSERT_TRUE(MakeChartBGR8(b.GetIVyImage(), VyMemoryInitialization_Chart));
  // a = 1, b = 9, p = 11, g = 1: band 0 from line 3, first patch at pixel 3.
  const unsigned char* l = Line(b, 3);
  EXPECT_EQ(l[4 * 2 + 3], 0) << "gap pixels are zero in all cells";
  EXPECT_EQ(l[4 * 3 + 0], 68);
  EXPECT_EQ(l[4 * 3 + 3], 255);
}

TEST(ChartColour, BGR16ShiftsToTheDepth) {
  CVyImageBuffer b(nullptr);
  b.CreateBuffer(77, 45, VyPixelFormat_BGR12, VyMemoryInitialization_Chart);
  EXPECT_EQ(Cell16(b, 9, 3), 68 * 16);
  EXPECT_EQ(Cell16(b, 11, 3), 115 * 16);
}

TEST(ChartColour, RGB8IsDrawnInSixteenBitCellsBlueFirst) {
  for (auto format : {VyPixelFormat_RGB8, VyPixelFormat_RGBa8}) {
    CVyImageBuffer b(nullptr);
    b.CreateBuffer(154, 90, format, VyMemoryInitialization_Chart);
    const size_t k = format == VyPixelFormat_RGB8 ? 3 : 4;
    // a = 2, b = 18, p = 22, g = 2: band 0 from line 6; 6 pixels of 2k bytes zero.
    const unsigned char* l = Line(b, 6);
    const size_t start = 6 * 2 * k;
    EXPECT_EQ(l[start - 1], 0);
    EXPECT_EQ(l[start + 0], 68);
    EXPECT_EQ(l[start + 1], 0);
    EXPECT_EQ(l[start + 2], 82);
    EXPECT_EQ(l[start + 3], 0);
    EXPECT_EQ(l[start + 4], 115);
    EXPECT_EQ(l[start + 5], 0);
    // Below the last band and its gap, all zero.
    for (size_t y = 84; y < 90; ++y)
      for (size_t x = 0; x < b.GetImageLinePitch(); ++x) ASSERT_EQ(Line(b, y)[x], 0) << x << "," << y;
  }
}
