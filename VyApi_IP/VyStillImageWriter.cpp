#include "VyStillImageWriter.h"

#include <cstring>
#include <initializer_list>
#include <memory>
#include <stdexcept>

#include <VyApi_IP/IVyPixelFormatConverter.h>
#include <VyApi_IP/VyAutoPtr.h>
#include <VyApi_IP/VyFactory.h>
#include <VyApi_IP/VyFileSystem.h>

#include "VyBMPWriter.h"
#include "VyCSVWriter.h"
#include "VyJpegWriterUnix.h"
#include "VyPngWriter.h"
#include "VyRawWriter.h"
#include "VyTiffWriter.h"

namespace VyApi {

namespace {
// Register addresses of the description.
constexpr long c_nQualityReg = 0x10;
constexpr long c_nQualityMinReg = 0x20;
constexpr long c_nQualityMaxReg = 0x28;

struct SFileCloser {
  void operator()(FILE* pFile) const { std::fclose(pFile); }
};
using FilePtr = std::unique_ptr<FILE, SFileCloser>;
}  // namespace

using C = CVyStillImageWriter;

// The table as it is grouped by file format: formats written as they are,
// and "from to target" rows that are converted first. Every target has a row
// of its own, written as it is, so that a second conversion never occurs.
constexpr std::array<C::SWriterInfo, C::c_nConvRows> CVyStillImageWriter::mMakeConvArray() {
  using F = EVyPixelFormatNamingConvention_t;
  std::array<SWriterInfo, c_nConvRows> rows{};
  size_t n = 0;
  auto add = [&rows, &n](F eFrom, EVyStillImageFileFormat_t eFile, PfnWriter pfn, F eTarget) {
    if (n == rows.size()) throw std::logic_error("the still-image table has more rows than declared");
    rows[n++] = SWriterInfo{eFrom, eFile, pfn, eTarget};
  };
  auto asItIs = [&add](EVyStillImageFileFormat_t eFile, PfnWriter pfn, std::initializer_list<F> formats) {
    for (F f : formats) add(f, eFile, pfn, c_eAsItIs);
  };
  auto to = [&add](EVyStillImageFileFormat_t eFile, PfnWriter pfn, std::initializer_list<F> from, F eTarget) {
    for (F f : from) add(f, eFile, pfn, eTarget);
  };

  constexpr auto BMP = VyStillImageFileFormat_BMP;
  constexpr auto JPEG = VyStillImageFileFormat_JPEG;
  constexpr auto TIFF = VyStillImageFileFormat_TIFF;
  constexpr auto PNG = VyStillImageFileFormat_PNG;
  constexpr auto CSV = VyStillImageFileFormat_CSV;

#define VY_F(name) VyPixelFormat_##name
#define VY_BAYER(x) VY_F(BayerBG##x), VY_F(BayerGB##x), VY_F(BayerGR##x), VY_F(BayerRG##x)

  asItIs(BMP, &C::WriterBMP,
         {VY_F(Mono8), VY_F(Mono10), VY_F(Mono12), VY_F(Mono14), VY_F(Mono16), VY_F(BGR8), VY_F(BGRa8),
          VY_F(CBGR10p32)});
  to(BMP, &C::WriterBMP, {VY_F(RGB8)}, VY_F(BGR8));
  to(BMP, &C::WriterBMP, {VY_F(RGBa8)}, VY_F(BGRa8));

  asItIs(JPEG, &C::WriterJPG, {VY_F(Mono8), VY_F(BGR8), VY_F(RGB8), VY_F(YCbCr422_8)});
  to(JPEG, &C::WriterJPG, {VY_F(BGRa8)}, VY_F(BGR8));
  to(JPEG, &C::WriterJPG, {VY_F(RGBa8)}, VY_F(RGB8));

  asItIs(TIFF, &C::WriterTIF,
         {VY_F(Mono8), VY_F(Mono16), VY_F(RGB8), VY_F(RGBa8), VY_F(RGB8_Planar), VY_F(RGB16_Planar), VY_F(RGB16)});
  to(TIFF, &C::WriterTIF, {VY_F(Mono10), VY_F(Mono12), VY_F(Mono14)}, VY_F(Mono16));
  to(TIFF, &C::WriterTIF, {VY_F(RGB10_Planar), VY_F(RGB12_Planar)}, VY_F(RGB16_Planar));
  to(TIFF, &C::WriterTIF, {VY_F(BGR8)}, VY_F(RGB8));
  to(TIFF, &C::WriterTIF, {VY_F(BGRa8)}, VY_F(RGBa8));
  to(TIFF, &C::WriterTIF,
     {VY_F(BGR10), VY_F(BGRa10), VY_F(BGR12), VY_F(BGRa12), VY_F(BGR14), VY_F(BGRa14), VY_F(BGR16), VY_F(BGRa16)},
     VY_F(RGB16));

  asItIs(PNG, &C::WriterPNG,
         {VY_F(Mono8), VY_F(Mono10), VY_F(Mono12), VY_F(Mono14), VY_F(Mono16), VY_F(BGR8), VY_F(BGR10), VY_F(BGR12),
          VY_F(BGR14), VY_F(BGR16), VY_F(RGB8), VY_F(RGB16)});
  to(PNG, &C::WriterPNG, {VY_F(BGRa8)}, VY_F(BGR8));
  to(PNG, &C::WriterPNG, {VY_F(BGRa10)}, VY_F(BGR10));
  to(PNG, &C::WriterPNG, {VY_F(BGRa12)}, VY_F(BGR12));
  to(PNG, &C::WriterPNG, {VY_F(BGRa14)}, VY_F(BGR14));
  to(PNG, &C::WriterPNG, {VY_F(BGRa16)}, VY_F(BGR16));
  to(PNG, &C::WriterPNG, {VY_F(RGBa8)}, VY_F(RGB8));

  asItIs(CSV, &C::WriterCsv,
         {VY_F(Mono8), VY_F(Mono10), VY_F(Mono12), VY_F(Mono14), VY_F(Mono16),
          VY_BAYER(8), VY_BAYER(10), VY_BAYER(12), VY_BAYER(14), VY_BAYER(16),
          VY_F(RGB8), VY_F(RGBa8), VY_F(BGR8), VY_F(BGRa8), VY_F(BGR10), VY_F(BGRa10), VY_F(BGR12), VY_F(BGRa12),
          VY_F(BGR14), VY_F(BGRa14), VY_F(BGR16), VY_F(BGRa16), VY_F(RGB16),
          VY_F(YCbCr8), VY_F(YCbCr411_8), VY_F(YCbCr422_8), VY_F(YCbCr709_422_8), VY_F(YCbCr601_422_8),
          VY_F(YCbCr411_8_CbYYCrYY), VY_F(YCbCr601_411_8_CbYYCrYY), VY_F(YCbCr709_411_8_CbYYCrYY),
          VY_F(YCbCr422_8_CbYCrY), VY_F(YCbCr601_422_8_CbYCrY), VY_F(YCbCr709_422_8_CbYCrY), VY_F(YCbCr8_CbYCr),
          VY_F(YCbCr601_8_CbYCr), VY_F(YCbCr709_8_CbYCr),
          VY_F(YUV411_8_UYYVYY), VY_F(YUV422_8_UYVY), VY_F(YUV8_UYV), VY_F(YUV422_8),
          VY_F(Mono1p), VY_F(Mono2p), VY_F(Mono4p), VY_F(Mono10p), VY_F(GVSP_Mono10Packed), VY_F(Mono12p),
          VY_F(GVSP_Mono12Packed), VY_F(Mono14p),
          VY_F(BayerGR4p), VY_F(BayerRG4p), VY_F(BayerGB4p), VY_F(BayerBG4p),
          VY_BAYER(10p), VY_BAYER(12p), VY_BAYER(14p),
          VY_F(GVSP_BayerBG10Packed), VY_F(GVSP_BayerGB10Packed), VY_F(GVSP_BayerGR10Packed),
          VY_F(GVSP_BayerRG10Packed), VY_F(GVSP_BayerBG12Packed), VY_F(GVSP_BayerGB12Packed),
          VY_F(GVSP_BayerGR12Packed), VY_F(GVSP_BayerRG12Packed),
          VY_F(CBGR10p32), VY_F(RGB10p32), VY_F(RGB8_Planar), VY_F(RGB10_Planar), VY_F(RGB12_Planar),
          VY_F(RGB16_Planar), VY_F(BGR10p), VY_F(BGR12p), VY_F(RGB10p), VY_F(RGB12p)});

#undef VY_BAYER
#undef VY_F

  if (n != rows.size()) throw std::logic_error("the still-image table has fewer rows than declared");
  return rows;
}

// The constexpr local makes the compiler build, and count, the table.
const std::array<C::SWriterInfo, C::c_nConvRows> C::m_cConvArray = [] {
  constexpr std::array<SWriterInfo, c_nConvRows> rows = mMakeConvArray();
  return rows;
}();

const std::map<C::Key, C::SWriterInfo> C::m_mapWriters = [] {
  std::map<Key, SWriterInfo> map;
  // insert keeps the first row of a key.
  for (const SWriterInfo& row : m_cConvArray) map.insert({Key(row.ePixelFormat, row.eFileFormat), row});
  return map;
}();

const C::SWriterInfo C::m_WriterInfoForRaw = {VyPixelFormat_Undefined, VyStillImageFileFormat_Raw, &C::WriterRaw,
                                              C::c_eAsItIs};

CFilerInfo<CVyStillImageWriter> C::m_objFilerInfo;

CVyStillImageWriter::CVyStillImageWriter() : CVyIPModuleBase(c_nResourceID) {}

IVyFilerInfo* CVyStillImageWriter::GetIVyFilerInfo() const { return &m_objFilerInfo; }

const C::SWriterInfo* CVyStillImageWriter::GetWriter(EVyPixelFormatNamingConvention_t ePixelFormat,
                                                     EVyStillImageFileFormat_t eFileFormat) const {
  if (eFileFormat == VyStillImageFileFormat_Raw) return &m_WriterInfoForRaw;
  auto it = m_mapWriters.find(Key(ePixelFormat, eFileFormat));
  return it == m_mapWriters.end() ? nullptr : &it->second;
}

bool CVyStillImageWriter::IsSaveSupported(EVyPixelFormatNamingConvention_t ePixelFormat,
                                          EVyStillImageFileFormat_t eFileFormat) const {
  return GetWriter(ePixelFormat, eFileFormat) != nullptr;
}

bool CVyStillImageWriter::IsLoadSupported(EVyPixelFormatNamingConvention_t /*ePixelFormat*/,
                                          EVyStillImageFileFormat_t eFileFormat) const {
  return eFileFormat == VyStillImageFileFormat_Raw;
}

void CVyStillImageWriter::Save(IVyImage* pImage, EVyStillImageFileFormat_t eFileFormat,
                               const GenICam_3_0::gcstring& strName) const {
  VY_ASSERT(pImage);
  const EVyPixelFormatNamingConvention_t ePixelFormat = pImage->GetImagePixelFormat();
  const SWriterInfo* pRow = GetWriter(ePixelFormat, eFileFormat);
  if (!pRow) throw VY_RUNTIME_EXCEPTION("Not supported pixelformat %s", FormatName(ePixelFormat).c_str());

  if (pRow->eTargetPixelFormat != c_eAsItIs) {
    CVyAutoPtr<IVyConverterReleasable, IVyPixelFormatConverter> converter(
        CreateIVyConverter(VyConverterType_PixelFormat));
    CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> buffer(CreateIVyImageBuffer(nullptr));
    converter->SetDestinationPixelFormat(pRow->eTargetPixelFormat);
    converter->Convert(pImage, buffer);
    Save(buffer->GetIVyImage(), eFileFormat, strName);
    return;
  }

  IVyImageInside* pSrcIVyImageInside = dynamic_cast<IVyImageInside*>(pImage);
  VY_ASSERT_NOT_NULL(pSrcIVyImageInside);
  MakePath(strName, true);
  (this->*pRow->pfnWriter)(pSrcIVyImageInside, strName);
}

void CVyStillImageWriter::Load(IVyImageBuffer* pBuffer, const GenICam_3_0::gcstring& strName) const {
  if (!pBuffer) throw VY_INVALID_ARGUMENT_EXCEPTION("IVyImageBuffer pointer is NULL.");
  FilePtr file(std::fopen(strName.c_str(), "rb"));
  if (!file) throw VY_RUNTIME_EXCEPTION("File %s could not be opened.", strName.c_str());
  char magic[4];
  if (std::fread(magic, 1, sizeof magic, file.get()) != sizeof magic)
    throw VY_RUNTIME_EXCEPTION("File %s is unreadable.", strName.c_str());
  std::fseek(file.get(), 0, SEEK_SET);
  if (std::memcmp(magic, pszRawHeader, 4) == 0)
    LoadRaw(pBuffer, strName, file.get());
  else if (magic[0] == 'B' && magic[1] == 'M')
    LoadBMP(pBuffer, strName, file.get());
  else
    throw VY_RUNTIME_EXCEPTION("File %s is unreadable.", strName.c_str());
}

unsigned int CVyStillImageWriter::GetQuality() const { return m_nQuality.load(); }

void CVyStillImageWriter::SetQuality(unsigned int nValue) {
  if (nValue > c_nQualityMax)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be equal or smaller than Max = %lld", "nValue",
                                    static_cast<long long>(nValue), static_cast<long long>(c_nQualityMax));
  if (m_nQuality.exchange(nValue) == nValue) return;
  InvalidateRegisterNode("QualityReg");
}

