// Gamma correction: table values, every dispatch path, caching, limits.
#include "TestSupport.h"

#include <cmath>
#include <random>
#include <set>
#include <thread>

#include "VyApi_IP/Kernels/LookUpTableKernel.h"
#include "VyApi_IP/VyGammaCorrectionFilter.h"

using namespace VyApi;
using namespace VyApiTest;

namespace {

// The curve written out independently: round(((i-min)/r)^g * r + min), capped.
uint16_t Expected(unsigned i, double g, unsigned nMin, unsigned nMax) {
  const double r = nMax - nMin;
  const double v = std::fma(std::pow((i - nMin) / r, g), r, nMin) + 0.5;
  return v < nMax ? static_cast<uint16_t>(v) : static_cast<uint16_t>(nMax);
}

class GammaTest : public KitTest {
protected:
  void SetUp() override {
    KitTest::SetUp();
    filter.Reset(CreateIVyFilter(VyFilterType_GammaCorrection));
  }
  void TearDown() override {
    filter.Reset();
    KitTest::TearDown();
  }
  CVyAutoPtr<IVyFilterReleasable, IVyGammaCorrectionFilter> filter;
};

TEST_F(GammaTest, EightBitTableHasTheWorkedValues) {
  filter->SetGammaValue(2.0);
  Image im(256, 2, VyPixelFormat_Mono8);
  for (int x = 0; x < 256; ++x) im.line(0)[x] = im.line(1)[x] = static_cast<uint8_t>(x);
  EXPECT_EQ(filter->Filter(im.img()), im.img());
  EXPECT_EQ(im.line(0)[128], 64);
  EXPECT_EQ(im.line(1)[255], 255);
  EXPECT_EQ(im.line(0)[0], 0);
  for (unsigned x = 0; x < 256; ++x) EXPECT_EQ(im.line(1)[x], Expected(x, 2.0, 0, 255)) << x;
}

TEST_F(GammaTest, GammaOneLeavesEveryFormatUntouched) {
  for (auto f : {VyPixelFormat_Mono8, VyPixelFormat_Mono12, VyPixelFormat_BGRa8, VyPixelFormat_BGR16,
                 VyPixelFormat_YCbCr411_8, VyPixelFormat_BayerGB10}) {
    Image im(5, 3, f);
    std::mt19937 rng(7);
    const size_t depth = GetIVyPixelFormatInfo(f)->GetComponentBitDepth();
    const std::vector<uint8_t> before = [&] {
      for (size_t y = 0; y < 3; ++y) {
        const size_t n = im.img()->GetImageLinePitch();
        for (size_t i = 0; i < n; ++i) im.line(y)[i] = static_cast<uint8_t>(rng());
        if (depth > 8)
          for (size_t i = 0; i < n / 2; ++i) im.line16(y)[i] &= static_cast<uint16_t>((1u << depth) - 1);
      }
      return im.bytes();
    }();
    filter->Filter(im.img());
    EXPECT_EQ(im.bytes(), before) << GetIVyPixelFormatInfo(f)->GetName();
  }
}

TEST_F(GammaTest, SixteenBitCellsUseTheTableOfTheirDepth) {
  filter->SetGammaValue(0.5);
  Image im(4096, 1, VyPixelFormat_Mono12);
  for (unsigned x = 0; x < 4096; ++x) im.line16(0)[x] = static_cast<uint16_t>(x);
  filter->Filter(im.img());
  for (unsigned x = 0; x < 4096; x += 37) EXPECT_EQ(im.line16(0)[x], Expected(x, 0.5, 0, 4095)) << x;
  EXPECT_EQ(im.line16(0)[4095], 4095);

  // Back to 8 bits at the same gamma: the table is made anew for that depth.
  Image im8(3, 1, VyPixelFormat_BayerRG8);
  im8.line(0)[0] = 64;
  im8.line(0)[1] = 200;
  filter->Filter(im8.img());
  EXPECT_EQ(im8.line(0)[0], Expected(64, 0.5, 0, 255));
  EXPECT_EQ(im8.line(0)[1], Expected(200, 0.5, 0, 255));
}

TEST_F(GammaTest, ColourPathsKeepAlphaAndTreatAllChannelsAlike) {
  filter->SetGammaValue(2.0);
  Image rgba(2, 1, VyPixelFormat_RGBa8);
  const uint8_t px[8] = {128, 100, 50, 77, 255, 0, 128, 200};
  std::memcpy(rgba.line(0), px, 8);
  filter->Filter(rgba.img());
  const uint8_t* p = rgba.line(0);
  EXPECT_EQ(p[0], 64);
  EXPECT_EQ(p[1], Expected(100, 2, 0, 255));
  EXPECT_EQ(p[2], Expected(50, 2, 0, 255));
  EXPECT_EQ(p[3], 77);
  EXPECT_EQ(p[7], 200);

  Image bgra16(1, 1, VyPixelFormat_BGRa10);
  uint16_t* q = bgra16.line16(0);
  q[0] = 512;
  q[1] = 1023;
  q[2] = 0;
  q[3] = 999;
  filter->Filter(bgra16.img());
  EXPECT_EQ(q[0], Expected(512, 2, 0, 1023));
  EXPECT_EQ(q[1], 1023);
  EXPECT_EQ(q[2], 0);
  EXPECT_EQ(q[3], 999);
}

TEST_F(GammaTest, YCbCrChangesOnlyLuma) {
  filter->SetGammaValue(2.0);
  Image ycc(2, 1, VyPixelFormat_YCbCr8);
  const uint8_t src[6] = {128, 10, 20, 200, 30, 40};
  std::memcpy(ycc.line(0), src, 6);
  filter->Filter(ycc.img());
  EXPECT_EQ(ycc.line(0)[0], 64);
  EXPECT_EQ(ycc.line(0)[1], 10);
  EXPECT_EQ(ycc.line(0)[2], 20);
  EXPECT_EQ(ycc.line(0)[3], Expected(200, 2, 0, 255));

  Image y422(2, 1, VyPixelFormat_YCbCr422_8);
  const uint8_t s422[4] = {128, 99, 255, 98};
  std::memcpy(y422.line(0), s422, 4);
  filter->Filter(y422.img());
  EXPECT_EQ(std::vector<uint8_t>(y422.line(0), y422.line(0) + 4), (std::vector<uint8_t>{64, 99, 255, 98}));

  // 4:1:1: groups of Y Y C for every two pixels; width 1 and a last odd pixel stay.
  Image one(1, 1, VyPixelFormat_YCbCr411_8);
  std::memset(one.line(0), 128, one.img()->GetImageLinePitch());
  const std::vector<uint8_t> before = one.bytes();
  filter->Filter(one.img());
  EXPECT_EQ(one.bytes(), before);
  Image three(3, 1, VyPixelFormat_YCbCr411_8);
  const size_t pitch = three.img()->GetImageLinePitch();
  std::memset(three.line(0), 128, pitch);
  filter->Filter(three.img());
  EXPECT_EQ(three.line(0)[0], 64);
  EXPECT_EQ(three.line(0)[1], 64);
  EXPECT_EQ(three.line(0)[2], 128);
  for (size_t i = 3; i < pitch; ++i) EXPECT_EQ(three.line(0)[i], 128) << i;
}

TEST_F(GammaTest, StudioRangeTableAndFullRangeTableStandInForEachOther) {
  filter->SetGammaValue(2.0);
  // First the BT.709 studio range: the table is built for 16..255.
  Image s(1, 1, VyPixelFormat_YCbCr709_422_8);
  s.line(0)[0] = 128;
  filter->Filter(s.img());
  EXPECT_EQ(s.line(0)[0], Expected(128, 2, 16, 255));
  // A full-range image of the same depth and gamma is served by that table.
  Image m(1, 1, VyPixelFormat_Mono8);
  m.line(0)[0] = 128;
  filter->Filter(m.img());
  EXPECT_EQ(m.line(0)[0], Expected(128, 2, 16, 255));

  // And the other way round once the key changes.
  filter->SetGammaValue(3.0);
  Image m2(1, 1, VyPixelFormat_Mono8);
  m2.line(0)[0] = 128;
  filter->Filter(m2.img());
  EXPECT_EQ(m2.line(0)[0], Expected(128, 3, 0, 255));
  Image s2(1, 1, VyPixelFormat_YCbCr709_422_8);
  s2.line(0)[0] = 128;
  filter->Filter(s2.img());
  EXPECT_EQ(s2.line(0)[0], Expected(128, 3, 0, 255));
}

TEST_F(GammaTest, GammaZeroGoesWhiteAndTheLimitsAreInclusive) {
  filter->SetGammaValue(0.0);
  Image m(3, 1, VyPixelFormat_Mono16);
  filter->Filter(m.img());
  EXPECT_EQ(m.line16(0)[0], 65535);
  EXPECT_NO_THROW(filter->SetGammaValue(4.0));
  EXPECT_EQ(MessageOf([&] { filter->SetGammaValue(4.5); }), "value = 4.500000 must be smaller than or equal 4.000000");
  EXPECT_EQ(MessageOf([&] { filter->SetGammaValue(-0.1); }),
            "value = -0.100000 must be greater than or equal 0.000000");
  EXPECT_THROW(filter->SetGammaValue(-0.1), GenICam::OutOfRangeException);
  // A NaN passes both tests; its table maps everything to the maximum.
  EXPECT_NO_THROW(filter->SetGammaValue(std::nan("")));
  EXPECT_TRUE(std::isnan(filter->GetGammaValue()));
}

TEST_F(GammaTest, UnsupportedFormatRaisesWithItsNameAndLeavesTheImage) {
  filter->SetGammaValue(2.0);
  Image im(8, 1, VyPixelFormat_Mono10p);
  std::memset(im.line(0), 0x55, im.img()->GetImageLinePitch());
  const std::vector<uint8_t> before = im.bytes();
  EXPECT_EQ(MessageOf([&] { filter->Filter(im.img()); }), "Not supported pixelformat Mono10p");
  EXPECT_EQ(im.bytes(), before);
}

TEST_F(GammaTest, SupportedFormatsAreExactlyTheDispatchTable) {
  std::set<EVyPixelFormatNamingConvention_t> expected = {
      VyPixelFormat_Mono8,       VyPixelFormat_Mono10,     VyPixelFormat_Mono12,     VyPixelFormat_Mono14,
      VyPixelFormat_Mono16,      VyPixelFormat_RGB8,       VyPixelFormat_RGBa8,      VyPixelFormat_BGR8,
      VyPixelFormat_BGRa8,       VyPixelFormat_BGR10,      VyPixelFormat_BGRa10,     VyPixelFormat_BGR12,
      VyPixelFormat_BGRa12,      VyPixelFormat_BGR14,      VyPixelFormat_BGRa14,     VyPixelFormat_BGR16,
      VyPixelFormat_BGRa16,      VyPixelFormat_YCbCr8,     VyPixelFormat_YCbCr422_8, VyPixelFormat_YCbCr411_8,
      VyPixelFormat_YCbCr709_422_8};
  for (auto f : {VyPixelFormat_BayerGR8, VyPixelFormat_BayerRG8, VyPixelFormat_BayerGB8, VyPixelFormat_BayerBG8, VyPixelFormat_BayerGR10, VyPixelFormat_BayerRG10, VyPixelFormat_BayerGB10, VyPixelFormat_BayerBG10, VyPixelFormat_BayerGR12, VyPixelFormat_BayerRG12, VyPixelFormat_BayerGB12, VyPixelFormat_BayerBG12, VyPixelFormat_BayerGR14, VyPixelFormat_BayerRG14, VyPixelFormat_BayerGB14, VyPixelFormat_BayerBG14, VyPixelFormat_BayerGR16, VyPixelFormat_BayerRG16, VyPixelFormat_BayerGB16, VyPixelFormat_BayerBG16})
    expected.insert(f);
  EXPECT_EQ(expected.size(), 41u);
  int supported = 0;
  for (uint32_t top : {0x01000000u, 0x02000000u, 0x82000000u})
    for (uint32_t bits = 0; bits < 0x50; ++bits)
      for (uint32_t id = 0; id < 0x200; ++id) {
        const auto f = static_cast<EVyPixelFormatNamingConvention_t>(top | (bits << 16) | id);
        if (!GetIVyPixelFormatInfo(f)) continue;
        EXPECT_EQ(CVyGammaCorrectionFilter::IsSupported(f), expected.count(f) == 1) << GetIVyPixelFormatInfo(f)->GetName();
        supported += CVyGammaCorrectionFilter::IsSupported(f);
      }
  EXPECT_EQ(supported, 41);
}

TEST_F(GammaTest, ConcurrentImagesAndSettersShareTablesSafely) {
  std::vector<std::thread> threads;
  for (int t = 0; t < 2; ++t)
    threads.emplace_back([&, t] {
      Image im(64, 8, t ? VyPixelFormat_Mono12 : VyPixelFormat_Mono8);
      for (int i = 0; i < 200; ++i) filter->Filter(im.img());
    });
  threads.emplace_back([&] {
    for (int i = 0; i < 200; ++i) filter->SetGammaValue(1.0 + (i % 7) * 0.25);
  });
  for (auto& th : threads) th.join();
  SUCCEED();
}

TEST(LookUpTableKernel, EveryProcessorPathMapsBytesAlike) {
  uint8_t table[256];
  for (int i = 0; i < 256; ++i) table[i] = static_cast<uint8_t>((i * 97 + 13) & 0xFF);
  std::mt19937 rng(3);
  for (size_t n : {0u, 1u, 31u, 32u, 63u, 64u, 65u, 200u, 1000u}) {
    std::vector<uint8_t> src(n);
    for (auto& b : src) b = static_cast<uint8_t>(rng());
    std::vector<uint8_t> want(src);
    for (auto& b : want) b = table[b];
    for (int path = 0; path < 3; ++path) {
      if (!Kernels::MapBytesPathSupported(path)) continue;
      std::vector<uint8_t> got(src);
      Kernels::MapBytesOnPath(got.data(), n, table, path);
      EXPECT_EQ(got, want) << "path " << path << " n " << n;
    }
  }
}

}  // namespace
