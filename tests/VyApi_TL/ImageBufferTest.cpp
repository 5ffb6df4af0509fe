// The owning image buffer: sizing and reuse, fills, copies, views, the
// allocator policy, its failures, and the pixel-component reader.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include <VyApi_IP/VyApi_TL.h>

using namespace VyApi;

namespace {

const auto kNoFormat = static_cast<EVyPixelFormatNamingConvention_t>(0xFFFFFFFFu);

/// An allocator that counts its calls and can be told to fail.
class CCountingAllocator : public IVyAllocator {
public:
  void Allocate(void** ppBuffer, size_t size, void** ppContext) override {
    ++m_nAllocations;
    if (m_bFail) {
      *ppBuffer = nullptr;
      return;
    }
    *ppBuffer = new unsigned char[size];
    *ppContext = &m_nAllocations;
    m_nLastSize = size;
  }
  void Deallocate(void* pBuffer, size_t size, void* pContext) override {
    ++m_nDeallocations;
    EXPECT_EQ(size, m_nLastSize);
    EXPECT_EQ(pContext, &m_nAllocations);
    delete[] static_cast<unsigned char*>(pBuffer);
  }
  void OnDeregister() override { ++m_nDeregistrations; }

  bool m_bFail = false;
  int m_nAllocations = 0;
  int m_nDeallocations = 0;
  int m_nDeregistrations = 0;
  size_t m_nLastSize = 0;
};

template <typename F>
std::string DescriptionOf(F f) {
  try {
    f();
  } catch (const GenICam_3_0::GenericException& e) {
    return e.GetDescription();
  }
  return "<nothing raised>";
}

}  // namespace

TEST(ImageBufferState, EmptyAfterCreationAndRefusesToGiveAnImage) {
  IVyImageBufferReleasable* p = CreateIVyImageBuffer();
  auto* pInside = dynamic_cast<IVyImageBufferInside*>(p);
  auto* pImage = dynamic_cast<IVyImage*>(p);
  ASSERT_NE(pInside, nullptr);
  ASSERT_NE(pImage, nullptr);
  EXPECT_FALSE(pInside->HasImageBuffer());
  EXPECT_EQ(pImage->GetImageWidth(), 0u);
  EXPECT_EQ(pImage->GetImageLinePitch(), 0u);
  EXPECT_EQ(pImage->GetImagePixelFormat(), kNoFormat);
  EXPECT_EQ(pImage->GetImageBuffer(), nullptr);
  try {
    p->GetIVyImage();
    FAIL() << "no exception";
  } catch (const GenICam_3_0::RuntimeException& e) {
    EXPECT_STREQ(e.GetDescription(), "There is no available image.");
    EXPECT_STREQ(e.GetSourceFileName(), "VySDKCommon/VyImageBuffer");
  }
  p->Release();
}

TEST(ImageBufferState, SetSizeKeepsABlockThatFitsAndGrowsOtherwise) {
  CVyImageBuffer buffer(nullptr);
  buffer.SetSize(100, 50, VyPixelFormat_Mono8, 0);
  void* first = buffer.GetImageBuffer();
  EXPECT_EQ(buffer.GetImageLinePitch(), 100u);
  EXPECT_EQ(buffer.GetImagePlanePitch(), 5000u);

  buffer.SetSize(20, 10, VyPixelFormat_Mono16, 0);
  EXPECT_EQ(buffer.GetImageBuffer(), first);
  EXPECT_EQ(buffer.GetImageLinePitch(), 40u);
  EXPECT_EQ(buffer.GetImagePlanePitch(), 400u);
  EXPECT_EQ(buffer.GetImagePixelFormat(), VyPixelFormat_Mono16);

  // A view survives a resize that keeps the block.
  IVyImage* pView = buffer.GetROIImage(0, 0, 10, 5);
  buffer.SetSize(46, 100, VyPixelFormat_Mono8, 4);  // 4800 bytes fit the old block
  EXPECT_EQ(buffer.GetImageBuffer(), first);
  EXPECT_EQ(buffer.GetImageLinePitch(), 48u) << "alignment 4 is honoured";
  EXPECT_EQ(pView->GetImageWidth(), 10u);

  buffer.SetSize(100, 51, VyPixelFormat_Mono8, 0);
  EXPECT_TRUE(buffer.HasImageBuffer());
  EXPECT_EQ(buffer.GetImageHeight(), 51u);
}

