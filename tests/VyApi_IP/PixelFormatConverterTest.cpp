// The pixel-format converter module: registers and node map, setters, info,
// Convert in and out of place, phase mirroring under flip, and the values of
// the wired primitives.
#include "TestSupport.h"

#include <cmath>

#include "VyApi_IP/VyPixelFormatConverter.h"

using namespace VyApi;
using namespace VyApiTest;

namespace {

using Fmt = EVyPixelFormatNamingConvention_t;

class ConverterTest : public KitTest {
protected:
  void SetUp() override {
    KitTest::SetUp();
    conv.Reset(CreateIVyConverter(VyConverterType_PixelFormat));
  }
  void TearDown() override {
    conv.Reset();
    KitTest::TearDown();
  }
  /// Converts src into a new buffer and returns it.
  std::unique_ptr<Image> Run(Image& src, Fmt dest, bool bReverseY = false) {
    conv->SetDestinationPixelFormat(dest);
    conv->SetReverseY(bReverseY);
    auto out = std::make_unique<Image>(1, 1, VyPixelFormat_Mono8);
    conv->Convert(src.img(), out->buffer.Get());
    return out;
  }
  CVyAutoPtr<IVyConverterReleasable, IVyPixelFormatConverter> conv;
};

uint32_t ReadU32(GenApi::IPort& port, int64_t address) {
  uint32_t v = 0xDEADBEEF;
  port.Read(&v, address, 4);
  return v;
}

void WriteU32(GenApi::IPort& port, int64_t address, uint32_t v) { port.Write(&v, address, 4); }

}  // namespace

TEST_F(ConverterTest, DefaultsInfoAndFactory) {
  EXPECT_EQ(conv->GetDestinationPixelFormat(), VyPixelFormat_BGR8);
  EXPECT_FALSE(conv->GetReverseY());
  EXPECT_EQ(conv->GetBayerInterpolationMethod(), VyBayerInterpolationMethod_NearestNeighbor2);
  EXPECT_EQ(conv->GetGammaValue(), 1.0);
  EXPECT_FALSE(conv->GetDestinationPixelFormatNodeLock());
  EXPECT_EQ(conv->GetLinePitchAlignment(), 0u);

  IVyConverterInfo* info = conv->GetIVyConverterInfo();
  EXPECT_EQ(info->GetConverterType(), VyConverterType_PixelFormat);
  EXPECT_EQ(std::string(info->GetConverterName().c_str()), "Pixel Format");
  // The answer follows the current destination.
  EXPECT_TRUE(info->IsSupported(VyPixelFormat_BayerRG8));
  EXPECT_TRUE(info->IsSupported(VyPixelFormat_GVSP_BayerGR12Packed));
  conv->SetDestinationPixelFormat(VyPixelFormat_BGR10);
  EXPECT_FALSE(info->IsSupported(VyPixelFormat_GVSP_BayerGR12Packed));
  conv->SetDestinationPixelFormat(VyPixelFormat_Mono12);
  EXPECT_TRUE(info->IsSupported(VyPixelFormat_Mono12));
  EXPECT_FALSE(info->IsSupported(VyPixelFormat_RGB8_Planar));
  const Fmt unknown = static_cast<Fmt>(0x01080099);
  conv->SetDestinationPixelFormat(unknown);
  EXPECT_TRUE(info->IsSupported(unknown));
  EXPECT_FALSE(info->IsSupported(VyPixelFormat_Mono8));
}

TEST_F(ConverterTest, SetterLimitsAndTexts) {
  EXPECT_EQ(MessageOf([&] { conv->SetBayerInterpolationMethod(static_cast<EVyBayerInterpolationMethod_t>(6)); }),
            "eBIM = 6 must be smaller than Max = 6");
  EXPECT_EQ(conv->GetBayerInterpolationMethod(), VyBayerInterpolationMethod_NearestNeighbor2);
  EXPECT_THROW(conv->SetGammaValue(4.5), GenICam::OutOfRangeException);
  EXPECT_EQ(MessageOf([&] { conv->SetGammaValue(4.5); }),
            "Gamma Value = 4.500000 must be smaller than or equal 4.000000");
  EXPECT_EQ(MessageOf([&] { conv->SetGammaValue(-0.25); }),
            "Gamma Value = -0.250000 must be greater than or equal 0.000000");
  conv->SetGammaValue(0.0);
  conv->SetGammaValue(4.0);
  EXPECT_EQ(conv->GetGammaValue(), 4.0);
  conv->SetBayerInterpolationMethod(VyBayerInterpolationMethod_BiCubic);
  EXPECT_EQ(conv->GetBayerInterpolationMethod(), VyBayerInterpolationMethod_BiCubic);
}