bool CVyStillImageWriter::mRead(unsigned char* pBuffer, long Address, long* pLength) {
  if (CVyIPModuleBase::mRead(pBuffer, Address, pLength)) return true;
  uint32_t n;
  switch (Address) {
    case c_nQualityReg: n = m_nQuality.load(); break;
    case c_nQualityMinReg: n = c_nQualityMin; break;
    case c_nQualityMaxReg: n = c_nQualityMax; break;
    default: return false;
  }
  std::memcpy(pBuffer, &n, sizeof n);
  *pLength = sizeof n;
  return true;
}

bool CVyStillImageWriter::mWrite(const unsigned char* pBuffer, long Address, long* pLength) {
  if (Address != c_nQualityReg) return false;
  uint32_t n;
  std::memcpy(&n, pBuffer, sizeof n);
  // The node map has checked the range; a raw port write is taken as it is,
  // and the JPEG routine caps it.
  m_nQuality.store(n);
  *pLength = sizeof n;
  return true;
}

template <typename Fn>
void CVyStillImageWriter::mWriteFile(const GenICam_3_0::gcstring& strName, Fn fnWrite) {
  FilePtr file(std::fopen(strName.c_str(), "wb"));
  if (!file) throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
  fnWrite(file.get());
  // The last buffered bytes reach the disk here; losing them is a write failure.
  if (std::fclose(file.release()) != 0) throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
}

void CVyStillImageWriter::WriterRaw(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const {
  mWriteFile(strName, [&](FILE* pFile) { WriteRaw(pImage, strName, pFile); });
}

void CVyStillImageWriter::WriterBMP(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const {
  mWriteFile(strName, [&](FILE* pFile) { WriteBMP(pImage, strName, pFile); });
}

void CVyStillImageWriter::WriterJPG(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const {
  const unsigned int nQuality = m_nQuality.load();
  mWriteFile(strName, [&](FILE* pFile) { WriteJPG(pImage, strName, pFile, nQuality); });
}

void CVyStillImageWriter::WriterTIF(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const {
  mWriteFile(strName, [&](FILE* pFile) { WriteTiff(pImage, strName, pFile); });
}

void CVyStillImageWriter::WriterPNG(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const {
  mWriteFile(strName, [&](FILE* pFile) { WritePng(pImage, strName, pFile); });
}

void CVyStillImageWriter::WriterCsv(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const {
  WriteCSV(pImage, strName);
}

}  // namespace VyApi
