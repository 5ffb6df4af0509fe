// The reverse converter: where every pixel lands under the eight moves, the
// Bayer phase of the destination, copies, in-place use, registers and texts.
#include "TestSupport.h"

#include <utility>

#include "VyApi_IP/VyReverseConverter.h"

using namespace VyApi;
using namespace VyApiTest;

namespace {

using Fmt = EVyPixelFormatNamingConvention_t;

// Where source pixel (x, y) of a W x H image lands: the flips act on the
// source, then the turn acts on the flipped image.
std::pair<size_t, size_t> Landing(size_t x, size_t y, size_t w, size_t h, int r, bool bX, bool bY) {
  if (bX) x = w - 1 - x;
  if (bY) y = h - 1 - y;
  if (r == 1) return {h - 1 - y, x};
  if (r == 2) return {y, w - 1 - x};
  return {x, y};
}

uint8_t Mark(size_t x, size_t y, size_t b) { return static_cast<uint8_t>((x * 7 + y * 13 + b * 3 + 1) % 251); }

// The colour of site (x, y): the filter seen from a site names the mosaic
// starting there, so its first letter is the site's own colour.
char SiteColour(const IVyPixelFormatInfo* info, size_t x, size_t y) {
  switch (info->GetPixelColorFilter(x, y)) {
    case VyPixelColorFilter_BayerRG: return 'R';
    case VyPixelColorFilter_BayerBG: return 'B';
    default: return 'G';
  }
}

size_t PixelBytes(Fmt f) { return GetIVyPixelFormatInfo(f)->GetPixelBitCount() / 8; }

void FillMarks(Image& im) {
  const size_t n = PixelBytes(im.img()->GetImagePixelFormat());
  for (size_t y = 0; y < im.img()->GetImageHeight(); ++y)
    for (size_t x = 0; x < im.img()->GetImageWidth(); ++x)
      for (size_t b = 0; b < n; ++b) im.line(y)[x * n + b] = Mark(x, y, b);
}

uint32_t ReadU32(GenApi::IPort& port, int64_t address) {
  uint32_t v = 0xDEADBEEF;
  port.Read(&v, address, 4);
  return v;
}

void WriteU32(GenApi::IPort& port, int64_t address, uint32_t v) { port.Write(&v, address, 4); }

class ReverseTest : public KitTest {
protected:
  void SetUp() override {
    KitTest::SetUp();
    conv.Reset(CreateIVyConverter(VyConverterType_Reverse));
  }
  void TearDown() override {
    conv.Reset();
    KitTest::TearDown();
  }
  void Set(int r, bool bX, bool bY) {
    conv->SetRotationMode(static_cast<EVyRotationMode_t>(r));
    conv->SetReverseX(bX);
    conv->SetReverseY(bY);
  }
  GenApi::IPort& Port() { return *dynamic_cast<GenApi::IPort*>(static_cast<IVyConverterReleasable*>(conv.Get())); }
  CVyAutoPtr<IVyConverterReleasable, IVyReverseConverter> conv;
};

// The converter with the frame's pool opened for inspection.
class PoolProbe : public CVyReverseConverter {
public:
  size_t BuffersMade() const { return m_vecAllBuffers.size(); }
  size_t BuffersFree() const { return m_vecFreeBuffers.size(); }
};

}  // namespace

