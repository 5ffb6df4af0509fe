// BMP, RAW and CSV routines: the exact bytes and text they write, the
// loaders' round trips and their refusals.
#include "StillImageTestSupport.h"

#include <functional>

#include "VyApi_IP/VyBMPWriter.h"
#include "VyApi_IP/VyCSVWriter.h"
#include "VyApi_IP/VyRawWriter.h"

using namespace VyApi;
using namespace VyApiTest;

namespace {

class StillFileTest : public KitTest {
protected:
  /// Runs a routine on a file opened with the mode and closes it on every path.
  void WithFile(const std::string& strPath, const char* szMode, const std::function<void(FILE*)>& fn) {
    FILE* pFile = std::fopen(strPath.c_str(), szMode);
    ASSERT_NE(pFile, nullptr) << strPath;
    try {
      fn(pFile);
    } catch (...) {
      std::fclose(pFile);
      throw;
    }
    std::fclose(pFile);
  }
  std::vector<uint8_t> Bmp(IVyImage* pImage) {
    const std::string strPath = dir / "image.bmp";
    WithFile(strPath, "wb", [&](FILE* f) { WriteBMP(pImage, strPath.c_str(), f); });
    return ReadBytes(strPath);
  }
  void LoadBmpInto(IVyImageBuffer* pBuffer, const std::vector<uint8_t>& file) {
    const std::string strPath = dir / "in.bmp";
    WriteBytes(strPath, file);
    WithFile(strPath, "rb", [&](FILE* f) { LoadBMP(pBuffer, strPath.c_str(), f); });
  }
  std::string BmpRefusal(const std::vector<uint8_t>& file) {
    Image out(1, 1, VyPixelFormat_Mono8);
    return MessageOf([&] { LoadBmpInto(out.buffer.Get(), file); });
  }
  std::vector<uint8_t> Raw(IVyImage* pImage) {
    const std::string strPath = dir / "image.raw";
    WithFile(strPath, "wb", [&](FILE* f) { WriteRaw(pImage, strPath.c_str(), f); });
    return ReadBytes(strPath);
  }
  void LoadRawInto(IVyImageBuffer* pBuffer, const std::vector<uint8_t>& file) {
    const std::string strPath = dir / "in.raw";
    WriteBytes(strPath, file);
    WithFile(strPath, "rb", [&](FILE* f) { LoadRaw(pBuffer, strPath.c_str(), f); });
  }
  std::string Csv(IVyImage* pImage) {
    const std::string strPath = dir / "image.csv";
    WriteCSV(pImage, strPath.c_str());
    return ReadText(strPath);
  }
  std::string Unreadable(const char* szFile) { return std::string("File ") + (dir / szFile) + " is unreadable."; }

