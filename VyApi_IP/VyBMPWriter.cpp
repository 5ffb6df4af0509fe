#include "VyBMPWriter.h"

#include <cstring>
#include <new>
#include <vector>

#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

namespace {

constexpr uint32_t c_nBI_RGB = 0;
constexpr uint32_t c_nBI_BITFIELDS = 3;
constexpr uint32_t c_nPaletteOffset = 54;  // file header + info header
constexpr uint32_t c_nMasksEnd = c_nPaletteOffset + 12;
constexpr uint32_t c_nPaletteEnd = c_nPaletteOffset + 256 * 4;
constexpr uint32_t c_nCBGRMasks[3] = {0x3FF00000, 0x000FFC00, 0x000003FF};

enum class EExtra { None, GreyPalette, DepthMasks, CBGRMasks };

struct SLayout {
  EVyPixelFormatNamingConvention_t eFormat;
  uint16_t nBitCount;
  uint32_t nCompression;
  uint32_t nOffBits;
  EExtra eExtra;
};

const SLayout c_Layouts[] = {
    {VyPixelFormat_Mono8, 8, c_nBI_RGB, c_nPaletteEnd, EExtra::GreyPalette},
    {VyPixelFormat_Mono10, 16, c_nBI_BITFIELDS, c_nMasksEnd, EExtra::DepthMasks},
    {VyPixelFormat_Mono12, 16, c_nBI_BITFIELDS, c_nMasksEnd, EExtra::DepthMasks},
    {VyPixelFormat_Mono14, 16, c_nBI_BITFIELDS, c_nMasksEnd, EExtra::DepthMasks},
    {VyPixelFormat_Mono16, 16, c_nBI_BITFIELDS, c_nMasksEnd, EExtra::DepthMasks},
    {VyPixelFormat_BGR8, 24, c_nBI_RGB, c_nPaletteOffset, EExtra::None},
    {VyPixelFormat_BGRa8, 32, c_nBI_RGB, c_nPaletteOffset, EExtra::None},
    {VyPixelFormat_CBGR10p32, 32, c_nBI_BITFIELDS, c_nMasksEnd, EExtra::CBGRMasks},
};

const SLayout* FindLayout(EVyPixelFormatNamingConvention_t eFormat) {
  for (const SLayout& layout : c_Layouts)
    if (layout.eFormat == eFormat) return &layout;
  return nullptr;
}

// Little-endian fields, written and read one by one so that the structs need
// no packing.
void Put16(uint8_t*& p, uint16_t v) {
  p[0] = static_cast<uint8_t>(v);
  p[1] = static_cast<uint8_t>(v >> 8);
  p += 2;
}
void Put32(uint8_t*& p, uint32_t v) {
  for (int i = 0; i < 4; ++i) p[i] = static_cast<uint8_t>(v >> (8 * i));
  p += 4;
}
uint16_t Get16(const uint8_t*& p) {
  const uint16_t v = static_cast<uint16_t>(p[0] | (p[1] << 8));
  p += 2;
  return v;
}
uint32_t Get32(const uint8_t*& p) {
  uint32_t v = 0;
  for (int i = 0; i < 4; ++i) v |= static_cast<uint32_t>(p[i]) << (8 * i);
  p += 4;
  return v;
}

void PutFileHeader(uint8_t*& p, const SVyBitmapFileHeader& h) {
  Put16(p, h.bfType);
  Put32(p, h.bfSize);
  Put16(p, h.bfReserved1);
  Put16(p, h.bfReserved2);
  Put32(p, h.bfOffBits);
}

void PutInfoHeader(uint8_t*& p, const SVyBitmapInfoHeader& h) {
  Put32(p, h.biSize);
  Put32(p, static_cast<uint32_t>(h.biWidth));
  Put32(p, static_cast<uint32_t>(h.biHeight));
  Put16(p, h.biPlanes);
  Put16(p, h.biBitCount);
  Put32(p, h.biCompression);
  Put32(p, h.biSizeImage);
  Put32(p, static_cast<uint32_t>(h.biXPelsPerMeter));
  Put32(p, static_cast<uint32_t>(h.biYPelsPerMeter));
  Put32(p, h.biClrUsed);
  Put32(p, h.biClrImportant);
}

SVyBitmapFileHeader GetFileHeader(const uint8_t* p) {
  SVyBitmapFileHeader h;
  h.bfType = Get16(p);
  h.bfSize = Get32(p);
  h.bfReserved1 = Get16(p);
  h.bfReserved2 = Get16(p);
  h.bfOffBits = Get32(p);
  return h;
}

SVyBitmapInfoHeader GetInfoHeader(const uint8_t* p) {
  SVyBitmapInfoHeader h;
  h.biSize = Get32(p);
  h.biWidth = static_cast<int32_t>(Get32(p));
  h.biHeight = static_cast<int32_t>(Get32(p));
  h.biPlanes = Get16(p);
  h.biBitCount = Get16(p);
  h.biCompression = Get32(p);
  h.biSizeImage = Get32(p);
  h.biXPelsPerMeter = static_cast<int32_t>(Get32(p));
  h.biYPelsPerMeter = static_cast<int32_t>(Get32(p));
  h.biClrUsed = Get32(p);
  h.biClrImportant = Get32(p);
  return h;
}

GenICam_3_0::gcstring FormatName(EVyPixelFormatNamingConvention_t eFormat) {
  IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(eFormat);
  return pInfo ? pInfo->GetName() : GenICam_3_0::gcstring("Unknown");
}

// The pixel format of a grey bit-field file, from its (equal) masks.
EVyPixelFormatNamingConvention_t GreyFormatOfMask(uint32_t nMask) {
  switch (nMask) {
    case 0x3FF: return VyPixelFormat_Mono10;
    case 0xFFF: return VyPixelFormat_Mono12;
    case 0x3FFF: return VyPixelFormat_Mono14;
    case 0xFFFF: return VyPixelFormat_Mono16;
    default: return VyPixelFormat_Undefined;
  }
}

}  // namespace

