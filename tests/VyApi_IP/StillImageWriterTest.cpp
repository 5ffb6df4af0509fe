// The still-image filer module: its table, what it saves and refuses, the
// conversion rows, loading through the module, paths, the temporary-file
// helper, the quality register, and BMP files read back by OpenCV.
#include "StillImageTestSupport.h"

#include <cstdlib>
#include <map>
#include <set>
#include <sstream>

#include <VyApi_IP/VyFileSystem.h>

#include "VyApi_IP/VyStillImageWriter.h"

using namespace VyApi;
using namespace VyApiTest;

namespace {

using Row = CVyStillImageWriter::SWriterInfo;

class StillWriterTest : public KitTest {
protected:
  void SetUp() override {
    KitTest::SetUp();
    filer.Reset(CreateIVyFiler(VyFilerType_StillImage));
  }
  void TearDown() override {
    filer.Reset();
    KitTest::TearDown();
  }
  std::string SaveMessage(IVyImage* pImage, EVyStillImageFileFormat_t eFile, const std::string& strPath) {
    return MessageOf([&] { filer->Save(pImage, eFile, strPath.c_str()); });
  }

  CVyAutoPtr<IVyFilerReleasable, IVyStillImageFiler> filer;
  ScratchDir dir;
};

/// Changes the working directory for the length of a scope.
class InDirectory {
public:
  explicit InDirectory(const std::string& strDir) {
    char buf[4096];
    m_strOld = ::getcwd(buf, sizeof buf) ? buf : "/";
    EXPECT_EQ(::chdir(strDir.c_str()), 0);
  }
  ~InDirectory() { (void)::chdir(m_strOld.c_str()); }

private:
  std::string m_strOld;
};

TEST_F(StillWriterTest, FactoryGivesTheStillImageType) {
  EXPECT_EQ(filer->GetIVyFilerInfo()->GetFilerType(), VyFilerType_StillImage);
  EXPECT_EQ(std::string(filer->GetIVyFilerInfo()->GetFilerName().c_str()), "Still Image");
  EXPECT_EQ(filer->GetQuality(), 75u);
}

TEST_F(StillWriterTest, TableHasItsGroupsAndEveryTargetIsWrittenAsItIs) {
  const auto& rows = CVyStillImageWriter::GetConvArray();
  std::map<EVyStillImageFileFormat_t, int> counts;
  std::set<std::pair<uint32_t, int>> keys;
  for (const Row& row : rows) {
    ++counts[row.eFileFormat];
    EXPECT_TRUE(keys.insert({row.ePixelFormat, row.eFileFormat}).second) << "repeated row";
    ASSERT_NE(GetIVyPixelFormatInfo(row.ePixelFormat), nullptr) << std::hex << row.ePixelFormat;
    if (row.eTargetPixelFormat != CVyStillImageWriter::c_eAsItIs) {
      const Row* pTarget =
          dynamic_cast<CVyStillImageWriter*>(filer.Get())->GetWriter(row.eTargetPixelFormat, row.eFileFormat);
      ASSERT_NE(pTarget, nullptr);
      EXPECT_EQ(pTarget->eTargetPixelFormat, CVyStillImageWriter::c_eAsItIs) << "a second conversion";
    }
  }
  EXPECT_EQ(rows.size(), 154u);
  EXPECT_EQ(counts[VyStillImageFileFormat_BMP], 10);
  EXPECT_EQ(counts[VyStillImageFileFormat_JPEG], 6);
  EXPECT_EQ(counts[VyStillImageFileFormat_TIFF], 22);
  EXPECT_EQ(counts[VyStillImageFileFormat_PNG], 18);
  EXPECT_EQ(counts[VyStillImageFileFormat_CSV], 98);
  EXPECT_EQ(counts.count(VyStillImageFileFormat_Raw), 0u);

  auto* pWriter = dynamic_cast<CVyStillImageWriter*>(filer.Get());
  EXPECT_EQ(pWriter->GetWriter(VyPixelFormat_RGB8, VyStillImageFileFormat_BMP)->eTargetPixelFormat, VyPixelFormat_BGR8);
  EXPECT_EQ(pWriter->GetWriter(VyPixelFormat_BGRa14, VyStillImageFileFormat_TIFF)->eTargetPixelFormat,
            VyPixelFormat_RGB16);
  EXPECT_EQ(pWriter->GetWriter(VyPixelFormat_BGRa8, VyStillImageFileFormat_JPEG)->eTargetPixelFormat, VyPixelFormat_BGR8);
  EXPECT_EQ(pWriter->GetWriter(VyPixelFormat_RGB8_Planar, VyStillImageFileFormat_CSV)->eTargetPixelFormat,
            CVyStillImageWriter::c_eAsItIs);
}

TEST_F(StillWriterTest, SupportAnswers) {
  EXPECT_TRUE(filer->IsSaveSupported(VyPixelFormat_Mono14p, VyStillImageFileFormat_CSV));
  EXPECT_TRUE(filer->IsSaveSupported(VyPixelFormat_YCbCr422_8, VyStillImageFileFormat_JPEG));
  EXPECT_TRUE(filer->IsSaveSupported(static_cast<EVyPixelFormatNamingConvention_t>(0x12345678), VyStillImageFileFormat_Raw));
  EXPECT_TRUE(filer->IsSaveSupported(VyPixelFormat_RGBa8, VyStillImageFileFormat_BMP));
  EXPECT_FALSE(filer->IsSaveSupported(VyPixelFormat_Mono10p, VyStillImageFileFormat_BMP));
  EXPECT_FALSE(filer->IsSaveSupported(VyPixelFormat_Mono8, static_cast<EVyStillImageFileFormat_t>(6)));
  EXPECT_TRUE(filer->IsLoadSupported(static_cast<EVyPixelFormatNamingConvention_t>(0x12345678), VyStillImageFileFormat_Raw));
  EXPECT_FALSE(filer->IsLoadSupported(VyPixelFormat_Mono8, VyStillImageFileFormat_BMP));
}

TEST_F(StillWriterTest, RowsThatPromiseMoreThanTheirRoutinesThrowOnSave) {
  Image packed(4, 2, VyPixelFormat_Mono14p);
  EXPECT_EQ(SaveMessage(packed.img(), VyStillImageFileFormat_CSV, dir / "a.csv"), "Not supported pixelformat Mono14p");
  Image chroma(4, 2, VyPixelFormat_YCbCr422_8);
  EXPECT_EQ(SaveMessage(chroma.img(), VyStillImageFileFormat_JPEG, dir / "a.jpg"),
            "Not supported pixelformat YCbCr422_8");

  // No row: nothing is made, not even the directory.
  Image mono(4, 2, VyPixelFormat_Mono10p);
  EXPECT_EQ(SaveMessage(mono.img(), VyStillImageFileFormat_BMP, dir / "new/a.bmp"), "Not supported pixelformat Mono10p");
  EXPECT_FALSE(Exists(dir / "new"));
}

TEST_F(StillWriterTest, NullImageStopsTheProcess) {
  EXPECT_DEATH(filer->Save(nullptr, VyStillImageFileFormat_BMP, (dir / "a.bmp").c_str()), "pImage");
}

TEST_F(StillWriterTest, RgbToBmpGoesThroughBgr) {
  Image im(3, 2, VyPixelFormat_RGB8);
  FillPattern(im);
  filer->Save(im.img(), VyStillImageFileFormat_BMP, (dir / "rgb.bmp").c_str());
  const std::vector<uint8_t> f = ReadBytes(dir / "rgb.bmp");
  ASSERT_EQ(f.size(), 54u + 12 * 2);
  EXPECT_EQ(LE(f, 28, 2), 24u);
  // The top line is stored last, each pixel with red and blue swapped.
  for (size_t x = 0; x < 3; ++x) {
    EXPECT_EQ(f[54 + 12 + 3 * x], im.line(0)[3 * x + 2]);
    EXPECT_EQ(f[54 + 12 + 3 * x + 1], im.line(0)[3 * x + 1]);
    EXPECT_EQ(f[54 + 12 + 3 * x + 2], im.line(0)[3 * x]);
  }
  // The caller's image is left as it was.
  EXPECT_EQ(im.img()->GetImagePixelFormat(), VyPixelFormat_RGB8);
}

TEST_F(StillWriterTest, ConvertedRowsReachTheirFileRoutines) {
  Image mono10(3, 2, VyPixelFormat_Mono10);
  filer->Save(mono10.img(), VyStillImageFileFormat_TIFF, (dir / "m.tif").c_str());
  const std::vector<uint8_t> tif = ReadBytes(dir / "m.tif");
  EXPECT_EQ(tif.size(), 162u + 3 * 2 * 2) << "16-bit samples";

  Image bgra(8, 8, VyPixelFormat_BGRa8);
  filer->Save(bgra.img(), VyStillImageFileFormat_JPEG, (dir / "c.jpg").c_str());
  const std::vector<uint8_t> jpg = ReadBytes(dir / "c.jpg");
  ASSERT_GE(jpg.size(), 4u);
  EXPECT_EQ(jpg[0], 0xFF);
  EXPECT_EQ(jpg[1], 0xD8);
}

TEST_F(StillWriterTest, RawTakesEveryFormatAndLoadFindsTheKindByContent) {
  Image im(6, 3, VyPixelFormat_BayerGB12p);
  FillPattern(im, 5);
  filer->Save(im.img(), VyStillImageFileFormat_Raw, (dir / "image.bmp").c_str());  // the name misleads
  Image out(1, 1, VyPixelFormat_Mono8);
  filer->Load(out.buffer.Get(), (dir / "image.bmp").c_str());
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_BayerGB12p);
  EXPECT_EQ(out.bytes(), im.bytes());

