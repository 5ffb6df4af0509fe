// The pixel-format service: names and codes of all formats, the answers that
// other modules rely on, and the consistency of the whole table.
#include <gtest/gtest.h>

#include <set>
#include <thread>
#include <vector>

#include <VyApi_IP/VyApi_TL.h>

using namespace VyApi;

namespace {

struct SFormat {
  EVyPixelFormatNamingConvention_t code;
  const char* name;
};

#define F(n) {VyPixelFormat_##n, #n}
const SFormat kFormats[] = {
    F(Mono1p), F(Mono2p), F(Mono4p), F(Mono8), F(Mono10), F(Mono10p), F(Mono12), F(Mono12p), F(Mono14), F(Mono14p),
    F(Mono16), F(GVSP_Mono10Packed), F(GVSP_Mono12Packed),
    F(BayerGR4p), F(BayerRG4p), F(BayerGB4p), F(BayerBG4p), F(BayerGR8), F(BayerRG8), F(BayerGB8), F(BayerBG8),
    F(BayerGR10), F(BayerRG10), F(BayerGB10), F(BayerBG10), F(BayerGR10p), F(BayerRG10p), F(BayerGB10p),
    F(BayerBG10p), F(BayerGR12), F(BayerRG12), F(BayerGB12), F(BayerBG12), F(BayerGR12p), F(BayerRG12p),
    F(BayerGB12p), F(BayerBG12p), F(BayerGR14), F(BayerRG14), F(BayerGB14), F(BayerBG14), F(BayerGR14p),
    F(BayerRG14p), F(BayerGB14p), F(BayerBG14p), F(BayerGR16), F(BayerRG16), F(BayerGB16), F(BayerBG16),
    F(GVSP_BayerGR10Packed), F(GVSP_BayerRG10Packed), F(GVSP_BayerGB10Packed), F(GVSP_BayerBG10Packed),
    F(GVSP_BayerGR12Packed), F(GVSP_BayerRG12Packed), F(GVSP_BayerGB12Packed), F(GVSP_BayerBG12Packed),
    F(RGB8), F(BGR8), F(RGBa8), F(BGRa8), F(RGB8_Planar), F(BGR10), F(BGRa10), F(RGB10_Planar), F(RGB10p32),
    F(CBGR10p32), F(BGR10p), F(RGB10p), F(BGR12), F(BGRa12), F(RGB12_Planar), F(BGR12p), F(RGB12p), F(BGR14),
    F(BGRa14), F(BGR16), F(BGRa16), F(RGB16), F(RGB16_Planar),
    F(YCbCr411_8), F(YCbCr411_8_CbYYCrYY), F(YCbCr422_8), F(YCbCr422_8_CbYCrY), F(YCbCr8), F(YCbCr8_CbYCr),
    F(YCbCr601_411_8_CbYYCrYY), F(YCbCr601_422_8), F(YCbCr601_422_8_CbYCrY), F(YCbCr601_8_CbYCr),
    F(YCbCr709_411_8_CbYYCrYY), F(YCbCr709_422_8), F(YCbCr709_422_8_CbYCrY), F(YCbCr709_8_CbYCr),
    F(YUV411_8_UYYVYY), F(YUV422_8), F(YUV422_8_UYVY), F(YUV8_UYV),
};
#undef F

IVyPixelFormatInfoInside* Info(EVyPixelFormatNamingConvention_t code) {
  return dynamic_cast<IVyPixelFormatInfoInside*>(GetIVyPixelFormatInfo(code));
}

bool IsBayerName(const std::string& name) { return name.find("Bayer") != std::string::npos; }

}  // namespace

TEST(PixelFormatTable, EveryFormatIsKnownByItsOwnName) {
  ASSERT_EQ(sizeof(kFormats) / sizeof(kFormats[0]), 98u);
  std::set<const void*> objects;
  for (const SFormat& f : kFormats) {
    SCOPED_TRACE(f.name);
    IVyPixelFormatInfoInside* p = Info(f.code);
    ASSERT_NE(p, nullptr);
    EXPECT_STREQ(p->GetName().c_str(), f.name);
    EXPECT_EQ(p->GetCode(), f.code);
    EXPECT_FALSE(p->GetDescription().empty());
    EXPECT_EQ(GetIVyPixelFormatInfo(f.code), p) << "one object per format, for the life of the process";
    objects.insert(p);
  }
  EXPECT_EQ(objects.size(), 98u);
}