void WriteBMP(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile) {
  const EVyPixelFormatNamingConvention_t eFormat = pImage->GetImagePixelFormat();
  const SLayout* pLayout = FindLayout(eFormat);
  if (!pLayout) throw VY_RUNTIME_EXCEPTION("Not supported pixelformat %s", FormatName(eFormat).c_str());

  const size_t nWidth = pImage->GetImageWidth();
  const size_t nHeight = pImage->GetImageHeight();
  const size_t nPitch = pImage->GetImageLinePitch();
  const size_t nPaddedPitch = (nPitch + 3) & ~static_cast<size_t>(3);
  const size_t nImageBytes = nPaddedPitch * nHeight;
  const size_t nTotal = pLayout->nOffBits + nImageBytes;

  std::vector<uint8_t> vecFile;
  try {
    // Zero-filled, so the pad bytes behind each line are written as zeros.
    vecFile.assign(nTotal, 0);
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }

  const uint8_t* pSrc = static_cast<const uint8_t*>(pImage->GetImageBuffer());
  for (size_t y = 0; y < nHeight; ++y)
    std::memcpy(&vecFile[pLayout->nOffBits + (nHeight - 1 - y) * nPaddedPitch], pSrc + y * nPitch, nPitch);

  SVyBitmapFileHeader fileHeader;
  fileHeader.bfSize = static_cast<uint32_t>(nTotal);
  fileHeader.bfOffBits = pLayout->nOffBits;
  SVyBitmapInfoHeader infoHeader;
  infoHeader.biWidth = static_cast<int32_t>(nWidth);
  infoHeader.biHeight = static_cast<int32_t>(nHeight);
  infoHeader.biBitCount = pLayout->nBitCount;
  infoHeader.biCompression = pLayout->nCompression;
  infoHeader.biSizeImage = static_cast<uint32_t>(nImageBytes);
  if (pLayout->eExtra == EExtra::GreyPalette) infoHeader.biClrUsed = infoHeader.biClrImportant = 256;

  uint8_t* p = vecFile.data();
  PutFileHeader(p, fileHeader);
  PutInfoHeader(p, infoHeader);
  switch (pLayout->eExtra) {
    case EExtra::GreyPalette:
      for (uint32_t i = 0; i < 256; ++i) Put32(p, i | (i << 8) | (i << 16));
      break;
    case EExtra::DepthMasks: {
      const uint32_t nMask =
          (1u << GetIVyPixelFormatInfo(eFormat)->GetComponentBitDepth()) - 1u;
      for (int i = 0; i < 3; ++i) Put32(p, nMask);
      break;
    }
    case EExtra::CBGRMasks:
      for (uint32_t nMask : c_nCBGRMasks) Put32(p, nMask);
      break;
    case EExtra::None: break;
  }

  if (std::fwrite(vecFile.data(), 1, nTotal, pFile) != nTotal)
    throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
}