  Image grey(4, 3, VyPixelFormat_Mono12);
  FillPattern(grey, 2);
  filer->Save(grey.img(), VyStillImageFileFormat_BMP, (dir / "grey.raw").c_str());
  filer->Load(out.buffer.Get(), (dir / "grey.raw").c_str());
  EXPECT_EQ(out.img()->GetImagePixelFormat(), VyPixelFormat_Mono12);
  EXPECT_EQ(out.bytes(), grey.bytes());
}

TEST_F(StillWriterTest, LoadRefusals) {
  Image out(1, 1, VyPixelFormat_Mono8);
  EXPECT_EQ(MessageOf([&] { filer->Load(nullptr, (dir / "x").c_str()); }), "IVyImageBuffer pointer is NULL.");
  EXPECT_EQ(MessageOf([&] { filer->Load(out.buffer.Get(), (dir / "none").c_str()); }),
            "File " + (dir / "none") + " could not be opened.");
  WriteBytes(dir / "three", {'V', 'Y', 'R'});
  EXPECT_EQ(MessageOf([&] { filer->Load(out.buffer.Get(), (dir / "three").c_str()); }),
            "File " + (dir / "three") + " is unreadable.");
  WriteBytes(dir / "png", {0x89, 'P', 'N', 'G', 0, 0});
  EXPECT_EQ(MessageOf([&] { filer->Load(out.buffer.Get(), (dir / "png").c_str()); }),
            "File " + (dir / "png") + " is unreadable.");
}

