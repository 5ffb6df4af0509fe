#include "VyTiffWriter.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <vector>

#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

namespace {

// TIFF field types used here.
enum : uint16_t { TiffType_Short = 3, TiffType_Long = 4, TiffType_Rational = 5 };

// Tags, in the order a file of this writer lists them.
enum : uint16_t {
  TiffTag_ImageWidth = 256,
  TiffTag_ImageLength = 257,
  TiffTag_BitsPerSample = 258,
  TiffTag_Compression = 259,
  TiffTag_PhotometricInterpretation = 262,
  TiffTag_StripOffsets = 273,
  TiffTag_SamplesPerPixel = 277,
  TiffTag_RowsPerStrip = 278,
  TiffTag_StripByteCounts = 279,
  TiffTag_XResolution = 282,
  TiffTag_YResolution = 283,
  TiffTag_PlanarConfiguration = 284,
  TiffTag_ResolutionUnit = 296,
  TiffTag_ExtraSamples = 338,
};

// 72 dots per inch, stored as 720000 / 10000.
constexpr uint32_t kResolutionNumerator = 720000;
constexpr uint32_t kResolutionDenominator = 10000;
constexpr uint16_t kResolutionUnitInch = 2;
constexpr uint16_t kPhotometricBlackIsZero = 1;
constexpr uint16_t kPhotometricRGB = 2;

constexpr size_t kHeaderBytes = 8;
constexpr size_t kEntryBytes = 12;
// Offset of the IFD: right behind the header.
constexpr uint32_t kIfdOffset = 8;

// Grey files: 11 entries, then the next-IFD word and the two resolutions.
constexpr size_t kGrayEntries = 11;
constexpr size_t kGrayIfdEnd = kIfdOffset + 2 + kEntryBytes * kGrayEntries;  // 142
constexpr size_t kGrayXResolution = kGrayIfdEnd + 4;                          // 146
constexpr size_t kGrayYResolution = kGrayXResolution + 8;                     // 154
constexpr size_t kGrayData = kGrayYResolution + 8;                            // 162

/// Stores values little-endian into the file block, field by field.
class CLittleEndianBlock {
public:
  explicit CLittleEndianBlock(std::vector<uint8_t>& block) : m_Block(block) {}
  void Put16(size_t nOffset, uint16_t n) {
    m_Block[nOffset] = static_cast<uint8_t>(n);
    m_Block[nOffset + 1] = static_cast<uint8_t>(n >> 8);
  }
  void Put32(size_t nOffset, uint32_t n) {
    Put16(nOffset, static_cast<uint16_t>(n));
    Put16(nOffset + 2, static_cast<uint16_t>(n >> 16));
  }
  uint8_t* At(size_t nOffset) { return m_Block.data() + nOffset; }

private:
  std::vector<uint8_t>& m_Block;
};

struct STiffHeader {
  uint16_t nByteOrder;  // "II"
  uint16_t nMagic;      // 42
  uint32_t nIfdOffset;

  void Store(CLittleEndianBlock& out) const {
    out.Put16(0, nByteOrder);
    out.Put16(2, nMagic);
    out.Put32(4, nIfdOffset);
  }
};

constexpr STiffHeader kHeader = {0x4949, 42, kIfdOffset};

/// One IFD entry. A value of type SHORT sits in the low half of the 32-bit
/// value field, which little-endian order gives by storing it as 32 bits;
/// a width above 65535 is thus cut off by any reader.
struct STiffEntry {
  uint16_t nTag;
  uint16_t nType;
  uint32_t nCount;
  uint32_t nValue;

  void Store(CLittleEndianBlock& out, size_t nOffset) const {
    out.Put16(nOffset, nTag);
    out.Put16(nOffset + 2, nType);
    out.Put32(nOffset + 4, nCount);
    out.Put32(nOffset + 8, nValue);
  }
};

struct STiffRational {
  uint32_t nNumerator;
  uint32_t nDenominator;

