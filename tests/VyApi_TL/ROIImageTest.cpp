// Views of images: where they point, the Bayer phase they report, nesting,
// and the checks of SetROI with their texts and their order.
#include <gtest/gtest.h>

#include <string>

#include <VyApi_IP/VyApi_TL.h>

using namespace VyApi;

namespace {

struct SRaised {
  std::string type;
  std::string text;
};

template <typename F>
SRaised Raised(F f) {
  try {
    f();
  } catch (const GenICam_3_0::OutOfRangeException& e) {
    return {"OutOfRange", e.GetDescription()};
  } catch (const GenICam_3_0::LogicalErrorException& e) {
    return {"LogicalError", e.GetDescription()};
  } catch (const GenICam_3_0::GenericException& e) {
    return {"Other", e.GetDescription()};
  }
  return {"", ""};
}

unsigned char* At(IVyImage* p, size_t bytes) { return static_cast<unsigned char*>(p->GetImageBuffer()) + bytes; }

}  // namespace

TEST(ROIImageGeometry, FullViewIsTheParent) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(16, 8, VyPixelFormat_BGR8, VyMemoryInitialization_Zero);
  IVyImage* v = buffer.GetROIImage(0, 0, 16, 8);
  EXPECT_EQ(v->GetImageBuffer(), buffer.GetImageBuffer());
  EXPECT_EQ(v->GetImagePixelFormat(), VyPixelFormat_BGR8);
  EXPECT_EQ(v->GetImageLinePitch(), 48u);
  EXPECT_EQ(v->GetImagePlanePitch(), buffer.GetImagePlanePitch());
  EXPECT_EQ(v->GetUserContext(), buffer.GetUserContext());
}

TEST(ROIImageGeometry, BufferAddressCountsBitsOfTheViewsFormat) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(16, 8, VyPixelFormat_Mono10p, VyMemoryInitialization_Zero);
  IVyImage* v = buffer.GetROIImage(8, 2, 4, 2);
  EXPECT_EQ(v->GetImageBuffer(), At(&buffer, 2 * 20 + 10));

  buffer.CreateBuffer(8, 4, VyPixelFormat_RGB8_Planar, VyMemoryInitialization_Zero);
  v = buffer.GetROIImage(3, 1, 2, 2);
  EXPECT_EQ(v->GetImageBuffer(), At(&buffer, 8 + 3)) << "planar: bits of one plane";
}

TEST(ROIImageBayer, ViewReportsThePhaseOfItsOffset) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(8, 8, VyPixelFormat_BayerRG8, VyMemoryInitialization_Zero);
  EXPECT_EQ(buffer.GetROIImage(1, 0, 4, 4)->GetImagePixelFormat(), VyPixelFormat_BayerGR8);
  EXPECT_EQ(buffer.GetROIImage(0, 1, 4, 4)->GetImagePixelFormat(), VyPixelFormat_BayerGB8);
  EXPECT_EQ(buffer.GetROIImage(1, 1, 4, 4)->GetImagePixelFormat(), VyPixelFormat_BayerBG8);
  IVyImage* v = buffer.GetROIImage(2, 2, 4, 4);
  EXPECT_EQ(v->GetImagePixelFormat(), VyPixelFormat_BayerRG8);

  // A view of a view adds the offsets; the phase follows from the sum.
  IVyImage* outer = buffer.GetROIImage(1, 0, 6, 6);
  IVyImage* inner = outer->GetROIImage(1, 1, 3, 3);
  EXPECT_EQ(outer->GetImagePixelFormat(), VyPixelFormat_BayerGR8);
  EXPECT_EQ(inner->GetImagePixelFormat(), VyPixelFormat_BayerGB8);  // (2, 1) of RG
  EXPECT_EQ(inner->GetImageBuffer(), At(&buffer, 1 * 8 + 2));
  // The pixel component of a view reads the parent at the shifted position.
  static_cast<unsigned char*>(buffer.GetImageBuffer())[8 + 2] = 77;
  CVyPixelComponent& c = inner->GetIVyPixelComponentValue(0, 0);
  EXPECT_EQ(c.GetX(), 2u);
  EXPECT_EQ(c.GetY(), 1u);
  EXPECT_EQ(c.GetValue(0), 77u);
  EXPECT_EQ(c.GetComponent(0), VyPixelComponent_Gb8);