TEST_F(ReverseTest, DefaultsInfoAndArgumentTexts) {
  EXPECT_FALSE(conv->GetReverseX());
  EXPECT_FALSE(conv->GetReverseY());
  EXPECT_EQ(conv->GetRotationMode(), VyRotationMode_OFF);
  EXPECT_EQ(conv->GetLinePitchAlignment(), 1u);
  IVyConverterInfo* info = conv->GetIVyConverterInfo();
  EXPECT_EQ(info->GetConverterType(), VyConverterType_Reverse);
  EXPECT_EQ(info->GetConverterName(), "Reverse");
  for (Fmt f : {VyPixelFormat_BayerBG16, VyPixelFormat_YCbCr8, VyPixelFormat_CBGR10p32})
    EXPECT_TRUE(info->IsSupported(f)) << f;
  for (Fmt f : {VyPixelFormat_Mono10p, VyPixelFormat_YCbCr422_8})
    EXPECT_FALSE(info->IsSupported(f)) << f;

  EXPECT_EQ(MessageOf([&] { conv->SetRotationMode(static_cast<EVyRotationMode_t>(3)); }),
            "eRM = 3 must be smaller than Max = 3");
  EXPECT_THROW(conv->SetRotationMode(static_cast<EVyRotationMode_t>(3)), GenICam::OutOfRangeException);
  EXPECT_EQ(conv->GetRotationMode(), VyRotationMode_OFF);
  Image dst(1, 1, VyPixelFormat_Mono8);
  EXPECT_EQ(MessageOf([&] { conv->Convert(nullptr, dst.buffer.Get()); }), "IVyImage pointer is NULL.");
  EXPECT_THROW(conv->Convert(nullptr, dst.buffer.Get()), GenICam::InvalidArgumentException);
}

TEST_F(ReverseTest, EveryMoveLandsEveryPixelForEveryPixelWidth) {
  // Pixel widths 1, 2, 3, 4, 6 and 8 bytes; odd and even sizes; 70 x 37 spans
  // several tiles of the quarter turns with ragged edges.
  const Fmt formats[] = {VyPixelFormat_Mono8, VyPixelFormat_Mono12, VyPixelFormat_BGR8,
                         VyPixelFormat_RGB10p32, VyPixelFormat_BGR16, VyPixelFormat_YCbCr8};
  const std::pair<size_t, size_t> sizes[] = {{5, 3}, {4, 6}, {1, 7}, {70, 37}};
  for (Fmt f : formats) {
    const size_t n = PixelBytes(f);
    for (auto [w, h] : sizes) {
      Image src(w, h, f);
      FillMarks(src);
      for (int r = 0; r < 3; ++r)
        for (int flags = 0; flags < 4; ++flags) {
          const bool bX = flags & 1, bY = flags & 2;
          Set(r, bX, bY);
          Image dst(1, 1, VyPixelFormat_Mono8);
          conv->Convert(src.img(), dst.buffer.Get());
          const bool bTurned = r != 0;
          ASSERT_EQ(dst.img()->GetImageWidth(), bTurned ? h : w);
          ASSERT_EQ(dst.img()->GetImageHeight(), bTurned ? w : h);
          ASSERT_EQ(dst.img()->GetImagePixelFormat(), f);
          size_t nWrong = 0;
          for (size_t y = 0; y < h; ++y)
            for (size_t x = 0; x < w; ++x) {
              const auto [dx, dy] = Landing(x, y, w, h, r, bX, bY);
              for (size_t b = 0; b < n; ++b) nWrong += dst.line(dy)[dx * n + b] != Mark(x, y, b);
            }
          EXPECT_EQ(nWrong, 0u) << "format " << f << ", " << w << " x " << h << ", r " << r << ", X " << bX
                                << ", Y " << bY;
        }
    }
  }
}