  void Store(CLittleEndianBlock& out, size_t nOffset) const {
    out.Put32(nOffset, nNumerator);
    out.Put32(nOffset + 4, nDenominator);
  }
};

constexpr STiffRational kResolution = {kResolutionNumerator, kResolutionDenominator};

/// Stores the entry count and the entries at the IFD offset; returns the end
/// of the IFD, where the next-IFD word goes (left zero: one image per file).
size_t StoreIfd(CLittleEndianBlock& out, const STiffEntry* pEntries, size_t nEntries) {
  out.Put16(kIfdOffset, static_cast<uint16_t>(nEntries));
  size_t nOffset = kIfdOffset + 2;
  for (size_t i = 0; i < nEntries; ++i, nOffset += kEntryBytes) pEntries[i].Store(out, nOffset);
  return nOffset;
}

/// TIFF offsets are 32 bits wide; a larger file cannot be described.
uint32_t Offset32(size_t n, const GenICam_3_0::gcstring& strName) {
  if (n > std::numeric_limits<uint32_t>::max()) throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
  return static_cast<uint32_t>(n);
}

void WriteBlock(const std::vector<uint8_t>& block, const GenICam_3_0::gcstring& strName, FILE* pFile) {
  if (!block.empty() && std::fwrite(block.data(), block.size(), 1, pFile) != 1)
    throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
}

/// Mono8 and Mono16: one strip of tightly packed lines at offset 162.
template <typename X>
void WriterTIFF_Gray(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile) {
  const size_t nWidth = pImage->GetImageWidth();
  const size_t nHeight = pImage->GetImageHeight();
  const size_t nPitch = pImage->GetImageLinePitch();
  const size_t nLineBytes = nWidth * sizeof(X);
  const uint32_t nDataBytes = Offset32(nLineBytes * nHeight, strName);
  Offset32(kGrayData + size_t(nDataBytes), strName);

  std::vector<uint8_t> block(kGrayData + nDataBytes, 0);
  CLittleEndianBlock out(block);
  kHeader.Store(out);
  const uint32_t nW = static_cast<uint32_t>(nWidth);
  const uint32_t nH = static_cast<uint32_t>(nHeight);
  const STiffEntry entries[kGrayEntries] = {
      {TiffTag_ImageWidth, TiffType_Short, 1, nW},
      {TiffTag_ImageLength, TiffType_Short, 1, nH},
      {TiffTag_BitsPerSample, TiffType_Short, 1, 8 * sizeof(X)},
      {TiffTag_Compression, TiffType_Short, 1, 1},
      {TiffTag_PhotometricInterpretation, TiffType_Short, 1, kPhotometricBlackIsZero},
      {TiffTag_StripOffsets, TiffType_Long, 1, kGrayData},
      {TiffTag_RowsPerStrip, TiffType_Short, 1, nH},
      {TiffTag_StripByteCounts, TiffType_Long, 1, nDataBytes},
      {TiffTag_XResolution, TiffType_Rational, 1, kGrayXResolution},
      {TiffTag_YResolution, TiffType_Rational, 1, kGrayYResolution},
      {TiffTag_ResolutionUnit, TiffType_Short, 1, kResolutionUnitInch},
  };
  StoreIfd(out, entries, kGrayEntries);
  kResolution.Store(out, kGrayXResolution);
  kResolution.Store(out, kGrayYResolution);

  const uint8_t* pSrc = static_cast<const uint8_t*>(pImage->GetImageBuffer());
  for (size_t y = 0; y < nHeight; ++y)
    std::memcpy(out.At(kGrayData + y * nLineBytes), pSrc + y * nPitch, nLineBytes);
  WriteBlock(block, strName, pFile);
}

/// RGB and RGBa, interleaved or in three planes; one strip per plane.
template <typename X>
void WriterTIFF_Color(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile) {
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(pImage->GetImagePixelFormat());
  VY_ASSERT_NOT_NULL(pInfo);
  const size_t nWidth = pImage->GetImageWidth();
  const size_t nHeight = pImage->GetImageHeight();
  const size_t nPitch = pImage->GetImageLinePitch();
  // Cells per pixel within one plane: 3 or 4 interleaved, 1 in a plane.
  const size_t nCells = pInfo->GetComponentCount();
  const size_t P = pInfo->GetPlaneCount();
  // Samples per pixel of the file: every plane holds one component.
  const size_t C = nCells * P;
  const size_t E = C + 10;
  const size_t Q = kIfdOffset + 2 + kEntryBytes * E;
  const size_t nXResolution = Q + 4;
  const size_t nYResolution = Q + 12;
  const size_t nByteCountArray = Q + 20;
  const size_t nOffsetArray = Q + 32;
  const size_t nBitsArray = Q + 44;
  const size_t D = nBitsArray + 2 * C;
  const size_t L = nWidth * sizeof(X) * nCells;
  const uint32_t B = Offset32(L * nHeight, strName);
  const uint32_t nDataBytes = Offset32(size_t(B) * P, strName);
  Offset32(D + nDataBytes, strName);

  std::vector<uint8_t> block(D + nDataBytes, 0);
  CLittleEndianBlock out(block);
  kHeader.Store(out);
  const uint32_t nW = static_cast<uint32_t>(nWidth);
  const uint32_t nH = static_cast<uint32_t>(nHeight);
  const uint32_t nP = static_cast<uint32_t>(P);
  const bool bPlanar = P > 1;
  std::vector<STiffEntry> entries = {
      {TiffTag_ImageWidth, TiffType_Short, 1, nW},
      {TiffTag_ImageLength, TiffType_Short, 1, nH},
      {TiffTag_BitsPerSample, TiffType_Short, static_cast<uint32_t>(C), static_cast<uint32_t>(nBitsArray)},
      {TiffTag_Compression, TiffType_Short, 1, 1},
      {TiffTag_PhotometricInterpretation, TiffType_Short, 1, kPhotometricRGB},
      {TiffTag_StripOffsets, TiffType_Long, nP, static_cast<uint32_t>(bPlanar ? nOffsetArray : D)},
      {TiffTag_SamplesPerPixel, TiffType_Short, 1, static_cast<uint32_t>(C)},
  };
  // ExtraSamples follows SamplesPerPixel, ahead of the lower tags that come
  // next. Files of this writer have always had that order; libtiff notes it
  // and reads them.
  if (C > 3) entries.push_back({TiffTag_ExtraSamples, TiffType_Short, 1, 0});
  const STiffEntry tail[] = {
      {TiffTag_RowsPerStrip, TiffType_Short, 1, nH},
      {TiffTag_StripByteCounts, TiffType_Long, nP, bPlanar ? static_cast<uint32_t>(nByteCountArray) : nDataBytes},
      {TiffTag_XResolution, TiffType_Rational, 1, static_cast<uint32_t>(nXResolution)},
      {TiffTag_YResolution, TiffType_Rational, 1, static_cast<uint32_t>(nYResolution)},
      {TiffTag_PlanarConfiguration, TiffType_Long, 1, bPlanar ? 2u : 1u},
      {TiffTag_ResolutionUnit, TiffType_Short, 1, kResolutionUnitInch},
  };
  entries.insert(entries.end(), std::begin(tail), std::end(tail));
  // The IFD always advertises C + 10 entries, which matches the list above
  // for three and for four samples.
  VY_ASSERT(entries.size() == E);
  StoreIfd(out, entries.data(), E);
  kResolution.Store(out, nXResolution);
  kResolution.Store(out, nYResolution);
  if (bPlanar) {
    for (size_t p = 0; p < 3; ++p) {
      out.Put32(nByteCountArray + 4 * p, B);
      out.Put32(nOffsetArray + 4 * p, static_cast<uint32_t>(D + p * B));
    }
  }
  for (size_t c = 0; c < C; ++c) out.Put16(nBitsArray + 2 * c, static_cast<uint16_t>(8 * sizeof(X)));

  // Planes are taken height × pitch apart in the source, which is where an
  // owning buffer keeps them.
  const uint8_t* pSrc = static_cast<const uint8_t*>(pImage->GetImageBuffer());
  const size_t nCopy = std::min(nPitch, L);
  for (size_t p = 0; p < P; ++p) {
    const uint8_t* pPlane = pSrc + p * nHeight * nPitch;
    uint8_t* pDest = out.At(D + p * B);
    for (size_t y = 0; y < nHeight; ++y) std::memcpy(pDest + y * L, pPlane + y * nPitch, nCopy);
  }
  WriteBlock(block, strName, pFile);
}

using TiffRoutine = void (*)(IVyImage*, const GenICam_3_0::gcstring&, FILE*);

struct STiffRoutineRow {
  EVyPixelFormatNamingConvention_t eFormat;
  TiffRoutine pfnWrite;
};

const STiffRoutineRow kTiffRoutines[] = {
    {VyPixelFormat_Mono8, &WriterTIFF_Gray<unsigned char>},
    {VyPixelFormat_Mono16, &WriterTIFF_Gray<unsigned short>},
    {VyPixelFormat_RGB8, &WriterTIFF_Color<unsigned char>},
    {VyPixelFormat_RGBa8, &WriterTIFF_Color<unsigned char>},
    {VyPixelFormat_RGB8_Planar, &WriterTIFF_Color<unsigned char>},
    {VyPixelFormat_RGB16, &WriterTIFF_Color<unsigned short>},
    {VyPixelFormat_RGB16_Planar, &WriterTIFF_Color<unsigned short>},
};

GenICam_3_0::gcstring FormatName(EVyPixelFormatNamingConvention_t eFormat) {
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(eFormat);
  return pInfo ? pInfo->GetName() : GenICam_3_0::gcstring("Unknown");
}

}  // namespace

void WriteTiff(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile) {
  VY_ASSERT_NOT_NULL(pImage);
  const EVyPixelFormatNamingConvention_t eFormat = pImage->GetImagePixelFormat();
  const auto it = std::find_if(std::begin(kTiffRoutines), std::end(kTiffRoutines),
                               [eFormat](const STiffRoutineRow& row) { return row.eFormat == eFormat; });
  if (it == std::end(kTiffRoutines))
    throw VY_RUNTIME_EXCEPTION("Not supported pixelformat %s", FormatName(eFormat).c_str());
  try {
    it->pfnWrite(pImage, strName, pFile);
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  } catch (const GenICam_3_0::RuntimeException&) {
    throw;
  } catch (...) {
    throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
  }
}

}  // namespace VyApi
