// TIFF, PNG and JPEG routines: exact TIFF layouts, files read back by
// independent readers (OpenCV/PIL, tiffinfo, pngcheck, djpeg), refusals.
#include "TestSupport.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>

#include "VyApi_IP/VyJpegWriterUnix.h"
#include "VyApi_IP/VyPngWriter.h"
#include "VyApi_IP/VyTiffWriter.h"

using namespace VyApi;
using namespace VyApiTest;

namespace {

const char* const kPython = "/usr/bin/python3";

std::string TempPath(const char* szExt) {
  static int nCounter = 0;
  return testing::TempDir() + "vy_fileformat_" + std::to_string(getpid()) + "_" + std::to_string(nCounter++) + szExt;
}

/// Opens the file, runs the routine and closes the file again, also when the routine raises.
void WriteWith(const std::string& strPath, const std::function<void(FILE*)>& write) {
  FILE* pFile = std::fopen(strPath.c_str(), "wb");
  ASSERT_NE(pFile, nullptr);
  try {
    write(pFile);
  } catch (...) {
    std::fclose(pFile);
    throw;
  }
  std::fclose(pFile);
}

std::vector<uint8_t> ReadBytes(const std::string& strPath) {
  std::ifstream in(strPath, std::ios::binary);
  return std::vector<uint8_t>(std::istreambuf_iterator<char>(in), {});
}

struct SCommandResult {
  int nStatus;
  std::string strOutput;
};

SCommandResult RunCommand(const std::string& strCommand) {
  SCommandResult r{-1, ""};
  FILE* p = popen((strCommand + " 2>&1").c_str(), "r");
  if (p == nullptr) return r;
  char buf[4096];
  size_t n;
  while ((n = std::fread(buf, 1, sizeof buf, p)) > 0) r.strOutput.append(buf, n);
  r.nStatus = pclose(p);
  return r;
}

bool HaveTool(const std::string& strTool) { return RunCommand("command -v " + strTool).nStatus == 0; }

bool HavePythonModules(const char* szModules) {
  return access(kPython, X_OK) == 0 && RunCommand(std::string(kPython) + " -c 'import " + szModules + "'").nStatus == 0;
}

/// What an independent reader found: dimensions as (height, width, channels)
/// and every sample in row-major order.
struct SDecoded {
  std::vector<long> shape;
  std::vector<long> values;
};

/// Reads image files in one interpreter run, each through OpenCV, or through
/// PIL when its flag is set.
std::vector<SDecoded> DecodeWithPython(const std::vector<std::pair<std::string, bool>>& files) {
  std::string strCommand = std::string(kPython) +
                           " -c \"import sys, numpy as np, cv2\n"
                           "from PIL import Image\n"
                           "for arg in sys.argv[1:]:\n"
                           "    kind, p = arg.split(':', 1)\n"
                           "    a = np.array(Image.open(p)) if kind == 'pil' else cv2.imread(p, cv2.IMREAD_UNCHANGED)\n"
                           "    print(*a.shape)\n"
                           "    print(*a.reshape(-1).tolist())\n\"";
  for (const auto& f : files) strCommand += std::string(" '") + (f.second ? "pil:" : "cv2:") + f.first + "'";
  const SCommandResult r = RunCommand(strCommand);
  EXPECT_EQ(r.nStatus, 0) << r.strOutput;
  std::vector<SDecoded> decoded(files.size());
  std::istringstream in(r.strOutput);
  for (SDecoded& d : decoded) {
    std::string strShape, strValues;
    std::getline(in, strShape);
    std::getline(in, strValues);
    std::istringstream shape(strShape), values(strValues);
    for (long n; shape >> n;) d.shape.push_back(n);
    for (long n; values >> n;) d.values.push_back(n);
  }
  return decoded;
}

/// A smooth, distinct value per sample: low and high bytes differ for 16 bits.
uint16_t Sample(size_t x, size_t y, size_t c, unsigned nBits) {
  const unsigned v = static_cast<unsigned>(40 * x + 90 * y + 29 * c + (nBits > 8 ? 0x0123 * (c + 1) : 0));
  return static_cast<uint16_t>(v & ((1u << nBits) - 1));
}

/// Fills every cell of the image (all planes) with Sample().
void Fill(Image& im, unsigned nBits) {
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(im.img()->GetImagePixelFormat());
  const size_t nCells = pInfo->GetComponentCount();
  const size_t nPlanes = pInfo->GetPlaneCount();
  const size_t nHeight = im.img()->GetImageHeight();
  for (size_t p = 0; p < nPlanes; ++p)
    for (size_t y = 0; y < nHeight; ++y)
      for (size_t x = 0; x < im.img()->GetImageWidth(); ++x)
        for (size_t c = 0; c < nCells; ++c) {
          const uint16_t v = Sample(x, y, c + p, nBits);
          if (pInfo->GetComponentBitDepth() > 8)
            im.line16(p * nHeight + y)[x * nCells + c] = v;
          else
            im.line(p * nHeight + y)[x * nCells + c] = static_cast<uint8_t>(v);
        }
}

uint16_t Get16(const std::vector<uint8_t>& b, size_t n) { return static_cast<uint16_t>(b[n] | b[n + 1] << 8); }
uint32_t Get32(const std::vector<uint8_t>& b, size_t n) { return Get16(b, n) | static_cast<uint32_t>(Get16(b, n + 2)) << 16; }

struct SEntry {
  uint16_t nTag, nType;
  uint32_t nCount, nValue;
  bool operator==(const SEntry& o) const {
    return nTag == o.nTag && nType == o.nType && nCount == o.nCount && nValue == o.nValue;
  }
};

std::ostream& operator<<(std::ostream& os, const SEntry& e) {
  return os << "{" << e.nTag << ", " << e.nType << ", " << e.nCount << ", " << e.nValue << "}";
}

/// The IFD at offset 8, as the file holds it.
std::vector<SEntry> Ifd(const std::vector<uint8_t>& b) {
  std::vector<SEntry> v;
  for (size_t i = 0, n = Get16(b, 8); i < n; ++i) {
    const size_t o = 10 + 12 * i;
    v.push_back({Get16(b, o), Get16(b, o + 2), Get32(b, o + 4), Get32(b, o + 8)});
  }
  return v;
}

class FileFormatTest : public KitTest {
protected:
  std::vector<uint8_t> Tiff(IVyImage* pImage) {
    const std::string strPath = Keep(TempPath(".tif"));
    WriteWith(strPath, [&](FILE* f) { WriteTiff(pImage, strPath.c_str(), f); });
    return ReadBytes(strPath);
  }
  const std::string& Keep(const std::string& strPath) { return m_Paths.emplace_back(strPath); }
  void TearDown() override {
    for (const std::string& s : m_Paths) std::remove(s.c_str());
    KitTest::TearDown();
  }
  std::vector<std::string> m_Paths;
};

// ---------------------------------------------------------------- TIFF

TEST_F(FileFormatTest, TiffGrayLayoutIsFixed) {
  Image im8(2, 2, VyPixelFormat_Mono8);
  Fill(im8, 8);
  const std::vector<uint8_t> b = Tiff(im8.img());
  ASSERT_EQ(b.size(), 166u);
  EXPECT_EQ(std::vector<uint8_t>(b.begin(), b.begin() + 8), (std::vector<uint8_t>{'I', 'I', 42, 0, 8, 0, 0, 0}));
  const std::vector<SEntry> expected8 = {{256, 3, 1, 2},   {257, 3, 1, 2},   {258, 3, 1, 8},   {259, 3, 1, 1},
                                         {262, 3, 1, 1},   {273, 4, 1, 162}, {278, 3, 1, 2},   {279, 4, 1, 4},
                                         {282, 5, 1, 146}, {283, 5, 1, 154}, {296, 3, 1, 2}};
  EXPECT_EQ(Ifd(b), expected8);
  EXPECT_EQ(Get32(b, 142), 0u);
  for (size_t o : {146, 154}) EXPECT_EQ(std::make_pair(Get32(b, o), Get32(b, o + 4)), std::make_pair(720000u, 10000u));
  EXPECT_EQ(std::vector<uint8_t>(b.begin() + 162, b.end()), im8.bytes());

  Image im16(2, 2, VyPixelFormat_Mono16);
  Fill(im16, 16);
  const std::vector<uint8_t> b16 = Tiff(im16.img());
  ASSERT_EQ(b16.size(), 170u);
  std::vector<SEntry> expected16 = expected8;
  expected16[2].nValue = 16;
  expected16[7].nValue = 8;
  EXPECT_EQ(Ifd(b16), expected16);
  EXPECT_EQ(std::vector<uint8_t>(b16.begin() + 162, b16.end()), im16.bytes());
}

TEST_F(FileFormatTest, TiffColorLayoutForThreeAndFourSamples) {
  Image rgb(3, 1, VyPixelFormat_RGB8);
  Fill(rgb, 8);
  const std::vector<uint8_t> b = Tiff(rgb.img());
  // E = 13, Q = 166, D = 216.
  ASSERT_EQ(b.size(), 225u);
  const std::vector<SEntry> expected = {{256, 3, 1, 3},   {257, 3, 1, 1},   {258, 3, 3, 210}, {259, 3, 1, 1},
                                        {262, 3, 1, 2},   {273, 4, 1, 216}, {277, 3, 1, 3},   {278, 3, 1, 1},
                                        {279, 4, 1, 9},   {282, 5, 1, 170}, {283, 5, 1, 178}, {284, 4, 1, 1},
                                        {296, 3, 1, 2}};
  EXPECT_EQ(Ifd(b), expected);
  EXPECT_EQ(Get32(b, 166), 0u);
  EXPECT_EQ(Get32(b, 170), 720000u);
  EXPECT_EQ(Get32(b, 182), 10000u);
  // Strip arrays stay zero with one plane; then three BitsPerSample words.
  EXPECT_EQ(std::vector<uint8_t>(b.begin() + 186, b.begin() + 210), std::vector<uint8_t>(24, 0));
  for (size_t c = 0; c < 3; ++c) EXPECT_EQ(Get16(b, 210 + 2 * c), 8);
  EXPECT_EQ(std::vector<uint8_t>(b.begin() + 216, b.end()), rgb.bytes());

  Image rgba(2, 2, VyPixelFormat_RGBa8);
  Fill(rgba, 8);
  const std::vector<uint8_t> ba = Tiff(rgba.img());
  // E = 14, Q = 178, D = 230; ExtraSamples sits right after SamplesPerPixel.
  ASSERT_EQ(ba.size(), 230u + 16u);
  const std::vector<SEntry> expectedA = {{256, 3, 1, 2},   {257, 3, 1, 2},   {258, 3, 4, 222}, {259, 3, 1, 1},
                                         {262, 3, 1, 2},   {273, 4, 1, 230}, {277, 3, 1, 4},   {338, 3, 1, 0},
                                         {278, 3, 1, 2},   {279, 4, 1, 16},  {282, 5, 1, 182}, {283, 5, 1, 190},
                                         {284, 4, 1, 1},   {296, 3, 1, 2}};
  EXPECT_EQ(Ifd(ba), expectedA);
  for (size_t c = 0; c < 4; ++c) EXPECT_EQ(Get16(ba, 222 + 2 * c), 8);
  EXPECT_EQ(std::vector<uint8_t>(ba.begin() + 230, ba.end()), rgba.bytes());
}

TEST_F(FileFormatTest, TiffPlanarStripsPointAtArrays) {
  Image im(3, 2, VyPixelFormat_RGB16_Planar);
  Fill(im, 16);
  const std::vector<uint8_t> b = Tiff(im.img());
  // Q = 166, D = 216, B = 3 * 2 * 2 = 12 bytes per plane.
  ASSERT_EQ(b.size(), 216u + 36u);
  const std::vector<SEntry> ifd = Ifd(b);
  ASSERT_EQ(ifd.size(), 13u);
  EXPECT_EQ(ifd[2], (SEntry{258, 3, 3, 210}));
  EXPECT_EQ(ifd[5], (SEntry{273, 4, 3, 198}));
  EXPECT_EQ(ifd[6], (SEntry{277, 3, 1, 3}));
  EXPECT_EQ(ifd[8], (SEntry{279, 4, 3, 186}));
  EXPECT_EQ(ifd[11], (SEntry{284, 4, 1, 2}));
  for (size_t p = 0; p < 3; ++p) {
    EXPECT_EQ(Get32(b, 186 + 4 * p), 12u);
    EXPECT_EQ(Get32(b, 198 + 4 * p), 216u + 12u * p);
    EXPECT_EQ(Get16(b, 210 + 2 * p), 16);
  }
  const uint8_t* pSrc = im.line(0);
  EXPECT_EQ(std::vector<uint8_t>(b.begin() + 216, b.end()), std::vector<uint8_t>(pSrc, pSrc + 36));
}

TEST_F(FileFormatTest, TiffOfAViewTakesOnlyTheViewsPixels) {
  Image im(6, 4, VyPixelFormat_RGB8);
  Fill(im, 8);
  IVyImage* pView = im.img()->GetROIImage(2, 1, 3, 2);
  const std::vector<uint8_t> b = Tiff(pView);
  ASSERT_EQ(b.size(), 216u + 18u);
  for (size_t y = 0; y < 2; ++y)
    EXPECT_EQ(std::vector<uint8_t>(b.begin() + 216 + 9 * y, b.begin() + 225 + 9 * y),
              std::vector<uint8_t>(im.line(1 + y) + 6, im.line(1 + y) + 15));
}

/// The strips as libtiff's dump prints them, as 16-bit little-endian samples.
std::vector<long> TiffinfoStrips16(const std::string& strPath) {
  const SCommandResult r = RunCommand("tiffinfo -d '" + strPath + "'");
  EXPECT_EQ(r.nStatus, 0) << r.strOutput;
  std::vector<long> bytes;
  std::istringstream in(r.strOutput.substr(std::min(r.strOutput.size(), r.strOutput.find("Strip 0:"))));
  for (std::string strWord; in >> strWord;)
    if (strWord.size() == 2 && std::isxdigit(strWord[0]) && std::isxdigit(strWord[1]))
      bytes.push_back(std::stol(strWord, nullptr, 16));
  std::vector<long> values;
  for (size_t i = 0; i + 1 < bytes.size(); i += 2) values.push_back(bytes[i] | bytes[i + 1] << 8);
  return values;
}

TEST_F(FileFormatTest, TiffFilesReadBackThroughIndependentReaders) {
  if (!HavePythonModules("cv2, numpy, PIL")) GTEST_SKIP() << "python3 with cv2, numpy and PIL is missing";
  if (!HaveTool("tiffinfo")) GTEST_SKIP() << "tiffinfo is missing";
  enum EReader { OpenCV, Pil, TiffinfoDump };
  struct SCase {
    EVyPixelFormatNamingConvention_t eFormat;
    unsigned nBits;
    size_t nChannels;
    EReader eReader;
  };
  // OpenCV gives colour as BGR(A), PIL as RGB(A). Neither reads 16-bit
  // separate planes, so libtiff's own strip dump checks that one, plane by plane.
  const SCase cases[] = {{VyPixelFormat_Mono8, 8, 1, OpenCV},        {VyPixelFormat_Mono16, 16, 1, OpenCV},
                         {VyPixelFormat_RGB8, 8, 3, OpenCV},         {VyPixelFormat_RGB8, 8, 3, Pil},
                         {VyPixelFormat_RGBa8, 8, 4, OpenCV},        {VyPixelFormat_RGBa8, 8, 4, Pil},
                         {VyPixelFormat_RGB16, 16, 3, OpenCV},       {VyPixelFormat_RGB8_Planar, 8, 3, OpenCV},
                         {VyPixelFormat_RGB8_Planar, 8, 3, Pil},     {VyPixelFormat_RGB16_Planar, 16, 3, TiffinfoDump}};
  std::vector<std::pair<std::string, bool>> files;
  std::vector<std::vector<long>> expectations;
  std::vector<std::string> names;
  for (const SCase& c : cases) {
    SCOPED_TRACE(std::string(GetIVyPixelFormatInfo(c.eFormat)->GetName().c_str()) + " reader " +
                 std::to_string(c.eReader));
    Image im(5, 3, c.eFormat);
    Fill(im, c.nBits);
    const std::string strPath = Keep(TempPath(".tif"));
    WriteWith(strPath, [&](FILE* f) { WriteTiff(im.img(), strPath.c_str(), f); });
    SCommandResult info = RunCommand("tiffinfo -D '" + strPath + "'");
    EXPECT_EQ(info.nStatus, 0) << info.strOutput;
    // ExtraSamples stands out of the numeric order, which libtiff notes and
    // accepts; nothing else may draw a remark.
    const std::string strOrder = "tags are not sorted in ascending order";
    const size_t nOrder = info.strOutput.find(strOrder);
    EXPECT_EQ(nOrder != std::string::npos, c.nChannels == 4) << info.strOutput;
    if (nOrder != std::string::npos) info.strOutput.erase(0, info.strOutput.find('\n', nOrder));
    EXPECT_EQ(info.strOutput.find("rror"), std::string::npos) << info.strOutput;
    EXPECT_EQ(info.strOutput.find("arning"), std::string::npos) << info.strOutput;

    std::vector<long> expected;
    if (c.eReader == TiffinfoDump) {
      for (size_t k = 0; k < c.nChannels; ++k)
        for (size_t y = 0; y < 3; ++y)
          for (size_t x = 0; x < 5; ++x) expected.push_back(Sample(x, y, k, c.nBits));
      EXPECT_EQ(TiffinfoStrips16(strPath), expected);
      continue;
    }
    for (size_t y = 0; y < 3; ++y)
      for (size_t x = 0; x < 5; ++x)
        for (size_t k = 0; k < c.nChannels; ++k) {
          // Component k in the reader's order; the file holds RGB(A).
          const size_t nStored = (c.nChannels == 1 || c.eReader == Pil || k == 3) ? k : 2 - k;
          expected.push_back(Sample(x, y, nStored, c.nBits));
        }
    files.emplace_back(strPath, c.eReader == Pil);
    expectations.push_back(expected);
    names.push_back(GetIVyPixelFormatInfo(c.eFormat)->GetName().c_str());
  }
  const std::vector<SDecoded> decoded = DecodeWithPython(files);
  for (size_t i = 0; i < decoded.size(); ++i) {
    SCOPED_TRACE(names[i]);
    ASSERT_GE(decoded[i].shape.size(), 2u);
    EXPECT_EQ(std::vector<long>(decoded[i].shape.begin(), decoded[i].shape.begin() + 2), (std::vector<long>{3, 5}));
    EXPECT_EQ(decoded[i].values, expectations[i]);
  }
}

TEST_F(FileFormatTest, TiffRefusesOtherFormats) {
  Image im(2, 2, VyPixelFormat_BGR8);
  FILE* pFile = std::tmpfile();
  EXPECT_EQ(MessageOf([&] { WriteTiff(im.img(), "x.tif", pFile); }), "Not supported pixelformat BGR8");
  EXPECT_EQ(std::ftell(pFile), 0);
  std::fclose(pFile);
}

// ---------------------------------------------------------------- PNG

/// A sample of D significant bits as a PNG reader sees it: moved to the top
/// of 16 bits, with its high bits repeated below.
long Scaled(uint16_t v, unsigned nDepth) {
  return nDepth > 8 && nDepth < 16 ? (v << (16 - nDepth)) | (v >> (2 * nDepth - 16)) : v;
}

TEST_F(FileFormatTest, PngFilesReadBackThroughIndependentReaders) {
  if (!HavePythonModules("cv2, numpy, PIL")) GTEST_SKIP() << "python3 with cv2, numpy and PIL is missing";
  const bool bPngcheck = HaveTool("pngcheck");
  struct SCase {
    EVyPixelFormatNamingConvention_t eFormat;
    int nBitDepth;   // in the header
    int nColorType;  // in the header
  };
  const SCase cases[] = {{VyPixelFormat_Mono8, 8, 0},  {VyPixelFormat_Mono12, 16, 0}, {VyPixelFormat_Mono16, 16, 0},
                         {VyPixelFormat_BGR8, 8, 2},   {VyPixelFormat_RGB8, 8, 2},    {VyPixelFormat_BGR12, 16, 2},
                         {VyPixelFormat_BGR16, 16, 2}, {VyPixelFormat_RGB16, 16, 2},  {VyPixelFormat_BGRa8, 8, 6}};
  std::vector<std::pair<std::string, bool>> files;
  std::vector<std::vector<long>> expectations;
  for (const SCase& c : cases) {
    const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(c.eFormat);
    SCOPED_TRACE(pInfo->GetName().c_str());
    const unsigned nDepth = static_cast<unsigned>(pInfo->GetComponentBitDepth());
    const size_t nCells = pInfo->GetComponentCount();
    // Through a view, so that lines are further apart than their bytes.
    Image im(7, 4, c.eFormat);
    Fill(im, nDepth);
    IVyImage* pView = im.img()->GetROIImage(1, 1, 5, 3);
    const std::string strPath = Keep(TempPath(".png"));
    WriteWith(strPath, [&](FILE* f) { WritePng(pView, strPath.c_str(), f); });
    const std::vector<uint8_t> b = ReadBytes(strPath);
    ASSERT_GT(b.size(), 26u);
    EXPECT_EQ(b[24], c.nBitDepth);
    EXPECT_EQ(b[25], c.nColorType);
    if (bPngcheck) {
      const SCommandResult r = RunCommand("pngcheck '" + strPath + "'");
      EXPECT_EQ(r.nStatus, 0) << r.strOutput;
      EXPECT_EQ(r.strOutput.rfind("OK:", 0), 0u) << r.strOutput;
    }
    // OpenCV gives colour as BGR(A), the order of the BGR formats in memory.
    const bool bSwap = nCells > 1 && !dynamic_cast<const IVyPixelFormatInfoInside*>(pInfo)->IsBGROrder();
    std::vector<long> expected;
    for (size_t y = 1; y < 4; ++y)
      for (size_t x = 1; x < 6; ++x)
        for (size_t k = 0; k < nCells; ++k) {
          const size_t nStored = bSwap && k < 3 ? 2 - k : k;
          expected.push_back(Scaled(Sample(x, y, nStored, nDepth), nDepth));
        }
    files.emplace_back(strPath, false);
    expectations.push_back(expected);
  }
  const std::vector<SDecoded> decoded = DecodeWithPython(files);
  for (size_t i = 0; i < decoded.size(); ++i) {
    SCOPED_TRACE(GetIVyPixelFormatInfo(cases[i].eFormat)->GetName().c_str());
    ASSERT_GE(decoded[i].shape.size(), 2u);
    EXPECT_EQ(std::vector<long>(decoded[i].shape.begin(), decoded[i].shape.begin() + 2), (std::vector<long>{3, 5}));
    EXPECT_EQ(decoded[i].values, expectations[i]);
  }
}

/// An image that reports no lines and otherwise answers as the image it wraps.
class CNoLines : public IVyImageInside {
public:
  explicit CNoLines(IVyImage* p) : m_p(p) {}
  size_t GetImageWidth() const override { return m_p->GetImageWidth(); }
  size_t GetImageHeight() const override { return 0; }
  size_t GetImageLinePitch() const override { return m_p->GetImageLinePitch(); }
  size_t GetImagePlanePitch() const override { return 0; }
  EVyPixelFormatNamingConvention_t GetImagePixelFormat() const override { return m_p->GetImagePixelFormat(); }
  void* GetImageBuffer() const override { return m_p->GetImageBuffer(); }
  void* GetUserContext() const override { return nullptr; }
  IVyImage* GetROIImage(size_t x, size_t y, size_t w, size_t h) override { return m_p->GetROIImage(x, y, w, h); }
  CVyPixelComponent& GetIVyPixelComponentValue(size_t x, size_t y) override {
    return m_p->GetIVyPixelComponentValue(x, y);
  }

private:
  IVyImage* m_p;
};

TEST_F(FileFormatTest, PngRefusals) {
  Image bayer(2, 2, VyPixelFormat_BayerRG8);
  FILE* pFile = std::tmpfile();
  EXPECT_EQ(MessageOf([&] { WritePng(bayer.img(), "x.png", pFile); }), "Not supported pixelformat BayerRG8");
  EXPECT_EQ(std::ftell(pFile), 0);
  // libpng refuses a header without lines. Buffers of height 0 cannot be
  // made, so a wrapper reports one.
  Image backing(4, 1, VyPixelFormat_Mono8);
  CNoLines empty(backing.img());
  EXPECT_EQ(MessageOf([&] { WritePng(&empty, "empty.png", pFile); }), "File empty.png is unwritable.");
  std::fclose(pFile);
}

// ---------------------------------------------------------------- JPEG

struct SPnm {
  int nChannels = 0, nWidth = 0, nHeight = 0;
  std::vector<uint8_t> data;
};

/// Decodes with djpeg into a binary PGM or PPM.
SPnm DecodeWithDjpeg(const std::string& strPath, const std::string& strPnm) {
  const SCommandResult r = RunCommand("djpeg -strict -pnm -outfile '" + strPnm + "' '" + strPath + "'");
  EXPECT_EQ(r.nStatus, 0) << r.strOutput;
  EXPECT_EQ(r.strOutput, "");
  const std::vector<uint8_t> b = ReadBytes(strPnm);
  SPnm pnm;
  std::istringstream in(std::string(b.begin(), b.end()));
  std::string strMagic;
  int nMax = 0;
  in >> strMagic >> pnm.nWidth >> pnm.nHeight >> nMax;
  in.get();
  pnm.nChannels = strMagic == "P6" ? 3 : 1;
  pnm.data.assign(b.begin() + in.tellg(), b.end());
  return pnm;
}

double Psnr(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b) {
  double dblSum = 0;
  for (size_t i = 0; i < a.size(); ++i) dblSum += (a[i] - b[i]) * (a[i] - b[i]);
  return dblSum == 0 ? 99.0 : 10.0 * std::log10(255.0 * 255.0 * a.size() / dblSum);
}

/// The horizontal and vertical sampling factors of each component of the frame header.
std::vector<int> SamplingFactors(const std::vector<uint8_t>& b) {
  for (size_t i = 2; i + 10 < b.size(); ++i)
    if (b[i] == 0xFF && (b[i + 1] == 0xC0 || b[i + 1] == 0xC1)) {
      std::vector<int> v;
      for (size_t c = 0; c < b[i + 9]; ++c) v.push_back(b[i + 11 + 3 * c]);
      return v;
    }
  return {};
}

class JpegTest : public FileFormatTest {
protected:
  void SetUp() override {
    FileFormatTest::SetUp();
    if (!HaveTool("djpeg")) GTEST_SKIP() << "djpeg is missing";
  }
  std::vector<uint8_t> Jpeg(IVyImage* pImage, unsigned nQuality, std::string* pPath = nullptr) {
    const std::string strPath = Keep(TempPath(".jpg"));
    WriteWith(strPath, [&](FILE* f) { WriteJPG(pImage, strPath.c_str(), f, nQuality); });
    if (pPath) *pPath = strPath;
    return ReadBytes(strPath);
  }
};

TEST_F(JpegTest, SmoothImagesComeBackCloseAndInOrder) {
  struct SCase {
    EVyPixelFormatNamingConvention_t eFormat;
    std::vector<int> sampling;
  };
  // Grey has one component; colour has 4:2:2 chroma, luma sampled 2 x 1.
  const SCase cases[] = {{VyPixelFormat_Mono8, {0x11}},
                         {VyPixelFormat_RGB8, {0x21, 0x11, 0x11}},
                         {VyPixelFormat_BGR8, {0x21, 0x11, 0x11}}};
  for (const SCase& c : cases) {
    const IVyPixelFormatInfoInside* pInfo =
        dynamic_cast<const IVyPixelFormatInfoInside*>(GetIVyPixelFormatInfo(c.eFormat));
    SCOPED_TRACE(pInfo->GetName().c_str());
    const size_t nCells = pInfo->GetComponentCount();
    Image im(64, 48, c.eFormat);
    // Red rises to the right, green downwards, blue stays dark.
    for (size_t y = 0; y < 48; ++y)
      for (size_t x = 0; x < 64; ++x) {
        const uint8_t rgb[3] = {static_cast<uint8_t>(30 + 3 * x), static_cast<uint8_t>(20 + 4 * y), 40};
        for (size_t k = 0; k < nCells; ++k) im.line(y)[x * nCells + k] = rgb[nCells == 1 ? 0 : pInfo->IsBGROrder() ? 2 - k : k];
      }
    std::string strPath;
    const std::vector<uint8_t> b = Jpeg(im.img(), 90, &strPath);
    EXPECT_EQ(SamplingFactors(b), c.sampling);
    const SPnm pnm = DecodeWithDjpeg(strPath, Keep(TempPath(".pnm")));
    ASSERT_EQ(pnm.nChannels, static_cast<int>(nCells));
    ASSERT_EQ(std::make_pair(pnm.nWidth, pnm.nHeight), std::make_pair(64, 48));
    // The decoder gives RGB; put the source in that order.
    std::vector<uint8_t> source = im.bytes();
    if (nCells == 3 && pInfo->IsBGROrder())
      for (size_t i = 0; i < source.size(); i += 3) std::swap(source[i], source[i + 2]);
    EXPECT_GT(Psnr(source, pnm.data), 30.0);
  }
}

TEST_F(JpegTest, QualityIsCappedAtOneHundred) {
  Image im(32, 16, VyPixelFormat_Mono8);
  for (size_t y = 0; y < 16; ++y)
    for (size_t x = 0; x < 32; ++x) im.line(y)[x] = static_cast<uint8_t>(7 * x + 5 * y);
  const std::vector<uint8_t> b100 = Jpeg(im.img(), 100);
  EXPECT_EQ(Jpeg(im.img(), 200), b100);
  EXPECT_NE(Jpeg(im.img(), 50), b100);
  std::string strPath;
  Jpeg(im.img(), 0, &strPath);
  EXPECT_EQ(DecodeWithDjpeg(strPath, Keep(TempPath(".pnm"))).nWidth, 32);
}

TEST_F(JpegTest, Mono10IsCompressedAsItsBytes) {
  Image im(16, 8, VyPixelFormat_Mono10);
  // 0x0202: both bytes of every sample are 2.
  for (size_t y = 0; y < 8; ++y)
    for (size_t x = 0; x < 16; ++x) im.line16(y)[x] = 0x0202;
  std::string strPath;
  Jpeg(im.img(), 90, &strPath);
  const SPnm pnm = DecodeWithDjpeg(strPath, Keep(TempPath(".pnm")));
  EXPECT_EQ(pnm.nChannels, 1);
  EXPECT_EQ(std::make_pair(pnm.nWidth, pnm.nHeight), std::make_pair(16, 8));
  for (uint8_t v : pnm.data) EXPECT_NEAR(v, 2, 1);
}

TEST_F(FileFormatTest, JpegRefusesOtherFormats) {
  FILE* pFile = std::tmpfile();
  // YCbCr 4:2:2 is offered by the still-image writer's table but has no JPEG path.
  for (EVyPixelFormatNamingConvention_t e : {VyPixelFormat_YCbCr422_8, VyPixelFormat_Mono16, VyPixelFormat_BGRa8}) {
    Image im(4, 2, e);
    EXPECT_EQ(MessageOf([&] { WriteJPG(im.img(), "x.jpg", pFile, 75); }),
              std::string("Not supported pixelformat ") + GetIVyPixelFormatInfo(e)->GetName().c_str());
  }
  EXPECT_EQ(std::ftell(pFile), 0);
  std::fclose(pFile);
}

}  // namespace