TEST(ImageBufferState, PlanarFormatsHoldThreePlanes) {
  CCountingAllocator allocator;
  {
    CVyImageBuffer buffer(&allocator);
    buffer.SetSize(7, 3, VyPixelFormat_RGB16_Planar, 0);
    EXPECT_EQ(buffer.GetImageLinePitch(), 14u);
    EXPECT_EQ(buffer.GetImagePlanePitch(), 42u);
    EXPECT_EQ(allocator.m_nLastSize, 126u);
  }
}

TEST(ImageBufferFailures, ZeroSizeRaisesAndLeavesTheStateAlone) {
  CVyImageBuffer buffer(nullptr);
  buffer.SetSize(8, 4, VyPixelFormat_BGR8, 0);
  void* block = buffer.GetImageBuffer();
  EXPECT_EQ(DescriptionOf([&] { buffer.SetSize(0, 4, VyPixelFormat_Mono8, 0); }),
            "size_t nWidth = 0 must be greater than Min = 0");
  EXPECT_EQ(DescriptionOf([&] { buffer.SetSize(4, 0, VyPixelFormat_Mono8, 0); }),
            "size_t nHeight = 0 must be greater than Min = 0");
  // Sizes that are negative as signed numbers are refused too.
  EXPECT_THROW(buffer.CreateBuffer(static_cast<size_t>(-5), 4, VyPixelFormat_Mono8, VyMemoryInitialization_None),
               GenICam_3_0::OutOfRangeException);
  EXPECT_EQ(buffer.GetImageBuffer(), block);
  EXPECT_EQ(buffer.GetImageWidth(), 8u);
  EXPECT_EQ(buffer.GetImagePixelFormat(), VyPixelFormat_BGR8);
}

TEST(ImageBufferFailures, AllocatorGivingNothingEmptiesTheBuffer) {
  CCountingAllocator allocator;
  {
    CVyImageBuffer buffer(&allocator);
    buffer.SetSize(4, 4, VyPixelFormat_Mono8, 0);
    allocator.m_bFail = true;
    try {
      buffer.SetSize(40, 40, VyPixelFormat_Mono8, 0);
      FAIL() << "no exception";
    } catch (const GenICam_3_0::BadAllocException& e) {
      EXPECT_STREQ(e.GetDescription(), "");
    }
    EXPECT_FALSE(buffer.HasImageBuffer());
    EXPECT_EQ(allocator.m_nDeallocations, 1) << "the old block is gone";
    EXPECT_EQ(buffer.GetImageWidth(), 0u);
    EXPECT_THROW(buffer.GetIVyImage(), GenICam_3_0::RuntimeException);
    EXPECT_EQ(allocator.m_nDeregistrations, 0);
  }
  EXPECT_EQ(allocator.m_nDeregistrations, 1);
  EXPECT_EQ(allocator.m_nDeallocations, 1);
}

TEST(ImageBufferAllocator, PluggedInAllocatorServesTheBufferAndIsDeregisteredOnce) {
  CCountingAllocator allocator;
  IVyImageBufferReleasable* p = CreateIVyImageBuffer(&allocator);
  p->CreateBuffer(16, 16, VyPixelFormat_Mono8, VyMemoryInitialization_Zero);
  p->CreateBuffer(8, 8, VyPixelFormat_Mono8, VyMemoryInitialization_Zero);
  EXPECT_EQ(allocator.m_nAllocations, 1);
  EXPECT_EQ(p->GetIVyImage()->GetUserContext(), &allocator.m_nAllocations);
  p->Release();
  EXPECT_EQ(allocator.m_nDeallocations, 1);
  EXPECT_EQ(allocator.m_nDeregistrations, 1);
}

TEST(ImageBufferFill, InitialisationFillsTheWholeBlock) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(10, 10, VyPixelFormat_Mono8, VyMemoryInitialization_Full);
  // Smaller image in the same block: the fill still covers the whole block.
  buffer.CreateBuffer(3, 3, VyPixelFormat_Mono8, VyMemoryInitialization_Zero);
  const unsigned char* p = static_cast<const unsigned char*>(buffer.GetImageBuffer());
  for (size_t i = 0; i < 100; ++i) ASSERT_EQ(p[i], 0) << i;
  buffer.CreateBuffer(3, 3, VyPixelFormat_Mono8, VyMemoryInitialization_Full);
  for (size_t i = 0; i < 100; ++i) ASSERT_EQ(p[i], 255) << i;
  buffer.CreateBuffer(3, 3, VyPixelFormat_Mono8, VyMemoryInitialization_None);
  for (size_t i = 0; i < 100; ++i) ASSERT_EQ(p[i], 255) << i;
}