TEST_F(StillWriterTest, SaveMakesTheLastDirectoryLevelOnly) {
  Image im(4, 2, VyPixelFormat_Mono8);
  filer->Save(im.img(), VyStillImageFileFormat_BMP, (dir / "made/a.bmp").c_str());
  EXPECT_EQ(ReadBytes(dir / "made/a.bmp").size(), 1078u + 8);
  EXPECT_EQ(SaveMessage(im.img(), VyStillImageFileFormat_Raw, dir / "x/y/a.raw"),
            "File " + (dir / "x/y/a.raw") + " is unwritable.");
  EXPECT_FALSE(Exists(dir / "x"));
}

TEST_F(StillWriterTest, BareNameBecomesADirectoryAndTheOpenFails) {
  InDirectory in(dir.path());
  Image im(4, 2, VyPixelFormat_Mono8);
  EXPECT_EQ(SaveMessage(im.img(), VyStillImageFileFormat_BMP, "name.bmp"), "File name.bmp is unwritable.");
  EXPECT_TRUE(IsDirectory(dir / "name.bmp"));
  EXPECT_EQ(SaveMessage(im.img(), VyStillImageFileFormat_CSV, "name.csv"), "File name.csv is unwritable.");
  EXPECT_TRUE(IsDirectory(dir / "name.csv"));
}