TEST_F(ConverterTest, RegistersThroughThePortStoreWithoutChecks) {
  auto* port = dynamic_cast<GenApi::IPort*>(conv.Get());
  ASSERT_NE(port, nullptr);
  // ReverseY and the lock store "value equals 1".
  WriteU32(*port, 0x18, 2);
  EXPECT_EQ(ReadU32(*port, 0x18), 0u);
  EXPECT_FALSE(conv->GetReverseY());
  WriteU32(*port, 0x18, 1);
  EXPECT_TRUE(conv->GetReverseY());
  WriteU32(*port, 0x40, 3);
  EXPECT_EQ(ReadU32(*port, 0x40), 0u);
  // The method register takes what the setter refuses.
  WriteU32(*port, 0x20, 6);
  EXPECT_EQ(conv->GetBayerInterpolationMethod(), 6);
  WriteU32(*port, 0x10, VyPixelFormat_Mono12p);
  EXPECT_EQ(conv->GetDestinationPixelFormat(), VyPixelFormat_Mono12p);
  double g = 2.5, back = 0;
  port->Write(&g, 0x28, 8);
  port->Read(&back, 0x28, 8);
  EXPECT_EQ(back, 2.5);
  EXPECT_EQ(conv->GetGammaValue(), 2.5);
  double lim[2] = {-1, -1};
  port->Read(lim, 0x30, 16);
  EXPECT_EQ(lim[0], 0.0);
  EXPECT_EQ(lim[1], 4.0);
  WriteU32(*port, 0x48, 3);
  EXPECT_EQ(ReadU32(*port, 0x48), 3u);
  // The base's one-byte register and its skip.
  uint8_t b[4] = {0xAA, 0xAA, 0xAA, 0xAA};
  port->Read(b, 0, 4);
  EXPECT_EQ(b[0], 8);
  EXPECT_EQ(b[1], 0xAA);
}

TEST_F(ConverterTest, NodeMapDrivesTheModuleAndSettersInvalidate) {
  GenApi::INodeMap* map = conv->GetINodeMap();
  ASSERT_NE(map, nullptr);
  GenApi::CEnumerationPtr dest = map->GetNode("DestinationPixelFormat");
  GenApi::CBooleanPtr reverse = map->GetNode("ReverseY");
  GenApi::CFloatPtr gamma = map->GetNode("Gamma");
  GenApi::CEnumerationPtr method = map->GetNode("BayerInterpolationMethod");
  GenApi::CEnumerationPtr mode = map->GetNode("BitExpansionMode");
  ASSERT_TRUE(dest.IsValid() && reverse.IsValid() && gamma.IsValid() && method.IsValid() && mode.IsValid());

  // The node map's road.
  dest->FromString("Mono16");
  EXPECT_EQ(conv->GetDestinationPixelFormat(), VyPixelFormat_Mono16);
  reverse->SetValue(true);
  EXPECT_TRUE(conv->GetReverseY());
  method->FromString("Bicubic");
  EXPECT_EQ(conv->GetBayerInterpolationMethod(), VyBayerInterpolationMethod_BiCubic);
  gamma->SetValue(1.5);
  EXPECT_EQ(conv->GetGammaValue(), 1.5);
  EXPECT_THROW(gamma->SetValue(4.5), GenICam::OutOfRangeException);
  EXPECT_EQ(std::string(mode->ToString().c_str()), "Gamma");
  GenApi::NodeList_t entries;
  dest->GetEntries(entries);
  EXPECT_EQ(entries.size(), 98u);

  // The setters' road keeps cached node values true.
  EXPECT_EQ(gamma->GetValue(), 1.5);
  conv->SetGammaValue(3.0);
  EXPECT_EQ(gamma->GetValue(), 3.0);
  conv->SetDestinationPixelFormat(VyPixelFormat_RGB10p32);
  EXPECT_EQ(std::string(dest->ToString().c_str()), "RGB10p32");
  conv->SetReverseY(false);
  EXPECT_FALSE(reverse->GetValue());
  conv->SetBayerInterpolationMethod(VyBayerInterpolationMethod_None);
  EXPECT_EQ(std::string(method->ToString().c_str()), "OFF");
  // The lock register makes the destination feature read-only.
  conv->SetDestinationPixelFormatNodeLock(true);
  EXPECT_FALSE(GenApi::IsWritable(dest));
  conv->SetDestinationPixelFormatNodeLock(false);
  EXPECT_TRUE(GenApi::IsWritable(dest));
}