EXPECT_EQ(outer->GetROIImage(0, 0, 2, 2), inner) << "one child per view";
}

TEST(ROIImageChecks, WidthBoundsAndGrid) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(16, 8, VyPixelFormat_Mono10p, VyMemoryInitialization_Zero);  // increment 4
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(0, 0, 4, 1); }).type, "");
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(0, 0, 3, 1); }).text,
            "size_t Width = 3 must be equal or greater than Min = 4");
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(0, 0, 20, 1); }).text,
            "size_t Width = 20 must be equal or smaller than Max = 16");
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(0, 0, 6, 1); }).text,
            "The difference between size_t Width = 6 and Min = 4 must be dividable without rest by Inc = 4");
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(12, 0, 4, 1); }).type, "") << "x = W - width is legal";
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(16, 0, 4, 1); }).text,
            "size_t x = 16 must be equal or smaller than Max = 12");
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(static_cast<size_t>(-4), 0, 4, 1); }).text,
            "size_t x = -4 must be equal or greater than Min = 0");
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(2, 0, 4, 1); }).text,
            "The difference between size_t x = 2 and Min = 0 must be dividable without rest by Inc = 4");
  const SRaised r = Raised([&] { buffer.GetROIImage(0, 3, 4, 9); });
  EXPECT_EQ(r.type, "OutOfRange");
  EXPECT_EQ(r.text, "size_t Height = 9 must be equal or smaller than Max = 8");
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(0, 7, 4, 2); }).text,
            "size_t y = 7 must be equal or smaller than Max = 6");
}

TEST(ROIImageChecks, AFailureOnYLeavesTheNewXInPlace) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(16, 8, VyPixelFormat_Mono8, VyMemoryInitialization_Zero);
  CVyROIImage view(&buffer);
  view.SetROI(0, 0, 16, 8);
  EXPECT_THROW(view.SetROI(3, 5, 10, 4), GenICam_3_0::OutOfRangeException);
  EXPECT_EQ(view.GetImageWidth(), 10u);
  EXPECT_EQ(view.GetImageHeight(), 8u);
  EXPECT_EQ(view.GetImageBuffer(), At(&buffer, 3));
  try {
    view.SetROI(0, 0, 0, 1);
  } catch (const GenICam_3_0::GenericException& e) {
    EXPECT_STREQ(e.GetSourceFileName(), "VySDKCommon/VyROIImage");
  }
}

TEST(ROIImageChecks, IncrementsComeFromTheFormatBeforeTheMove) {
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(8, 4, VyPixelFormat_YCbCr422_8, VyMemoryInitialization_Zero);  // increment 2
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(1, 0, 2, 1); }).text,
            "The difference between size_t x = 1 and Min = 0 must be dividable without rest by Inc = 2");
  // Odd Bayer offsets are legal: unpacked Bayer formats step by 1.
  buffer.CreateBuffer(8, 4, VyPixelFormat_BayerBG16, VyMemoryInitialization_Zero);
  EXPECT_EQ(Raised([&] { buffer.GetROIImage(3, 1, 1, 1); }).type, "");
  EXPECT_EQ(buffer.GetROIImage(3, 1, 1, 1)->GetImagePixelFormat(), VyPixelFormat_BayerRG16);
}

TEST(ROIImageLifetime, ReplacingTheParentsMemoryDropsTheView) {
  // Under AddressSanitizer this shows that the view and its child are freed
  // with the block and with the buffer, and nothing twice.
  CVyImageBuffer buffer(nullptr);
  buffer.CreateBuffer(4, 4, VyPixelFormat_Mono8, VyMemoryInitialization_Zero);
  buffer.GetROIImage(0, 0, 2, 2)->GetROIImage(0, 0, 1, 1);
  buffer.CreateBuffer(64, 64, VyPixelFormat_Mono8, VyMemoryInitialization_Zero);
  IVyImage* v = buffer.GetROIImage(10, 10, 20, 20);
  EXPECT_EQ(v->GetImageWidth(), 20u);
  v->GetROIImage(1, 1, 2, 2);
}