TEST_F(StillWriterTest, MakePathCases) {
  MakePath((dir / "dir/sub/name.bmp").c_str(), true);
  EXPECT_FALSE(Exists(dir / "dir")) << "a missing parent is passed over";
  ASSERT_EQ(::mkdir((dir / "dir").c_str(), 0775), 0);
  MakePath((dir / "dir/sub/name.bmp").c_str(), true);
  EXPECT_TRUE(IsDirectory(dir / "dir/sub"));
  EXPECT_FALSE(Exists(dir / "dir/sub/name.bmp"));
  MakePath((dir / "dir/sub/name.bmp").c_str(), true);  // exists: silent
  MakePath((dir / "whole").c_str(), false);
  EXPECT_TRUE(IsDirectory(dir / "whole"));

  InDirectory in(dir.path());
  MakePath("name.bmp", true);
  EXPECT_TRUE(IsDirectory(dir / "name.bmp"));
}

TEST(StillImageTempFile, HasNoNameAndHonoursTmpdir) {
  ScratchDir dir;
  const char* szOld = std::getenv("TMPDIR");
  const std::string strOld = szOld ? szOld : "";
  ::setenv("TMPDIR", dir.path().c_str(), 1);
  FILE* pFile = openTempFile("vyframes");
  ASSERT_NE(pFile, nullptr);
  EXPECT_EQ(std::fputs("frame data", pFile) >= 0, true);
  EXPECT_EQ(std::fflush(pFile), 0);
  // The directory is empty while the file is open and written.
  EXPECT_EQ(std::system(("test -z \"$(ls -A '" + dir.path() + "')\"").c_str()), 0);
  EXPECT_EQ(std::ftell(pFile), 10);
  std::fclose(pFile);

  ::setenv("TMPDIR", (dir / "missing").c_str(), 1);
  EXPECT_EQ(openTempFile("vyframes"), nullptr);
  if (szOld)
    ::setenv("TMPDIR", strOld.c_str(), 1);
  else
    ::unsetenv("TMPDIR");
}

TEST_F(StillWriterTest, QualityByTypedSetter) {
  filer->SetQuality(0);
  EXPECT_EQ(filer->GetQuality(), 0u);
  filer->SetQuality(100);
  EXPECT_EQ(filer->GetQuality(), 100u);
  EXPECT_EQ(MessageOf([&] { filer->SetQuality(101); }), "nValue = 101 must be equal or smaller than Max = 100");
  EXPECT_THROW(filer->SetQuality(101), GenICam::OutOfRangeException);
  EXPECT_EQ(filer->GetQuality(), 100u);
}