void LoadBMP(IVyImageBuffer* pBuffer, const GenICam_3_0::gcstring& strName, FILE* pFile) {
  auto unreadable = [&strName]() { return VY_RUNTIME_EXCEPTION("File %s is unreadable.", strName.c_str()); };

  uint8_t header[SVyBitmapFileHeader::c_nSize + SVyBitmapInfoHeader::c_nSize];
  if (std::fseek(pFile, 0, SEEK_SET) != 0) throw unreadable();
  if (std::fread(header, 1, SVyBitmapFileHeader::c_nSize, pFile) != SVyBitmapFileHeader::c_nSize)
    throw unreadable();
  const SVyBitmapFileHeader fileHeader = GetFileHeader(header);
  if (fileHeader.bfType != 0x4D42) throw unreadable();
  if (std::fread(header + SVyBitmapFileHeader::c_nSize, 1, SVyBitmapInfoHeader::c_nSize, pFile) !=
      SVyBitmapInfoHeader::c_nSize)
    throw unreadable();
  const SVyBitmapInfoHeader infoHeader = GetInfoHeader(header + SVyBitmapFileHeader::c_nSize);

  EVyPixelFormatNamingConvention_t eFormat = VyPixelFormat_Undefined;
  uint32_t nLeastOffset = 0;
  if (infoHeader.biCompression == c_nBI_RGB) {
    switch (infoHeader.biBitCount) {
      case 8: {
        if (infoHeader.biClrUsed != 256 || infoHeader.biClrImportant != 256) throw unreadable();
        uint8_t palette[256 * 4];
        if (std::fread(palette, 1, sizeof palette, pFile) != sizeof palette) throw unreadable();
        // Only the identity grey ramp stands for Mono8; a colour palette does not.
        for (unsigned i = 0; i < 256; ++i)
          if (palette[4 * i] != i || palette[4 * i + 1] != i || palette[4 * i + 2] != i) throw unreadable();
        eFormat = VyPixelFormat_Mono8;
        nLeastOffset = c_nPaletteEnd;
        break;
      }
      case 24: eFormat = VyPixelFormat_BGR8; nLeastOffset = c_nPaletteOffset; break;
      case 32: eFormat = VyPixelFormat_BGRa8; nLeastOffset = c_nPaletteOffset; break;
      default: throw unreadable();
    }
  } else if (infoHeader.biCompression == c_nBI_BITFIELDS) {
    uint8_t masks[12];
    if (std::fread(masks, 1, sizeof masks, pFile) != sizeof masks) throw unreadable();
    const uint8_t* p = masks;
    const uint32_t nRed = Get32(p), nGreen = Get32(p), nBlue = Get32(p);
    nLeastOffset = c_nMasksEnd;
    if (infoHeader.biBitCount == 16) {
      if (nRed != nGreen || nGreen != nBlue) throw unreadable();
      eFormat = GreyFormatOfMask(nRed);
      if (eFormat == VyPixelFormat_Undefined) throw unreadable();
    } else if (infoHeader.biBitCount == 32) {
      if (nRed != c_nCBGRMasks[0] || nGreen != c_nCBGRMasks[1] || nBlue != c_nCBGRMasks[2]) throw unreadable();
      eFormat = VyPixelFormat_CBGR10p32;
    } else {
      throw unreadable();
    }
  } else {
    throw unreadable();
  }

  IVyImageBufferInside* pBufferInside = dynamic_cast<IVyImageBufferInside*>(pBuffer);
  VY_ASSERT_NOT_NULL(pBufferInside);
  const int64_t nFileHeight = infoHeader.biHeight;
  const size_t nHeight = static_cast<size_t>(nFileHeight < 0 ? -nFileHeight : nFileHeight);
  // A negative width becomes a huge size_t, which SetSize refuses as below 1.
  pBufferInside->SetSize(static_cast<size_t>(static_cast<int64_t>(infoHeader.biWidth)), nHeight, eFormat, 0);

  IVyImage* pImage = pBuffer->GetIVyImage();
  const size_t nPitch = pImage->GetImageLinePitch();
  if (fileHeader.bfOffBits < nLeastOffset) throw unreadable();
  if (static_cast<uint64_t>(fileHeader.bfSize) < fileHeader.bfOffBits + static_cast<uint64_t>(nPitch) * nHeight)
    throw unreadable();

  if (std::fseek(pFile, static_cast<long>(fileHeader.bfOffBits), SEEK_SET) != 0) throw unreadable();
  uint8_t* pData = static_cast<uint8_t*>(pImage->GetImageBuffer());
  for (size_t i = 0; i < nHeight; ++i) {
    const size_t y = nFileHeight >= 0 ? nHeight - 1 - i : i;
    if (std::fread(pData + y * nPitch, 1, nPitch, pFile) != nPitch) throw unreadable();
  }
}

}  // namespace VyApi