  ScratchDir dir;
};

// --- BMP -------------------------------------------------------------------

TEST_F(StillFileTest, Mono8BmpHasPaletteAndPaddedBottomUpLines) {
  Image im(5, 3, VyPixelFormat_Mono8);
  FillPattern(im);
  ASSERT_EQ(im.img()->GetImageLinePitch(), 5u);
  const std::vector<uint8_t> f = Bmp(im.img());
  ASSERT_EQ(f.size(), 1078u + 8 * 3);
  EXPECT_EQ(LE(f, 0, 2), 0x4D42u);
  EXPECT_EQ(LE(f, 2, 4), f.size());
  EXPECT_EQ(LE(f, 6, 4), 0u);
  EXPECT_EQ(LE(f, 10, 4), 1078u);
  EXPECT_EQ(LE(f, 14, 4), 40u);
  EXPECT_EQ(LE(f, 18, 4), 5u);
  EXPECT_EQ(LE(f, 22, 4), 3u);
  EXPECT_EQ(LE(f, 26, 2), 1u);
  EXPECT_EQ(LE(f, 28, 2), 8u);
  EXPECT_EQ(LE(f, 30, 4), 0u);
  EXPECT_EQ(LE(f, 34, 4), 24u);  // padded pitch 8 x 3
  EXPECT_EQ(LE(f, 38, 8), 0u);
  EXPECT_EQ(LE(f, 46, 4), 256u);
  EXPECT_EQ(LE(f, 50, 4), 256u);
  for (uint32_t i = 0; i < 256; ++i) ASSERT_EQ(LE(f, 54 + 4 * i, 4), i * 0x010101u) << i;
  for (size_t y = 0; y < 3; ++y) {
    const size_t nAt = 1078 + (2 - y) * 8;
    EXPECT_EQ(std::vector<uint8_t>(f.begin() + nAt, f.begin() + nAt + 5), std::vector<uint8_t>(im.line(y), im.line(y) + 5));
    EXPECT_EQ(std::vector<uint8_t>(f.begin() + nAt + 5, f.begin() + nAt + 8), std::vector<uint8_t>(3, 0)) << "pad";
  }
}

TEST_F(StillFileTest, DeepGreyBmpKeepsSamplesBehindMasksOfTheirDepth) {
  for (auto [eFormat, nMask] : {std::pair{VyPixelFormat_Mono10, 0x3FFu}, std::pair{VyPixelFormat_Mono12, 0xFFFu},
                                std::pair{VyPixelFormat_Mono14, 0x3FFFu}, std::pair{VyPixelFormat_Mono16, 0xFFFFu}}) {
    Image im(3, 2, eFormat);
    FillPattern(im);
    const std::vector<uint8_t> f = Bmp(im.img());
    ASSERT_EQ(f.size(), 66u + 8 * 2) << nMask;  // pitch 6 padded to 8
    EXPECT_EQ(LE(f, 10, 4), 66u);
    EXPECT_EQ(LE(f, 28, 2), 16u);
    EXPECT_EQ(LE(f, 30, 4), 3u);
    EXPECT_EQ(LE(f, 34, 4), 16u);
    EXPECT_EQ(LE(f, 46, 8), 0u);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(LE(f, 54 + 4 * i, 4), nMask);
    EXPECT_EQ(LE(f, 66 + 8, 2), im.line16(0)[0]);  // first line last
  }
}

TEST_F(StillFileTest, ColourBmpLayouts) {
  struct Case {
    EVyPixelFormatNamingConvention_t eFormat;
    uint32_t nBits, nCompression, nOffBits;
  };
  for (const Case& c : {Case{VyPixelFormat_BGR8, 24, 0, 54}, Case{VyPixelFormat_BGRa8, 32, 0, 54},
                        Case{VyPixelFormat_CBGR10p32, 32, 3, 66}}) {
    Image im(3, 2, c.eFormat);
    FillPattern(im);
    const size_t nPitch = im.img()->GetImageLinePitch();
    const size_t nPadded = (nPitch + 3) / 4 * 4;
    const std::vector<uint8_t> f = Bmp(im.img());
    ASSERT_EQ(f.size(), c.nOffBits + nPadded * 2) << c.nBits;
    EXPECT_EQ(LE(f, 10, 4), c.nOffBits);
    EXPECT_EQ(LE(f, 28, 2), c.nBits);
    EXPECT_EQ(LE(f, 30, 4), c.nCompression);
    EXPECT_EQ(LE(f, 46, 8), 0u);
    // Every byte of the top line, alpha included, sits in the file's last line.
    EXPECT_EQ(std::vector<uint8_t>(f.begin() + c.nOffBits + nPadded, f.begin() + c.nOffBits + nPadded + nPitch),
              std::vector<uint8_t>(im.line(0), im.line(0) + nPitch));
    if (c.eFormat == VyPixelFormat_CBGR10p32) {
      EXPECT_EQ(LE(f, 54, 4), 0x3FF00000u);
      EXPECT_EQ(LE(f, 58, 4), 0x000FFC00u);
      EXPECT_EQ(LE(f, 62, 4), 0x000003FFu);
    }
  }
}

TEST_F(StillFileTest, BmpWriterRefusesOtherFormats) {
  Image im(4, 2, VyPixelFormat_RGB8);
  EXPECT_EQ(MessageOf([&] { Bmp(im.img()); }), "Not supported pixelformat RGB8");
}

TEST_F(StillFileTest, BmpRoundTripsEveryLayout) {
  for (auto eFormat : {VyPixelFormat_Mono8, VyPixelFormat_Mono10, VyPixelFormat_Mono12, VyPixelFormat_Mono14,
                       VyPixelFormat_Mono16, VyPixelFormat_BGR8, VyPixelFormat_BGRa8, VyPixelFormat_CBGR10p32}) {
    // Width 4 gives line pitches that are multiples of four, which the reader needs.
    Image im(4, 3, eFormat);
    FillPattern(im, 3);
    Image out(1, 1, VyPixelFormat_Mono8);
    LoadBmpInto(out.buffer.Get(), Bmp(im.img()));
    EXPECT_EQ(out.img()->GetImagePixelFormat(), eFormat);
    EXPECT_EQ(out.img()->GetImageWidth(), 4u);
    EXPECT_EQ(out.img()->GetImageHeight(), 3u);
    EXPECT_EQ(out.bytes(), im.bytes()) << GetIVyPixelFormatInfo(eFormat)->GetName();
  }
}

TEST_F(StillFileTest, TopDownBmpIsReadFromTheFirstLine) {
  Image im(4, 3, VyPixelFormat_BGR8);
  FillPattern(im);
  std::vector<uint8_t> f = Bmp(im.img());
  PutLE(f, 22, static_cast<uint32_t>(-3), 4);
  Image out(1, 1, VyPixelFormat_Mono8);
  LoadBmpInto(out.buffer.Get(), f);
  ASSERT_EQ(out.img()->GetImageHeight(), 3u);
  // The file's first stored line is the image's last one; top-down it becomes line 0.
  for (size_t y = 0; y < 3; ++y)
    EXPECT_EQ(std::vector<uint8_t>(out.line(y), out.line(y) + 12), std::vector<uint8_t>(im.line(2 - y), im.line(2 - y) + 12));
}

TEST_F(StillFileTest, BmpLoaderRefusals) {
  Image im(4, 2, VyPixelFormat_Mono8);
  const std::vector<uint8_t> good = Bmp(im.img());
  const std::string strText = Unreadable("in.bmp");
  auto with = [&](size_t nOffset, uint64_t nValue, size_t nBytes) {
    std::vector<uint8_t> f = good;
    PutLE(f, nOffset, nValue, nBytes);
    return f;
  };
  EXPECT_EQ(BmpRefusal(std::vector<uint8_t>(good.begin(), good.begin() + 13)), strText) << "short file header";
  EXPECT_EQ(BmpRefusal(std::vector<uint8_t>(good.begin(), good.begin() + 53)), strText) << "short info header";
  EXPECT_EQ(BmpRefusal(std::vector<uint8_t>(good.begin(), good.begin() + 1000)), strText) << "short palette";
  EXPECT_EQ(BmpRefusal(with(0, 0x4D43, 2)), strText) << "magic";
  EXPECT_EQ(BmpRefusal(with(54 + 4 * 7, 0x00000007, 4)), strText) << "colour palette";
  EXPECT_EQ(BmpRefusal(with(46, 255, 4)), strText) << "palette size";
  EXPECT_EQ(BmpRefusal(with(28, 4, 2)), strText) << "4-bit";
  EXPECT_EQ(BmpRefusal(with(30, 1, 4)), strText) << "RLE";
  EXPECT_EQ(BmpRefusal(with(2, good.size() - 1, 4)), strText) << "bfSize smaller than the data";
  EXPECT_EQ(BmpRefusal(with(10, 1077, 4)), strText) << "data inside the palette";
  EXPECT_EQ(BmpRefusal(std::vector<uint8_t>(good.begin(), good.end() - 1)), strText) << "short data";

  Image deep(2, 2, VyPixelFormat_Mono12);
  std::vector<uint8_t> f = Bmp(deep.img());
  PutLE(f, 58, 0x3FF, 4);
  EXPECT_EQ(BmpRefusal(f), strText) << "unequal masks";
  PutLE(f, 54, 0x7FF, 4);
  PutLE(f, 58, 0x7FF, 4);
  PutLE(f, 62, 0x7FF, 4);
  EXPECT_EQ(BmpRefusal(f), strText) << "11-bit mask";
  Image cbgr(2, 2, VyPixelFormat_CBGR10p32);
  f = Bmp(cbgr.img());
  PutLE(f, 54, 0x00FF0000, 4);
  EXPECT_EQ(BmpRefusal(f), strText) << "other 32-bit masks";
}

// --- RAW -------------------------------------------------------------------

TEST_F(StillFileTest, RawHeaderIsSeventyTwoBytesThenTheMemory) {
  Image im(5, 3, VyPixelFormat_Mono8);
  SizeWithAlignment(im, 5, 3, VyPixelFormat_Mono8, 8);
  FillPattern(im);
  ASSERT_EQ(im.img()->GetImageLinePitch(), 8u);
  const std::vector<uint8_t> f = Raw(im.img());
  ASSERT_EQ(f.size(), 72u + 24);
  EXPECT_EQ(std::string(f.begin(), f.begin() + 4), "VYRW");
  const uint64_t expected[][3] = {{4, 4, 1},  {8, 4, 0},   {12, 4, 5},  {16, 4, 0x10000}, {20, 4, 0},
                                  {24, 8, 72}, {32, 8, 24}, {40, 8, 5},  {48, 8, 3},       {56, 8, 8},
                                  {64, 4, VyPixelFormat_Mono8},         {68, 4, 0}};
  for (const auto& e : expected) EXPECT_EQ(LE(f, e[0], e[1]), e[2]) << "offset " << e[0];
  const uint8_t* p = static_cast<const uint8_t*>(im.img()->GetImageBuffer());
  EXPECT_EQ(std::vector<uint8_t>(f.begin() + 72, f.end()), std::vector<uint8_t>(p, p + 24));
}

TEST_F(StillFileTest, RawRoundTripKeepsPitchAndFormat) {
  Image im(5, 3, VyPixelFormat_Mono8);
  SizeWithAlignment(im, 5, 3, VyPixelFormat_Mono8, 8);
  FillPattern(im);
  Image out(2, 2, VyPixelFormat_BGR8);
  LoadRawInto(out.buffer.Get(), Raw(im.img()));
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_Mono8);
  EXPECT_EQ(out.img()->GetImageWidth(), 5u);
  EXPECT_EQ(out.img()->GetImageLinePitch(), 8u);
  EXPECT_EQ(std::vector<uint8_t>(out.line(0), out.line(0) + 24), std::vector<uint8_t>(im.line(0), im.line(0) + 24));