TEST_F(ConverterTest, NullArgumentsAndRefusedPairs) {
  Image src(4, 2, VyPixelFormat_Mono8);
  EXPECT_EQ(MessageOf([&] { conv->Convert(nullptr, src.buffer.Get()); }), "IVyImage is NULL.");
  EXPECT_EQ(MessageOf([&] { conv->Convert(src.img(), nullptr); }), "IVyImageBuffer is NULL.");
  EXPECT_THROW(conv->Convert(nullptr, nullptr), GenICam::InvalidArgumentException);

  Image gr12(4, 2, VyPixelFormat_GVSP_BayerGR12Packed);
  conv->SetDestinationPixelFormat(VyPixelFormat_BGR10);
  Image out(1, 1, VyPixelFormat_Mono8);
  EXPECT_EQ(MessageOf([&] { conv->Convert(gr12.img(), out.buffer.Get()); }),
            "Converting a pixelformat from  GVSP_BayerGR12Packed to BGR10 is not supported.");
  EXPECT_THROW(conv->Convert(gr12.img(), out.buffer.Get()), GenICam::RuntimeException);
  // Nothing was changed before the refusal.
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_Mono8);
  Image bg12(4, 2, VyPixelFormat_GVSP_BayerBG12Packed);
  conv->Convert(bg12.img(), out.buffer.Get());
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_BGR10);
}

TEST_F(ConverterTest, DestinationTakesSourceSizeAndDestinationFormat) {
  Image src(7, 3, VyPixelFormat_Mono8);
  Image out(20, 20, VyPixelFormat_BGRa16);
  conv->SetDestinationPixelFormat(VyPixelFormat_RGB8);
  conv->Convert(src.img(), out.buffer.Get());
  EXPECT_EQ(out.img()->GetImageWidth(), 7u);
  EXPECT_EQ(out.img()->GetImageHeight(), 3u);
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_RGB8);
  conv->SetLinePitchAlignment(16);
  conv->Convert(src.img(), out.buffer.Get());
  EXPECT_EQ(out.img()->GetImageLinePitch(), 32u);
}

TEST_F(ConverterTest, BayerPhaseTurnsOverUnderAFlipOfEvenHeight) {
  Image rg4(4, 4, VyPixelFormat_BayerRG8);
  EXPECT_EQ(Run(rg4, VyPixelFormat_BayerRG16, true)->img()->GetImagePixelFormat(), VyPixelFormat_BayerGB16);
  EXPECT_EQ(Run(rg4, VyPixelFormat_BayerRG16, false)->img()->GetImagePixelFormat(), VyPixelFormat_BayerRG16);
  Image rg5(4, 5, VyPixelFormat_BayerRG8);
  EXPECT_EQ(Run(rg5, VyPixelFormat_BayerRG16, true)->img()->GetImagePixelFormat(), VyPixelFormat_BayerRG16);
  // The 12-bit GVSP row has its first two columns exchanged: GB comes out as
  // GR and BG as RG, where every other row gives RG and GR. The table pairs a
  // Bayer source only with the GVSP format of its own phase.
  Image gb(4, 2, VyPixelFormat_BayerGB8);
  EXPECT_EQ(Run(gb, VyPixelFormat_GVSP_BayerGB12Packed, true)->img()->GetImagePixelFormat(),
            VyPixelFormat_GVSP_BayerGR12Packed);
  EXPECT_EQ(Run(gb, VyPixelFormat_GVSP_BayerGB10Packed, true)->img()->GetImagePixelFormat(),
            VyPixelFormat_GVSP_BayerRG10Packed);
  EXPECT_THROW(Run(gb, VyPixelFormat_GVSP_BayerBG12Packed, true), GenICam::RuntimeException);
  Image bg(4, 2, VyPixelFormat_BayerBG8);
  EXPECT_EQ(Run(bg, VyPixelFormat_GVSP_BayerBG12Packed, true)->img()->GetImagePixelFormat(),
            VyPixelFormat_GVSP_BayerRG12Packed);
  Image gr(4, 2, VyPixelFormat_BayerGR8);
  EXPECT_EQ(Run(gr, VyPixelFormat_BayerGR10p, true)->img()->GetImagePixelFormat(), VyPixelFormat_BayerBG10p);
  // 4-bit packed destinations fall into the 8-bit row.
  EXPECT_EQ(Run(rg4, VyPixelFormat_BayerRG4p, true)->img()->GetImagePixelFormat(), VyPixelFormat_BayerGB8);
  // A copy between equal Bayer formats turns over too.
  EXPECT_EQ(Run(rg4, VyPixelFormat_BayerRG8, true)->img()->GetImagePixelFormat(), VyPixelFormat_BayerGB8);
  // Only Bayer to Bayer changes the format.
  Image mono(4, 4, VyPixelFormat_Mono8);
  EXPECT_EQ(Run(mono, VyPixelFormat_Mono16, true)->img()->GetImagePixelFormat(), VyPixelFormat_Mono16);
}