TEST_F(StillWriterTest, QualityThroughTheNodeMap) {
  GenApi::INodeMap* pMap = filer->GetINodeMap();
  GenApi::CIntegerPtr quality = pMap->GetNode("Quality");
  ASSERT_TRUE(quality.IsValid());
  EXPECT_EQ(quality->GetValue(), 75);
  EXPECT_EQ(quality->GetMin(), 0);
  EXPECT_EQ(quality->GetMax(), 100);
  EXPECT_EQ(GenApi::CIntegerPtr(pMap->GetNode("SizeTSize"))->GetValue(), 8);

  quality->SetValue(40);
  EXPECT_EQ(filer->GetQuality(), 40u);
  EXPECT_THROW(quality->SetValue(101), GenICam::OutOfRangeException);
  // A typed setter invalidates the cached register.
  filer->SetQuality(60);
  EXPECT_EQ(quality->GetValue(), 60);

  GenApi::CCategoryPtr category = pMap->GetNode("FilerInformation");
  ASSERT_TRUE(category.IsValid());
  GenApi::FeatureList_t features;
  category->GetFeatures(features);
  ASSERT_EQ(features.size(), 1u);
  EXPECT_EQ(std::string(features[0]->GetNode()->GetName().c_str()), "Quality");

  // A raw port write is stored without a range test.
  auto* pPort = dynamic_cast<GenApi::IPort*>(filer.Get());
  ASSERT_NE(pPort, nullptr);
  const uint32_t n = 200;
  pPort->Write(&n, 0x10, 4);
  EXPECT_EQ(filer->GetQuality(), 200u);
}

// --- An independent reader --------------------------------------------------

bool HaveOpenCV() { return std::system("/usr/bin/python3 -c 'import cv2' >/dev/null 2>&1") == 0; }

/// The image as OpenCV reads it: its shape, then every value, one line.
std::string ReadWithOpenCV(const std::string& strPath) {
  const std::string strCommand =
      "/usr/bin/python3 -c \"import cv2,sys; a=cv2.imread(sys.argv[1], cv2.IMREAD_UNCHANGED); "
      "print(list(a.shape)); print(' '.join(str(v) for v in a.flatten().tolist()))\" '" +
      strPath + "' 2>&1";
  FILE* pPipe = ::popen(strCommand.c_str(), "r");
  if (!pPipe) return "(popen failed)";
  std::string strOut;
  char buf[4096];
  while (size_t n = std::fread(buf, 1, sizeof buf, pPipe)) strOut.append(buf, n);
  ::pclose(pPipe);
  return strOut;
}

std::string Expected(Image& im, size_t nChannels) {
  std::ostringstream os;
  const size_t w = im.img()->GetImageWidth(), h = im.img()->GetImageHeight();
  os << "[" << h << ", " << w;
  if (nChannels > 1) os << ", " << nChannels;
  os << "]\n";
  for (size_t y = 0; y < h; ++y)
    for (size_t i = 0; i < w * nChannels; ++i) os << (y || i ? " " : "") << unsigned(im.line(y)[i]);
  os << "\n";
  return os.str();
}

TEST_F(StillWriterTest, OpenCVReadsTheBmpFilesPixelForPixel) {
  if (!HaveOpenCV()) GTEST_SKIP() << "/usr/bin/python3 with cv2 is missing";
  Image mono(5, 3, VyPixelFormat_Mono8);
  FillPattern(mono, 4);
  filer->Save(mono.img(), VyStillImageFileFormat_BMP, (dir / "mono.bmp").c_str());
  EXPECT_EQ(ReadWithOpenCV(dir / "mono.bmp"), Expected(mono, 1));

  Image bgr(5, 3, VyPixelFormat_BGR8);
  FillPattern(bgr, 6);
  filer->Save(bgr.img(), VyStillImageFileFormat_BMP, (dir / "bgr.bmp").c_str());
  EXPECT_EQ(ReadWithOpenCV(dir / "bgr.bmp"), Expected(bgr, 3));

  // An RGB image arrives in OpenCV's BGR order after its conversion.
  Image rgb(3, 1, VyPixelFormat_RGB8);
  const uint8_t px[] = {10, 20, 30, 40, 50, 60, 70, 80, 90};
  std::memcpy(rgb.line(0), px, sizeof px);
  filer->Save(rgb.img(), VyStillImageFileFormat_BMP, (dir / "rgb.bmp").c_str());
  EXPECT_EQ(ReadWithOpenCV(dir / "rgb.bmp"), "[1, 3, 3]\n30 20 10 60 50 40 90 80 70\n");
}

}  // namespace