  // A packed format too: the memory goes as it stands.
  Image packed(6, 2, VyPixelFormat_BayerRG12p);
  FillPattern(packed, 9);
  LoadRawInto(out.buffer.Get(), Raw(packed.img()));
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_BayerRG12p);
  EXPECT_EQ(out.bytes(), packed.bytes());
}

TEST_F(StillFileTest, RawHeaderOfSixtyEightBytesStartsTheDataThere) {
  Image im(4, 2, VyPixelFormat_Mono16);
  FillPattern(im);
  std::vector<uint8_t> f = Raw(im.img());
  PutLE(f, 24, 68, 8);
  f.erase(f.begin() + 68, f.begin() + 72);
  Image out(1, 1, VyPixelFormat_Mono8);
  LoadRawInto(out.buffer.Get(), f);
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_Mono16);
  EXPECT_EQ(out.bytes(), im.bytes());
}

TEST_F(StillFileTest, RawLoaderRefusals) {
  Image im(4, 2, VyPixelFormat_Mono8);
  const std::vector<uint8_t> good = Raw(im.img());
  const std::string strText = Unreadable("in.raw");
  auto refusal = [&](const std::vector<uint8_t>& f) {
    Image out(1, 1, VyPixelFormat_Mono8);
    return MessageOf([&] { LoadRawInto(out.buffer.Get(), f); });
  };
  std::vector<uint8_t> f = good;
  PutLE(f, 24, 80, 8);
  EXPECT_EQ(refusal(f), strText) << "header size 80";
  PutLE(f, 24, 63, 8);
  EXPECT_EQ(refusal(f), strText) << "header size 63";
  EXPECT_EQ(refusal(std::vector<uint8_t>(good.begin(), good.begin() + 60)), strText) << "60 bytes";
  EXPECT_EQ(refusal(std::vector<uint8_t>(good.begin(), good.begin() + 70)), strText) << "header cut";
  EXPECT_EQ(refusal(std::vector<uint8_t>(good.begin(), good.end() - 1)), strText) << "data cut";
  f = good;
  PutLE(f, 56, 3, 8);  // a pitch that cannot hold a line of width 4
  EXPECT_EQ(refusal(f), strText) << "pitch";

  // A truncated data part is noticed only after the buffer took the file's size.
  Image out(1, 1, VyPixelFormat_BGR8);
  EXPECT_EQ(MessageOf([&] { LoadRawInto(out.buffer.Get(), std::vector<uint8_t>(good.begin(), good.end() - 1)); }),
            strText);
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_Mono8);
  EXPECT_EQ(out.img()->GetImageWidth(), 4u);
}