TEST_F(ConverterTest, FlipAlongARouteLandsLinesAndKeepsTheColours) {
  // BayerRG12 (route through BayerRG8, mirrored to BayerGB8) to BGR8 with a
  // flip gives the flipped picture of the same scene as without the flip.
  Image src(8, 6, VyPixelFormat_BayerRG12);
  for (size_t y = 0; y < 6; ++y)
    for (size_t x = 0; x < 8; ++x) {
      // Red sites bright, the others dark: a red scene.
      const bool red = y % 2 == 0 && x % 2 == 0;
      src.line16(y)[x] = red ? 4000 : 160;
    }
  conv->SetBayerInterpolationMethod(VyBayerInterpolationMethod_NearestNeighbor);
  auto straight = Run(src, VyPixelFormat_BGR8, false);
  auto flipped = Run(src, VyPixelFormat_BGR8, true);
  for (size_t y = 0; y < 6; ++y)
    for (size_t i = 0; i < 24; ++i) EXPECT_EQ(flipped->line(5 - y)[i], straight->line(y)[i]) << y << "," << i;
  EXPECT_GT(straight->line(2)[2 * 3 + 2], 200);  // red of a red site
  EXPECT_LT(straight->line(2)[2 * 3 + 0], 20);   // its blue
}

TEST_F(ConverterTest, InPlaceConversion) {
  Image im(5, 4, VyPixelFormat_Mono8);
  for (size_t y = 0; y < 4; ++y)
    for (size_t x = 0; x < 5; ++x) im.line(y)[x] = static_cast<uint8_t>(10 * y + x);
  const std::vector<uint8_t> before = im.bytes();
  void* const pBefore = im.img()->GetImageBuffer();

  conv->SetDestinationPixelFormat(VyPixelFormat_Mono8);
  conv->Convert(im.img(), im.buffer.Get());
  EXPECT_EQ(im.bytes(), before);
  EXPECT_EQ(im.img()->GetImageBuffer(), pBefore);

  conv->SetReverseY(true);
  conv->Convert(im.img(), im.buffer.Get());
  for (size_t y = 0; y < 4; ++y) EXPECT_EQ(im.line(y)[1], 10 * (3 - y) + 1);

  conv->SetReverseY(false);
  conv->SetDestinationPixelFormat(VyPixelFormat_BGRa8);
  conv->Convert(im.img(), im.buffer.Get());
  EXPECT_EQ(im.img()->GetImagePixelFormat(), VyPixelFormat_BGRa8);
  EXPECT_EQ(im.line(0)[4 * 2 + 1], 32);  // pixel 2 of line 0 held 30 + 2 after the flip
}

TEST_F(ConverterTest, CopyStepsLinesAndPlanes) {
  Image planar(3, 2, VyPixelFormat_RGB8_Planar);
  uint8_t* p = static_cast<uint8_t*>(planar.img()->GetImageBuffer());
  const size_t planePitch = planar.img()->GetImagePlanePitch();
  for (size_t k = 0; k < 3; ++k)
    for (size_t y = 0; y < 2; ++y)
      for (size_t x = 0; x < 3; ++x) p[k * planePitch + y * 3 + x] = static_cast<uint8_t>(100 * k + 10 * y + x);
  conv->SetLinePitchAlignment(8);
  auto out = Run(planar, VyPixelFormat_RGB8_Planar, true);
  ASSERT_EQ(out->img()->GetImageLinePitch(), 8u);
  const uint8_t* q = static_cast<const uint8_t*>(out->img()->GetImageBuffer());
  const size_t outPlane = out->img()->GetImagePlanePitch();
  for (size_t k = 0; k < 3; ++k)
    for (size_t y = 0; y < 2; ++y)
      for (size_t x = 0; x < 3; ++x) EXPECT_EQ(q[k * outPlane + (1 - y) * 8 + x], 100 * k + 10 * y + x);
}