TEST_F(ReverseTest, BayerDestinationTakesThePhaseThatTheMoveGives) {
  // For every phase, parity of the size and move, each destination site must
  // have the colour of the source site that landed on it; the depth stays.
  const Fmt phases[] = {VyPixelFormat_BayerRG12, VyPixelFormat_BayerGR12, VyPixelFormat_BayerGB12,
                        VyPixelFormat_BayerBG12};
  for (Fmt f : phases) {
    const IVyPixelFormatInfo* src = GetIVyPixelFormatInfo(f);
    for (size_t w : {4, 5})
      for (size_t h : {4, 5})
        for (int r = 0; r < 3; ++r)
          for (int flags = 0; flags < 4; ++flags) {
            const bool bX = flags & 1, bY = flags & 2;
            const Fmt d = CVyReverseConverter::GetDestinationFormat(f, w, h, r, bX, bY);
            const IVyPixelFormatInfo* dst = GetIVyPixelFormatInfo(d);
            ASSERT_TRUE(dst->IsBayer());
            EXPECT_EQ(dst->GetComponentBitDepth(), 12u);
            for (size_t y = 0; y < h; ++y)
              for (size_t x = 0; x < w; ++x) {
                const auto [dx, dy] = Landing(x, y, w, h, r, bX, bY);
                ASSERT_EQ(SiteColour(dst, dx, dy), SiteColour(src, x, y))
                    << src->GetName() << " " << w << " x " << h << " r " << r << " X " << bX << " Y " << bY;
              }
          }
  }

  // Through Convert, with the sizes of a camera frame.
  Image rg(640, 480, VyPixelFormat_BayerRG8);
  Image out(1, 1, VyPixelFormat_Mono8);
  Set(0, true, false);
  conv->Convert(rg.img(), out.buffer.Get());
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_BayerGR8);
  Set(0, false, true);
  conv->Convert(rg.img(), out.buffer.Get());
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_BayerGB8);
  Set(1, false, false);
  conv->Convert(rg.img(), out.buffer.Get());
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_BayerGR8);
  EXPECT_EQ(out.img()->GetImageWidth(), 480u);
  EXPECT_EQ(out.img()->GetImageHeight(), 640u);
  Image odd(641, 480, VyPixelFormat_BayerRG8);
  Set(0, true, false);
  conv->Convert(odd.img(), out.buffer.Get());
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_BayerRG8);
  Image deep(6, 4, VyPixelFormat_BayerBG16);
  conv->Convert(deep.img(), out.buffer.Get());
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_BayerGB16);
}

TEST_F(ReverseTest, NoMoveIsAPlainCopyWithItsOwnAlignmentAndTakesAnyFormat) {
  conv->SetLinePitchAlignment(8);
  Image src(5, 3, VyPixelFormat_Mono8);
  FillMarks(src);
  Image dst(1, 1, VyPixelFormat_Mono16);
  conv->Convert(src.img(), dst.buffer.Get());
  EXPECT_EQ(dst.img()->GetImageLinePitch(), 5u);  // CopyImage's tight lines, not the alignment of 8
  EXPECT_EQ(dst.bytes(), src.bytes());
  conv->SetReverseX(true);
  conv->Convert(src.img(), dst.buffer.Get());
  EXPECT_EQ(dst.img()->GetImageLinePitch(), 8u);
  // Line copies of a wider destination pitch read no further than the source holds.
  conv->SetReverseX(false);
  conv->SetReverseY(true);
  conv->Convert(src.img(), dst.buffer.Get());
  for (size_t y = 0; y < 3; ++y)
    for (size_t x = 0; x < 5; ++x) EXPECT_EQ(dst.line(2 - y)[x], Mark(x, y, 0));
  conv->SetReverseY(false);
  conv->SetReverseX(true);

  // No mover for packed Mono10p: a move raises, the copy passes.
  Image packed(8, 2, VyPixelFormat_Mono10p);
  FillMarks(packed);
  EXPECT_EQ(MessageOf([&] { conv->Convert(packed.img(), dst.buffer.Get()); }),
            "Not supported pixelformat Mono10p");
  EXPECT_THROW(conv->Convert(packed.img(), dst.buffer.Get()), GenICam::RuntimeException);
  try {
    conv->Convert(packed.img(), dst.buffer.Get());
  } catch (const GenICam::GenericException& e) {
    EXPECT_STREQ(e.GetSourceFileName(), "VyApi_IP/VyReverseConverter");
  }
  conv->SetReverseX(false);
  conv->Convert(packed.img(), dst.buffer.Get());
  EXPECT_EQ(dst.img()->GetImagePixelFormat(), VyPixelFormat_Mono10p);
  EXPECT_EQ(dst.bytes(), packed.bytes());
}