// --- CSV -------------------------------------------------------------------

TEST_F(StillFileTest, CsvOfMono8HasHeaderAndTrailingCommas) {
  Image im(2, 2, VyPixelFormat_Mono8);
  im.line(0)[0] = 0;
  im.line(0)[1] = 255;
  im.line(1)[0] = 7;
  im.line(1)[1] = 10;
  EXPECT_EQ(Csv(im.img()), "Width=2\nHeight=2\nPixelFormat=Mono8\n0,255,\n7,10,\n");
}

TEST_F(StillFileTest, CsvUnpacksBitStreamsLowBitsFirst) {
  Image mono1(8, 1, VyPixelFormat_Mono1p);
  mono1.line(0)[0] = 0xB1;  // 1011 0001
  EXPECT_EQ(Csv(mono1.img()), "Width=8\nHeight=1\nPixelFormat=Mono1p\n1,0,0,0,1,1,0,1,\n");

  // Four 10-bit values 0x001, 0x3FF, 0x155, 0x2AA in five bytes.
  Image mono10p(4, 2, VyPixelFormat_Mono10p);
  const uint64_t nBits = 0x001ull | 0x3FFull << 10 | 0x155ull << 20 | 0x2AAull << 30;
  for (size_t y = 0; y < 2; ++y)
    for (int i = 0; i < 5; ++i) mono10p.line(y)[i] = static_cast<uint8_t>(nBits >> (8 * i));
  EXPECT_EQ(Csv(mono10p.img()), "Width=4\nHeight=2\nPixelFormat=Mono10p\n1,1023,341,682,\n1,1023,341,682,\n");

  // Three 12-bit components per pixel.
  Image bgr12p(1, 1, VyPixelFormat_BGR12p);
  const uint64_t nRgb = 0xABCull | 0x123ull << 12 | 0xFEDull << 24;
  for (int i = 0; i < 5; ++i) bgr12p.line(0)[i] = static_cast<uint8_t>(nRgb >> (8 * i));
  EXPECT_EQ(Csv(bgr12p.img()), "Width=1\nHeight=1\nPixelFormat=BGR12p\n2748,291,4077,\n");
}