TEST(PixelFormatTable, UnknownCodesGiveNull) {
  EXPECT_EQ(GetIVyPixelFormatInfo(VyPixelFormat_Undefined), nullptr);
  EXPECT_EQ(GetIVyPixelFormatInfo(static_cast<EVyPixelFormatNamingConvention_t>(0xFFFFFFFFu)), nullptr);
  EXPECT_EQ(GetIVyPixelFormatInfo(static_cast<EVyPixelFormatNamingConvention_t>(0x01080002u)), nullptr);  // Mono8s
}

TEST(PixelFormatTable, AnswersAgreeWithTheCodeAndWithEachOther) {
  for (const SFormat& f : kFormats) {
    SCOPED_TRACE(f.name);
    const IVyPixelFormatInfoInside* p = Info(f.code);
    const uint32_t code = f.code;
    const std::string name = f.name;
    // Second byte of the code: storage bits of a pixel.
    EXPECT_EQ(p->GetPixelBitCount(), (code >> 16) & 0xFF);
    // Top byte 0x01 marks the one-component formats.
    const bool oneComponent = (code >> 24) == 0x01;
    EXPECT_EQ(oneComponent, p->IsMono() || p->IsBayer());
    EXPECT_EQ(p->IsBayer(), IsBayerName(name));
    EXPECT_EQ(p->IsMono(), name.find("Mono") != std::string::npos);
    EXPECT_EQ(p->IsColor(), !p->IsMono());
    EXPECT_EQ(p->IsGVSPPacked(), name.rfind("GVSP_", 0) == 0);
    EXPECT_EQ(p->GetPlaneCount(), name.find("_Planar") != std::string::npos ? 3u : 1u);
    EXPECT_EQ(p->GetPlanePixelBitCount() * p->GetPlaneCount(), p->GetPixelBitCount());
    EXPECT_GE(p->GetComponentBitDepth(), 1u);
    EXPECT_LE(p->GetComponentBitDepth(), 16u);
    EXPECT_EQ(p->GetDefaultLineAlignment(), 1u);
    EXPECT_EQ(p->GetPixelIncrementY(), 1u);
    // Cells: 8-bit up to depth 8, else 16-bit; unpacked formats fill whole cells.
    const size_t cellBits = p->GetComponentBitDepth() <= 8 ? 8 : 16;
    if (!p->IsPacked()) {
      EXPECT_EQ(p->GetComponentCount() * cellBits, p->GetPlanePixelBitCount());
    }
    if (oneComponent) {
      EXPECT_EQ(p->GetComponentCount(), 1u);
    }
    // A view's start falls on a byte, with the smallest such step.
    const size_t incX = p->GetPixelIncrementX();
    EXPECT_EQ(incX * p->GetPlanePixelBitCount() % 8, 0u);
    if (!p->IsBayer() || !p->IsPacked()) {
      if (name.find("422") == std::string::npos && name.find("411") == std::string::npos) {
        for (size_t smaller = 1; smaller < incX; ++smaller) EXPECT_NE(smaller * p->GetPlanePixelBitCount() % 8, 0u);
      }
    }
    // The colour filter and the view's format.
    if (p->IsMono()) {
      EXPECT_EQ(p->GetPixelColorFilter(0, 0), VyPixelColorFilter_Mono);
    }
    if (!p->IsMono() && !p->IsBayer()) {
      EXPECT_EQ(p->GetPixelColorFilter(1, 1), VyPixelColorFilter_None);
    }
    EXPECT_EQ(p->GetPixelFormatAtOffset(2, 2), f.code);
    if (!p->IsBayer()) {
      EXPECT_EQ(p->GetPixelFormatAtOffset(1, 0), f.code);
      EXPECT_EQ(p->GetPixelFormatAtOffset(3, 7), f.code);
    }
    // Mono and Bayer frames are never byte-swapped.
    if (oneComponent) {
      EXPECT_TRUE(p->IsBGROrder());
    }
    if (name.rfind("RGB", 0) == 0 || name.rfind("Y", 0) == 0) {
      EXPECT_FALSE(p->IsBGROrder());
    }
    if (name.find("BGR") != std::string::npos) {
      EXPECT_TRUE(p->IsBGROrder());
    }
    EXPECT_EQ(p->HasAlpha(), name.find("a8") != std::string::npos || name.find("Ra1") != std::string::npos);
  }
}