TEST_F(ReverseTest, InPlaceUsesTheTemporaryPoolOnlyWhenPixelsMove) {
  PoolProbe probe;
  Image im(5, 3, VyPixelFormat_Mono8);
  FillMarks(im);
  const std::vector<uint8_t> before = im.bytes();
  void* const pBefore = im.img()->GetImageBuffer();
  probe.Convert(im.img(), im.buffer.Get());
  EXPECT_EQ(im.bytes(), before);
  EXPECT_EQ(im.img()->GetImageBuffer(), pBefore);
  EXPECT_EQ(probe.BuffersMade(), 0u);

  probe.SetRotationMode(VyRotationMode_Counterclockwise90);
  probe.Convert(im.img(), im.buffer.Get());
  ASSERT_EQ(im.img()->GetImageWidth(), 3u);
  ASSERT_EQ(im.img()->GetImageHeight(), 5u);
  for (size_t y = 0; y < 3; ++y)
    for (size_t x = 0; x < 5; ++x) EXPECT_EQ(im.line(4 - x)[y], Mark(x, y, 0));
  EXPECT_EQ(probe.BuffersMade(), 1u);
  EXPECT_EQ(probe.BuffersFree(), 1u);  // handed back
  probe.Convert(im.img(), im.buffer.Get());
  EXPECT_EQ(probe.BuffersMade(), 1u);  // and lent again
}

TEST_F(ReverseTest, AlphaIsLeftAloneExceptByTheLineCopyOfAVerticalFlip) {
  for (Fmt f : {VyPixelFormat_BGRa8, VyPixelFormat_BGRa16}) {
    const size_t n = PixelBytes(f), nMoved = n / 4 * 3;
    Image src(3, 2, f);
    FillMarks(src);
    for (int r = 0; r < 3; ++r)
      for (int flags = 1; flags < 4; ++flags) {
        Set(r, flags & 1, flags & 2);
        Image dst(r ? 2 : 3, r ? 3 : 2, f);
        for (size_t y = 0; y < dst.img()->GetImageHeight(); ++y)
          for (size_t i = 0; i < dst.img()->GetImageLinePitch(); ++i) dst.line(y)[i] = 0xEE;
        conv->Convert(src.img(), dst.buffer.Get());
        const bool bLineCopy = r == 0 && flags == 2;
        for (size_t y = 0; y < dst.img()->GetImageHeight(); ++y)
          for (size_t x = 0; x < dst.img()->GetImageWidth(); ++x)
            for (size_t b = nMoved; b < n; ++b) {
              if (bLineCopy)
                EXPECT_EQ(dst.line(y)[x * n + b], Mark(x, 1 - y, b));
              else
                EXPECT_EQ(dst.line(y)[x * n + b], 0xEE) << f << " r " << r << " flags " << flags;
            }
      }
  }
}

TEST_F(ReverseTest, ViewsOfALargerImageAreReadThroughTheirOwnPitch) {
  Image big(9, 6, VyPixelFormat_Mono8);
  FillMarks(big);
  IVyImage* view = big.img()->GetROIImage(2, 1, 4, 3);
  for (int r = 0; r < 3; ++r)
    for (int flags = 0; flags < 4; ++flags) {
      Set(r, flags & 1, flags & 2);
      Image dst(1, 1, VyPixelFormat_Mono8);
      conv->Convert(view, dst.buffer.Get());
      for (size_t y = 0; y < 3; ++y)
        for (size_t x = 0; x < 4; ++x) {
          const auto [dx, dy] = Landing(x, y, 4, 3, r, flags & 1, flags & 2);
          EXPECT_EQ(dst.line(dy)[dx], Mark(x + 2, y + 1, 0)) << r << " " << flags;
        }
    }
}