TEST_F(ConverterTest, MonoWeightsOrderAndAlpha) {
  Image bgr(2, 1, VyPixelFormat_BGR8);
  const uint8_t px[6] = {10, 20, 30, 10, 20, 30};
  std::memcpy(bgr.line(0), px, 6);
  EXPECT_EQ(Run(bgr, VyPixelFormat_Mono8)->line(0)[0], 21);
  Image rgb(2, 1, VyPixelFormat_RGB8);
  std::memcpy(rgb.line(0), px, 6);
  EXPECT_EQ(Run(rgb, VyPixelFormat_Mono8)->line(0)[0], 18);

  // Alpha keeps what the destination buffer held.
  Image mono(2, 2, VyPixelFormat_Mono8);
  mono.line(0)[0] = 7;
  Image dest(2, 2, VyPixelFormat_BGRa8);
  for (size_t y = 0; y < 2; ++y) std::memset(dest.line(y), 0xAB, 8);
  conv->SetDestinationPixelFormat(VyPixelFormat_BGRa8);
  conv->Convert(mono.img(), dest.buffer.Get());
  EXPECT_EQ(dest.line(0)[0], 7);
  EXPECT_EQ(dest.line(0)[2], 7);
  EXPECT_EQ(dest.line(0)[3], 0xAB);
  EXPECT_EQ(dest.line(1)[7], 0xAB);

  // BGR8 to RGB8 exchanges red and blue; the flip lands line 0 last.
  Image two(1, 2, VyPixelFormat_BGR8);
  two.line(0)[0] = 1, two.line(0)[1] = 2, two.line(0)[2] = 3;
  auto out = Run(two, VyPixelFormat_RGB8, true);
  EXPECT_EQ(out->line(1)[0], 3);
  EXPECT_EQ(out->line(1)[2], 1);
}

TEST_F(ConverterTest, DepthChangesGoThroughTheTable) {
  // Mono12p 0xABC, 0x123 -> Mono8 through the route to BGR8 with gamma 1: i >> 4.
  Image packed(2, 1, VyPixelFormat_Mono12p);
  const uint8_t bytes[3] = {0xBC, 0x3A, 0x12};
  std::memcpy(packed.line(0), bytes, 3);
  auto bgr = Run(packed, VyPixelFormat_BGR8);
  EXPECT_EQ(bgr->line(0)[0], 0xAB);
  EXPECT_EQ(bgr->line(0)[5], 0x12);

  // Gamma 2 on 12 to 8 bits.
  conv->SetGammaValue(2.0);
  Image m12(1, 1, VyPixelFormat_Mono12);
  m12.line16(0)[0] = 2048;
  const double y = std::fma(std::pow(2048.0 / 4095.0, 2.0), 255.0, 0.5);
  EXPECT_EQ(Run(m12, VyPixelFormat_Mono8)->line(0)[0], static_cast<int>(y));
  // No table between equal depths: gamma has no effect on a copy of samples.
  Image m12b(1, 1, VyPixelFormat_Mono12);
  m12b.line16(0)[0] = 2048;
  EXPECT_EQ(Run(m12b, VyPixelFormat_BGR12)->line16(0)[1], 2048);
  conv->SetGammaValue(1.0);

  // The expansion mode set through its register: Fixed keeps the value.
  Image m8(1, 1, VyPixelFormat_Mono8);
  m8.line(0)[0] = 255;
  EXPECT_EQ(Run(m8, VyPixelFormat_Mono12)->line16(0)[0], 4095);
  GenApi::CEnumerationPtr mode = conv->GetINodeMap()->GetNode("BitExpansionMode");
  mode->FromString("Fixed");
  EXPECT_EQ(Run(m8, VyPixelFormat_Mono12)->line16(0)[0], 255);
  mode->FromString("LeftShiftBy1");
  EXPECT_EQ(Run(m8, VyPixelFormat_Mono12)->line16(0)[0], 4095);
  mode->FromString("LeftShiftBy0");
  EXPECT_EQ(Run(m8, VyPixelFormat_Mono12)->line16(0)[0], 4080);

  // BGR10 to Mono16 passes Mono10: m = (2R + 5G + B) / 8 at 10 bits, then stretched.
  Image c10(1, 1, VyPixelFormat_BGR10);
  c10.line16(0)[0] = 100, c10.line16(0)[1] = 200, c10.line16(0)[2] = 300;
  mode->FromString("Gamma");
  EXPECT_EQ(Run(c10, VyPixelFormat_Mono16)->line16(0)[0], static_cast<uint16_t>(212.0 / 1023.0 * 65535.0 + 0.5));
}