TEST(ImageBufferFill, FormatsWithoutAChartGetZeroBytes) {
  for (EVyPixelFormatNamingConvention_t f : {VyPixelFormat_BayerRG8, VyPixelFormat_RGB16, VyPixelFormat_Mono12p}) {
    CVyImageBuffer buffer(nullptr);
    buffer.CreateBuffer(16, 8, f, VyMemoryInitialization_Full);
    buffer.CreateBuffer(16, 8, f, VyMemoryInitialization_Chart);
    const unsigned char* p = static_cast<const unsigned char*>(buffer.GetImageBuffer());
    const size_t bytes = buffer.GetImagePlanePitch();
    for (size_t i = 0; i < bytes; ++i) ASSERT_EQ(p[i], 0) << i;
  }
}

TEST(ImageBufferCopy, CopiesAViewWithALargerPitchLineByLine) {
  CVyImageBuffer source(nullptr);
  source.CreateBuffer(10, 6, VyPixelFormat_Mono8, VyMemoryInitialization_None);
  unsigned char* s = static_cast<unsigned char*>(source.GetImageBuffer());
  for (size_t i = 0; i < 60; ++i) s[i] = static_cast<unsigned char>(i);
  IVyImage* pView = source.GetROIImage(2, 1, 4, 3);

  CVyImageBuffer dest(nullptr);
  dest.CreateBuffer(30, 30, VyPixelFormat_Mono8, VyMemoryInitialization_Full);
  dest.CopyImage(pView);
  EXPECT_EQ(dest.GetImageWidth(), 4u);
  EXPECT_EQ(dest.GetImageHeight(), 3u);
  EXPECT_EQ(dest.GetImageLinePitch(), 4u);
  const unsigned char* d = static_cast<const unsigned char*>(dest.GetImageBuffer());
  const unsigned char expected[12] = {12, 13, 14, 15, 22, 23, 24, 25, 32, 33, 34, 35};
  EXPECT_EQ(0, std::memcmp(d, expected, 12));
  EXPECT_EQ(d[12], 255) << "nothing written beyond the image";
}

TEST(ImageBufferCopy, CopiesEveryPlaneAndTakesTheDefaultAlignment) {
  CVyImageBuffer source(nullptr);
  source.SetSize(3, 2, VyPixelFormat_RGB8_Planar, 8);
  EXPECT_EQ(source.GetImageLinePitch(), 8u);
  unsigned char* s = static_cast<unsigned char*>(source.GetImageBuffer());
  for (size_t i = 0; i < 48; ++i) s[i] = static_cast<unsigned char>(i);

  CVyImageBuffer dest(nullptr);
  dest.CopyImage(&source);
  EXPECT_EQ(dest.GetImageLinePitch(), 3u);
  const unsigned char* d = static_cast<const unsigned char*>(dest.GetImageBuffer());
  // plane k, line y, x: source byte k*16 + y*8 + x.
  for (size_t k = 0; k < 3; ++k)
    for (size_t y = 0; y < 2; ++y)
      for (size_t x = 0; x < 3; ++x) EXPECT_EQ(d[k * 6 + y * 3 + x], k * 16 + y * 8 + x);

  CVyImageBuffer same(nullptr);
  same.CopyImage(&dest);
  EXPECT_EQ(0, std::memcmp(same.GetImageBuffer(), dest.GetImageBuffer(), 18));
}

TEST(ImageBufferViews, OneViewAtATime) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(8, 8, VyPixelFormat_Mono8, VyMemoryInitialization_Zero);
  IVyImage* a = buffer.GetROIImage(0, 0, 8, 8);
  EXPECT_EQ(a->GetImageBuffer(), buffer.GetImageBuffer());
  IVyImage* b = buffer.GetROIImage(2, 3, 4, 4);
  EXPECT_EQ(a, b);
  EXPECT_EQ(a->GetImageWidth(), 4u);
  EXPECT_EQ(static_cast<unsigned char*>(b->GetImageBuffer()),
            static_cast<unsigned char*>(buffer.GetImageBuffer()) + 3 * 8 + 2);
  EXPECT_NE(dynamic_cast<IVyImageInside*>(b), nullptr);
}