TEST_F(StillFileTest, CsvOfGigEPackedAndTenBitWords) {
  Image gev(3, 1, VyPixelFormat_GVSP_Mono12Packed);
  const uint8_t bytes[] = {0x12, 0x34, 0x56, 0xAB, 0xC0};
  std::memcpy(gev.line(0), bytes, sizeof bytes);
  // 0x123, 0x564, and the odd last pixel read like a first one: 0xABC.
  EXPECT_EQ(Csv(gev.img()), "Width=3\nHeight=1\nPixelFormat=GVSP_Mono12Packed\n291,1380,2748,\n");

  Image words(1, 1, VyPixelFormat_RGB10p32);
  const uint32_t nWord = 1u | 512u << 10 | 1023u << 20;
  std::memcpy(words.line(0), &nWord, 4);
  EXPECT_EQ(Csv(words.img()), "Width=1\nHeight=1\nPixelFormat=RGB10p32\n1,512,1023,\n");
}

TEST_F(StillFileTest, CsvShapesOfPlanarChromaAndDeepFormats) {
  Image planar(2, 1, VyPixelFormat_RGB8_Planar);
  uint8_t* p = static_cast<uint8_t*>(planar.img()->GetImageBuffer());
  const size_t nPlane = planar.img()->GetImagePlanePitch();
  for (int c = 0; c < 3; ++c) p[c * nPlane] = static_cast<uint8_t>(10 * (c + 1)), p[c * nPlane + 1] = 1;
  EXPECT_EQ(Csv(planar.img()), "Width=2\nHeight=1\nPixelFormat=RGB8_Planar\n10,1,\n20,1,\n30,1,\n");

  Image yuv(4, 1, VyPixelFormat_YCbCr411_8);
  for (int i = 0; i < 6; ++i) yuv.line(0)[i] = static_cast<uint8_t>(i);
  EXPECT_EQ(Csv(yuv.img()), "Width=4\nHeight=1\nPixelFormat=YCbCr411_8\n0,1,2,3,4,5,\n");

  Image bgra(1, 1, VyPixelFormat_BGRa12);
  for (int i = 0; i < 4; ++i) bgra.line16(0)[i] = static_cast<uint16_t>(4000 + i);
  EXPECT_EQ(Csv(bgra.img()), "Width=1\nHeight=1\nPixelFormat=BGRa12\n4000,4001,4002,4003,\n");
}

TEST_F(StillFileTest, CsvRefusesFourteenBitPackedAfterTheHeader) {
  Image im(4, 1, VyPixelFormat_Mono14p);
  const std::string strPath = dir / "p.csv";
  EXPECT_EQ(MessageOf([&] { WriteCSV(im.img(), strPath.c_str()); }), "Not supported pixelformat Mono14p");
  EXPECT_EQ(ReadText(strPath), "Width=4\nHeight=1\nPixelFormat=Mono14p\n");
  EXPECT_EQ(MessageOf([&] { WriteCSV(im.img(), (dir / "missing/p.csv").c_str()); }),
            "File " + (dir / "missing/p.csv") + " is unwritable.");
}

}  // namespace