TEST_F(ReverseTest, RegistersThroughThePortStoreWithoutChecks) {
  GenApi::IPort& port = Port();
  EXPECT_EQ(port.GetAccessMode(), GenApi::RW);
  uint8_t b[4] = {0xAA, 0xAA, 0xAA, 0xAA};
  port.Read(b, 0, 4);
  EXPECT_EQ(b[0], 8);  // SizeTSize, served by the frame
  EXPECT_EQ(b[1], 0xAA);

  conv->SetReverseX(true);
  conv->SetRotationMode(VyRotationMode_Clockwise90);
  EXPECT_EQ(ReadU32(port, 0x10), 1u);
  EXPECT_EQ(ReadU32(port, 0x18), 0u);
  EXPECT_EQ(ReadU32(port, 0x20), 1u);

  // A flag is on only for the value 1.
  WriteU32(port, 0x18, 1);
  EXPECT_TRUE(conv->GetReverseY());
  WriteU32(port, 0x10, 2);
  EXPECT_FALSE(conv->GetReverseX());

  // A rotation out of range is stored and read back, and Convert takes it as none.
  WriteU32(port, 0x20, 3);
  EXPECT_EQ(conv->GetRotationMode(), 3);
  EXPECT_EQ(ReadU32(port, 0x20), 3u);
  Image src(4, 3, VyPixelFormat_Mono8);
  FillMarks(src);
  Image dst(1, 1, VyPixelFormat_Mono8);
  conv->Convert(src.img(), dst.buffer.Get());
  ASSERT_EQ(dst.img()->GetImageWidth(), 4u);
  EXPECT_EQ(dst.line(0)[1], Mark(1, 2, 0));  // flipped in Y only
}

TEST_F(ReverseTest, NodeMapDrivesTheModuleAndSettersInvalidateTheirNodes) {
  GenApi::INodeMap* map = conv->GetINodeMap();
  ASSERT_NE(map, nullptr);
  GenApi::CBooleanPtr reverseX = map->GetNode("ReverseX");
  GenApi::CBooleanPtr reverseY = map->GetNode("ReverseY");
  GenApi::CEnumerationPtr rotation = map->GetNode("RotationMode");
  GenApi::CCategoryPtr category = map->GetNode("ImageFormatControl");
  ASSERT_TRUE(reverseX.IsValid() && reverseY.IsValid() && rotation.IsValid() && category.IsValid());
  GenApi::FeatureList_t features;
  category->GetFeatures(features);
  EXPECT_EQ(features.size(), 3u);
  GenApi::NodeList_t entries;
  rotation->GetEntries(entries);
  EXPECT_EQ(entries.size(), 3u);

  reverseX->SetValue(true);
  EXPECT_TRUE(conv->GetReverseX());
  reverseY->SetValue(true);
  EXPECT_TRUE(conv->GetReverseY());
  rotation->FromString("Counterclockwise90");
  EXPECT_EQ(conv->GetRotationMode(), VyRotationMode_Counterclockwise90);
  EXPECT_EQ(rotation->GetIntValue(), 2);

  // Cached values follow the typed setters.
  conv->SetReverseX(false);
  EXPECT_FALSE(reverseX->GetValue());
  conv->SetReverseY(false);
  EXPECT_FALSE(reverseY->GetValue());
  conv->SetRotationMode(VyRotationMode_Clockwise90);
  EXPECT_EQ(std::string(rotation->ToString().c_str()), "Clockwise90");
  conv->SetRotationMode(VyRotationMode_OFF);
  EXPECT_EQ(std::string(rotation->ToString().c_str()), "OFF");
}

TEST_F(ReverseTest, NullDestinationStopsTheProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  Image src(2, 2, VyPixelFormat_Mono8);
  EXPECT_DEATH(conv->Convert(src.img(), nullptr), "\\(pDestIVyImageInside\\) != NULL");
}