TEST(PixelComponent, ReadsThePixelOfEveryFamily) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(4, 2, VyPixelFormat_BGR8, VyMemoryInitialization_Zero);
  unsigned char* p = static_cast<unsigned char*>(buffer.GetImageBuffer());
  p[12 + 3] = 10;  // (1, 1): blue, green, red
  p[12 + 4] = 20;
  p[12 + 5] = 30;
  CVyPixelComponent& c = buffer.GetIVyPixelComponentValue(1, 1);
  ASSERT_EQ(c.GetComponentCount(), 3u);
  EXPECT_EQ(c.GetComponent(0), VyPixelComponent_B8);
  EXPECT_EQ(c.GetValue(0), 10u);
  EXPECT_EQ(c.GetComponent(2), VyPixelComponent_R8);
  EXPECT_EQ(c.GetValue(2), 30u);
  // The same object each time: a second call overwrites the first.
  CVyPixelComponent& c2 = buffer.GetIVyPixelComponentValue(0, 0);
  EXPECT_EQ(&c, &c2);
  EXPECT_EQ(c.GetValue(2), 0u);

  // Bayer sites, 16-bit cells.
  buffer.CreateBuffer(2, 2, VyPixelFormat_BayerRG12, VyMemoryInitialization_Zero);
  uint16_t* w = static_cast<uint16_t*>(buffer.GetImageBuffer());
  w[0] = 4095;
  w[1] = 100;
  w[2] = 200;
  w[3] = 7;
  const EVyPixelComponent_t sites[4] = {VyPixelComponent_R12, VyPixelComponent_Gr12, VyPixelComponent_Gb12,
                                        VyPixelComponent_B12};
  for (size_t i = 0; i < 4; ++i) {
    CVyPixelComponent& s = buffer.GetIVyPixelComponentValue(i % 2, i / 2);
    EXPECT_EQ(s.GetComponent(0), sites[i]);
    EXPECT_EQ(s.GetValue(0), w[i]);
  }

  // Bit stream, least significant bit first: pixels 0x123, 0x456 of Mono12p.
  buffer.CreateBuffer(2, 1, VyPixelFormat_Mono12p, VyMemoryInitialization_Zero);
  p = static_cast<unsigned char*>(buffer.GetImageBuffer());
  p[0] = 0x23;
  p[1] = 0x61;
  p[2] = 0x45;
  uint32_t v = 0;
  EXPECT_TRUE(buffer.GetIVyPixelComponentValue(1, 0).GetValueOf(VyPixelComponent_Mono12, &v));
  EXPECT_EQ(v, 0x456u);
  EXPECT_EQ(buffer.GetIVyPixelComponentValue(0, 0).GetValue(0), 0x123u);

  // GVSP: low bits of the first pixel in the high nibble of the middle byte.
  buffer.CreateBuffer(2, 1, VyPixelFormat_GVSP_Mono12Packed, VyMemoryInitialization_Zero);
  p[0] = 0x12;
  p[1] = 0x3A;
  p[2] = 0x45;
  EXPECT_EQ(buffer.GetIVyPixelComponentValue(0, 0).GetValue(0), 0x123u);
  EXPECT_EQ(buffer.GetIVyPixelComponentValue(1, 0).GetValue(0), 0x45Au);

  // 4:2:2, Y0 Cb Y1 Cr: pixel 1 has Y1 and the pair's chroma.
  buffer.CreateBuffer(2, 1, VyPixelFormat_YCbCr422_8, VyMemoryInitialization_Zero);
  p[0] = 1;
  p[1] = 2;
  p[2] = 3;
  p[3] = 4;
  CVyPixelComponent& y = buffer.GetIVyPixelComponentValue(1, 0);
  EXPECT_EQ(y.GetComponent(0), VyPixelComponent_Y8);
  EXPECT_EQ(y.GetValue(0), 3u);
  EXPECT_TRUE(y.GetValueOf(VyPixelComponent_Cb8, &v));
  EXPECT_EQ(v, 2u);
  EXPECT_TRUE(y.GetValueOf(VyPixelComponent_Cr8, &v));
  EXPECT_EQ(v, 4u);

  // Outside the image: nothing.
  EXPECT_EQ(buffer.GetIVyPixelComponentValue(2, 0).GetComponentCount(), 0u);
}

TEST(KitInitialisation, FactoriesCheckIsCountedAndExplainsItself) {
  ASSERT_FALSE(IsVyApiInitialized());
  try {
    CheckVyApiInitialized();
    FAIL() << "no exception";
  } catch (const GenICam_3_0::RuntimeException& e) {
    EXPECT_NE(std::string(e.GetDescription()).find("VyApi::InitializeVyApi()"), std::string::npos);
  }
  {
    CVyApiAutoInit outer;
    EXPECT_NO_THROW(CheckVyApiInitialized());
    {
      CVyApiAutoInit inner;
    }
    EXPECT_NO_THROW(CheckVyApiInitialized()) << "still held by the outer holder";
  }
  EXPECT_THROW(CheckVyApiInitialized(), GenICam_3_0::RuntimeException);
  TerminateVyApi();  // one too many is harmless
  InitializeVyApi();
  EXPECT_TRUE(IsVyApiInitialized());
  TerminateVyApi();
  EXPECT_FALSE(IsVyApiInitialized());
}