TEST(PixelFormatTable, ValuesOtherModulesRelyOn) {
  struct SExpected {
    EVyPixelFormatNamingConvention_t code;
    size_t bits, depth, count, effective, incX;
  };
  const SExpected rows[] = {
      {VyPixelFormat_Mono8, 8, 8, 1, 8, 1},          {VyPixelFormat_Mono10, 16, 10, 1, 10, 1},
      {VyPixelFormat_Mono10p, 10, 10, 1, 10, 4},     {VyPixelFormat_Mono12p, 12, 12, 1, 12, 2},
      {VyPixelFormat_Mono1p, 1, 1, 1, 1, 8},         {VyPixelFormat_GVSP_Mono12Packed, 12, 12, 1, 12, 2},
      {VyPixelFormat_BayerRG8, 8, 8, 1, 8, 1},       {VyPixelFormat_BayerGB16, 16, 16, 1, 16, 1},
      {VyPixelFormat_BayerBG14p, 14, 14, 1, 14, 4},  {VyPixelFormat_BGR8, 24, 8, 3, 24, 1},
      {VyPixelFormat_BGRa8, 32, 8, 4, 32, 1},        {VyPixelFormat_BGR12, 48, 12, 3, 36, 1},
      {VyPixelFormat_BGR10p, 30, 10, 3, 30, 4},      {VyPixelFormat_RGB10p32, 32, 10, 3, 30, 1},
      {VyPixelFormat_CBGR10p32, 32, 10, 3, 30, 1},   {VyPixelFormat_RGB8_Planar, 24, 8, 1, 24, 1},
      {VyPixelFormat_YCbCr422_8, 16, 8, 2, 16, 2},   {VyPixelFormat_YCbCr8_CbYCr, 24, 8, 3, 24, 1},
      {VyPixelFormat_YUV411_8_UYYVYY, 12, 8, 3, 12, 4},
  };
  for (const SExpected& e : rows) {
    const IVyPixelFormatInfoInside* p = Info(e.code);
    SCOPED_TRACE(p->GetName().c_str());
    EXPECT_EQ(p->GetPixelBitCount(), e.bits);
    EXPECT_EQ(p->GetComponentBitDepth(), e.depth);
    EXPECT_EQ(p->GetComponentCount(), e.count);
    EXPECT_EQ(p->GetEffectiveBitCount(), e.effective);
    EXPECT_EQ(p->GetPixelIncrementX(), e.incX);
  }
  EXPECT_EQ(Info(VyPixelFormat_RGB16_Planar)->GetPlanePixelBitCount(), 16u);
  EXPECT_TRUE(Info(VyPixelFormat_BGRa12)->IsBGROrder());
  EXPECT_FALSE(Info(VyPixelFormat_RGB8)->IsBGROrder());
  EXPECT_TRUE(Info(VyPixelFormat_CBGR10p32)->IsBGROrder());
  EXPECT_TRUE(Info(VyPixelFormat_BayerRG8)->IsColor());
}

TEST(PixelFormatTable, LinePitchRoundsUpToBytesAndAlignment) {
  EXPECT_EQ(Info(VyPixelFormat_Mono8)->GetLinePitchBytes(13, 1), 13u);
  EXPECT_EQ(Info(VyPixelFormat_Mono8)->GetLinePitchBytes(13, 4), 16u);
  EXPECT_EQ(Info(VyPixelFormat_Mono8)->GetLinePitchBytes(13, 0), 13u);
  EXPECT_EQ(Info(VyPixelFormat_Mono16)->GetLinePitchBytes(13, 1), 26u);
  EXPECT_EQ(Info(VyPixelFormat_BGR8)->GetLinePitchBytes(5, 8), 16u);
  EXPECT_EQ(Info(VyPixelFormat_Mono12p)->GetLinePitchBytes(3, 1), 5u);   // 36 bits
  EXPECT_EQ(Info(VyPixelFormat_Mono10p)->GetLinePitchBytes(4, 1), 5u);
  EXPECT_EQ(Info(VyPixelFormat_Mono1p)->GetLinePitchBytes(9, 1), 2u);
  EXPECT_EQ(Info(VyPixelFormat_GVSP_Mono12Packed)->GetLinePitchBytes(3, 1), 5u);  // odd pixel takes two bytes
  EXPECT_EQ(Info(VyPixelFormat_RGB8_Planar)->GetLinePitchBytes(7, 1), 7u);         // one plane's line
  // The colour bit streams are written in whole 16-bit words.
  EXPECT_EQ(Info(VyPixelFormat_BGR10p)->GetLinePitchBytes(4, 1), 16u);  // 120 bits
  EXPECT_EQ(Info(VyPixelFormat_RGB12p)->GetLinePitchBytes(2, 1), 10u);  // 72 bits
  EXPECT_EQ(Info(VyPixelFormat_YUV411_8_UYYVYY)->GetLinePitchBytes(8, 1), 12u);
}

TEST(PixelFormatBayer, ColourFilterAndViewFormatFollowTheOffset) {
  EXPECT_EQ(Info(VyPixelFormat_BayerGB12)->GetPixelColorFilter(0, 0), 4);
  EXPECT_EQ(Info(VyPixelFormat_Mono8)->GetPixelColorFilter(0, 0), 1);
  const IVyPixelFormatInfoInside* rg = Info(VyPixelFormat_BayerRG8);
  EXPECT_EQ(rg->GetPixelColorFilter(0, 0), VyPixelColorFilter_BayerRG);
  EXPECT_EQ(rg->GetPixelColorFilter(1, 0), VyPixelColorFilter_BayerGR);
  EXPECT_EQ(rg->GetPixelColorFilter(0, 1), VyPixelColorFilter_BayerGB);
  EXPECT_EQ(rg->GetPixelColorFilter(1, 1), VyPixelColorFilter_BayerBG);
  EXPECT_EQ(rg->GetPixelFormatAtOffset(1, 0), VyPixelFormat_BayerGR8);
  EXPECT_EQ(rg->GetPixelFormatAtOffset(0, 1), VyPixelFormat_BayerGB8);
  EXPECT_EQ(rg->GetPixelFormatAtOffset(1, 1), VyPixelFormat_BayerBG8);
  EXPECT_EQ(rg->GetPixelFormatAtOffset(5, 3), VyPixelFormat_BayerBG8);
  const IVyPixelFormatInfoInside* gb = Info(VyPixelFormat_GVSP_BayerGB12Packed);
  EXPECT_EQ(gb->GetPixelFormatAtOffset(1, 0), VyPixelFormat_GVSP_BayerBG12Packed);
  EXPECT_EQ(gb->GetPixelFormatAtOffset(0, 1), VyPixelFormat_GVSP_BayerRG12Packed);
  EXPECT_EQ(gb->GetPixelFormatAtOffset(1, 1), VyPixelFormat_GVSP_BayerGR12Packed);

  // Every Bayer format: the shifted format's filter at (0, 0) is the filter
  // seen from the offset, and stays within the same depth and packing.
  for (const SFormat& f : kFormats) {
    const IVyPixelFormatInfoInside* p = Info(f.code);
    if (!p->IsBayer()) continue;
    SCOPED_TRACE(f.name);
    for (size_t y = 0; y < 2; ++y)
      for (size_t x = 0; x < 2; ++x) {
        const IVyPixelFormatInfoInside* q = Info(p->GetPixelFormatAtOffset(x, y));
        ASSERT_NE(q, nullptr);
        EXPECT_TRUE(q->IsBayer());
        EXPECT_EQ(q->GetPixelColorFilter(0, 0), p->GetPixelColorFilter(x, y));
        EXPECT_EQ(q->GetPixelBitCount(), p->GetPixelBitCount());
        EXPECT_EQ(q->IsGVSPPacked(), p->IsGVSPPacked());
        EXPECT_EQ(q->GetPixelFormatAtOffset(x, y), f.code) << "shifting twice returns";
      }
  }
}

TEST(PixelFormatService, AnswersFromManyThreadsAtOnce) {
  std::vector<std::thread> threads;
  std::vector<int> failures(4, 0);
  for (int t = 0; t < 4; ++t)
    threads.emplace_back([t, &failures] {
      for (int round = 0; round < 200; ++round)
        for (const SFormat& f : kFormats) {
          IVyPixelFormatInfo* p = GetIVyPixelFormatInfo(f.code);
          if (p == nullptr || p->GetName() != f.name) ++failures[t];
        }
    });
  for (std::thread& th : threads) th.join();
  for (int n : failures) EXPECT_EQ(n, 0);
}
