#include "VyCSVWriter.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

namespace {

enum class ERoutine { Unpacked8, Unpacked16, Packed8, Packed16, GEVPacked, Packed10p32 };

using F = EVyPixelFormatNamingConvention_t;

// One group of formats that share a routine and a shape: per line
// w * nNum / nDen values (w + w / 2 for 4:1:1 equals 3 * w / 2), nLineFactor * h lines.
struct SGroup {
  ERoutine eRoutine;
  size_t nNum, nDen, nLineFactor, nBits;
  const F* pFormats;
  size_t nFormats;
};

#define VY_BAYER(x) VyPixelFormat_BayerGR##x, VyPixelFormat_BayerRG##x, VyPixelFormat_BayerGB##x, VyPixelFormat_BayerBG##x
#define VY_GVSP_BAYER(x)                                                                             \
  VyPixelFormat_GVSP_BayerGR##x##Packed, VyPixelFormat_GVSP_BayerRG##x##Packed, VyPixelFormat_GVSP_BayerGB##x##Packed, \
      VyPixelFormat_GVSP_BayerBG##x##Packed

const F c_Mono8[] = {VyPixelFormat_Mono8, VY_BAYER(8)};
const F c_YCbCr422[] = {VyPixelFormat_YCbCr422_8,          VyPixelFormat_YCbCr709_422_8,
                        VyPixelFormat_YCbCr601_422_8,      VyPixelFormat_YCbCr422_8_CbYCrY,
                        VyPixelFormat_YCbCr601_422_8_CbYCrY, VyPixelFormat_YCbCr709_422_8_CbYCrY,
                        VyPixelFormat_YUV422_8,            VyPixelFormat_YUV422_8_UYVY};
const F c_YCbCr411[] = {VyPixelFormat_YCbCr411_8, VyPixelFormat_YCbCr411_8_CbYYCrYY,
                        VyPixelFormat_YCbCr601_411_8_CbYYCrYY, VyPixelFormat_YCbCr709_411_8_CbYYCrYY,
                        VyPixelFormat_YUV411_8_UYYVYY};
const F c_Three8[] = {VyPixelFormat_RGB8,          VyPixelFormat_BGR8,
                      VyPixelFormat_YCbCr8,        VyPixelFormat_YCbCr8_CbYCr,
                      VyPixelFormat_YCbCr601_8_CbYCr, VyPixelFormat_YCbCr709_8_CbYCr,
                      VyPixelFormat_YUV8_UYV};
const F c_Four8[] = {VyPixelFormat_RGBa8, VyPixelFormat_BGRa8};
const F c_Planar8[] = {VyPixelFormat_RGB8_Planar};
const F c_Mono16[] = {VyPixelFormat_Mono10, VyPixelFormat_Mono12, VyPixelFormat_Mono14, VyPixelFormat_Mono16,
                      VY_BAYER(10),         VY_BAYER(12),         VY_BAYER(14),         VY_BAYER(16)};
const F c_Three16[] = {VyPixelFormat_BGR10, VyPixelFormat_BGR12, VyPixelFormat_BGR14, VyPixelFormat_BGR16,
                       VyPixelFormat_RGB16};
const F c_Four16[] = {VyPixelFormat_BGRa10, VyPixelFormat_BGRa12, VyPixelFormat_BGRa14, VyPixelFormat_BGRa16};
const F c_Planar16[] = {VyPixelFormat_RGB10_Planar, VyPixelFormat_RGB12_Planar, VyPixelFormat_RGB16_Planar};
const F c_Packed1[] = {VyPixelFormat_Mono1p};
const F c_Packed2[] = {VyPixelFormat_Mono2p};
const F c_Packed4[] = {VyPixelFormat_Mono4p, VY_BAYER(4p)};
const F c_Packed10[] = {VyPixelFormat_Mono10p, VY_BAYER(10p)};
const F c_Packed12[] = {VyPixelFormat_Mono12p, VY_BAYER(12p)};
const F c_PackedRGB10[] = {VyPixelFormat_BGR10p, VyPixelFormat_RGB10p};
const F c_PackedRGB12[] = {VyPixelFormat_BGR12p, VyPixelFormat_RGB12p};
const F c_GEV10[] = {VyPixelFormat_GVSP_Mono10Packed, VY_GVSP_BAYER(10)};
const F c_GEV12[] = {VyPixelFormat_GVSP_Mono12Packed, VY_GVSP_BAYER(12)};
const F c_10p32[] = {VyPixelFormat_RGB10p32, VyPixelFormat_CBGR10p32};

#undef VY_BAYER
#undef VY_GVSP_BAYER

#define VY_GROUP(routine, num, den, lines, bits, formats) \
  { ERoutine::routine, num, den, lines, bits, formats, sizeof(formats) / sizeof(formats[0]) }

const SGroup c_Groups[] = {
    VY_GROUP(Unpacked8, 1, 1, 1, 0, c_Mono8),       VY_GROUP(Unpacked8, 2, 1, 1, 0, c_YCbCr422),
    VY_GROUP(Unpacked8, 3, 2, 1, 0, c_YCbCr411),    VY_GROUP(Unpacked8, 3, 1, 1, 0, c_Three8),
    VY_GROUP(Unpacked8, 4, 1, 1, 0, c_Four8),       VY_GROUP(Unpacked8, 1, 1, 3, 0, c_Planar8),
    VY_GROUP(Unpacked16, 1, 1, 1, 0, c_Mono16),     VY_GROUP(Unpacked16, 3, 1, 1, 0, c_Three16),
    VY_GROUP(Unpacked16, 4, 1, 1, 0, c_Four16),     VY_GROUP(Unpacked16, 1, 1, 3, 0, c_Planar16),
    VY_GROUP(Packed8, 1, 1, 1, 1, c_Packed1),       VY_GROUP(Packed8, 1, 1, 1, 2, c_Packed2),
    VY_GROUP(Packed8, 1, 1, 1, 4, c_Packed4),       VY_GROUP(Packed16, 1, 1, 1, 10, c_Packed10),
    VY_GROUP(Packed16, 1, 1, 1, 12, c_Packed12),    VY_GROUP(Packed16, 3, 1, 1, 10, c_PackedRGB10),
    VY_GROUP(Packed16, 3, 1, 1, 12, c_PackedRGB12), VY_GROUP(GEVPacked, 1, 1, 1, 10, c_GEV10),
    VY_GROUP(GEVPacked, 1, 1, 1, 12, c_GEV12),      VY_GROUP(Packed10p32, 1, 1, 1, 0, c_10p32),
};

#undef VY_GROUP

const SGroup* FindGroup(F eFormat) {
  for (const SGroup& group : c_Groups)
    for (size_t i = 0; i < group.nFormats; ++i)
      if (group.pFormats[i] == eFormat) return &group;
  return nullptr;
}

const uint8_t* Line(const void* p, size_t nPitch, size_t y) { return static_cast<const uint8_t*>(p) + y * nPitch; }

// Each line is formatted on its own and goes to the file in one piece.
template <typename Fn>
void WriteLines(size_t nLines, std::ostream& os, Fn fnLine) {
  for (size_t y = 0; y < nLines; ++y) {
    std::ostringstream line;
    fnLine(y, line);
    line << '\n';
    os << line.str();
  }
}

}  // namespace

template <typename X>
void WriteCSVUnpacked(const X* p, size_t nPerLine, size_t nPitch, size_t nLines, std::ostream& os) {
  WriteLines(nLines, os, [&](size_t y, std::ostringstream& line) {
    const uint8_t* pLine = Line(p, nPitch, y);
    for (size_t i = 0; i < nPerLine; ++i) {
      X v;
      std::memcpy(&v, pLine + i * sizeof(X), sizeof(X));
      line << static_cast<unsigned>(v) << ',';
    }
  });
}

template <typename X>
void WriteCSVPacked(const X* p, size_t nPerLine, size_t nPitch, size_t nLines, size_t nBits, std::ostream& os) {
  const uint32_t nMask = (1u << nBits) - 1u;
  WriteLines(nLines, os, [&](size_t y, std::ostringstream& line) {
    const uint8_t* pByte = Line(p, nPitch, y);
    uint32_t nHeld = 0;
    size_t nHeldBits = 0;
    for (size_t i = 0; i < nPerLine; ++i) {
      while (nHeldBits < nBits) {
        nHeld |= static_cast<uint32_t>(*pByte++) << nHeldBits;
        nHeldBits += 8;
      }
      line << static_cast<unsigned>(static_cast<X>(nHeld & nMask)) << ',';
      nHeld >>= nBits;
      nHeldBits -= nBits;
    }
  });
}

void WriteCSVGEVPacked(const unsigned char* p, size_t nPixels, size_t nPitch, size_t nLines, size_t nBits,
                       std::ostream& os) {
  const size_t n = nBits - 8;
  const unsigned nMask = (1u << n) - 1u;
  WriteLines(nLines, os, [&](size_t y, std::ostringstream& line) {
    const uint8_t* b = Line(p, nPitch, y);
    for (size_t i = 0; i < nPixels; i += 2, b += 3) {
      line << (((b[1] >> 4) & nMask) | (static_cast<unsigned>(b[0]) << n)) << ',';
      if (i + 1 < nPixels) line << ((b[1] & nMask) | (static_cast<unsigned>(b[2]) << n)) << ',';
    }
  });
}

void WriteCSVPacked10p32(const unsigned int* p, size_t nPixels, size_t nPitch, size_t nLines, std::ostream& os) {
  WriteLines(nLines, os, [&](size_t y, std::ostringstream& line) {
    const uint8_t* pLine = Line(p, nPitch, y);
    for (size_t i = 0; i < nPixels; ++i) {
      uint32_t v;
      std::memcpy(&v, pLine + 4 * i, 4);
      line << (v & 0x3FF) << ',' << ((v >> 10) & 0x3FF) << ',' << ((v >> 20) & 0x3FF) << ',';
    }
  });
}

template void WriteCSVUnpacked<unsigned char>(const unsigned char*, size_t, size_t, size_t, std::ostream&);
template void WriteCSVUnpacked<unsigned short>(const unsigned short*, size_t, size_t, size_t, std::ostream&);
template void WriteCSVPacked<unsigned char>(const unsigned char*, size_t, size_t, size_t, size_t, std::ostream&);
template void WriteCSVPacked<unsigned short>(const unsigned short*, size_t, size_t, size_t, size_t, std::ostream&);

void WriteCSV(IVyImage* pImage, const GenICam_3_0::gcstring& strName) {
  const F eFormat = pImage->GetImagePixelFormat();
  const size_t w = pImage->GetImageWidth();
  const size_t h = pImage->GetImageHeight();
  const size_t nPitch = pImage->GetImageLinePitch();
  const void* p = pImage->GetImageBuffer();
  IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(eFormat);
  const GenICam_3_0::gcstring strFormat = pInfo ? pInfo->GetName() : GenICam_3_0::gcstring("Unknown");
  const SGroup* pGroup = FindGroup(eFormat);

  std::ofstream os(strName.c_str(), std::ios::out | std::ios::trunc | std::ios::binary);
  if (!os) throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
  try {
    os.exceptions(std::ios::badbit | std::ios::failbit);
    os << "Width=" << w << '\n' << "Height=" << h << '\n' << "PixelFormat=" << strFormat.c_str() << '\n';
    if (pGroup) {
      const size_t nPerLine = w * pGroup->nNum / pGroup->nDen;
      const size_t nLines = h * pGroup->nLineFactor;
      switch (pGroup->eRoutine) {
        case ERoutine::Unpacked8:
          WriteCSVUnpacked(static_cast<const unsigned char*>(p), nPerLine, nPitch, nLines, os);
          break;
        case ERoutine::Unpacked16:
          WriteCSVUnpacked(static_cast<const unsigned short*>(p), nPerLine, nPitch, nLines, os);
          break;
        case ERoutine::Packed8:
          WriteCSVPacked(static_cast<const unsigned char*>(p), nPerLine, nPitch, nLines, pGroup->nBits, os);
          break;
        case ERoutine::Packed16:
          WriteCSVPacked(static_cast<const unsigned short*>(p), nPerLine, nPitch, nLines, pGroup->nBits, os);
          break;
        case ERoutine::GEVPacked:
          WriteCSVGEVPacked(static_cast<const unsigned char*>(p), nPerLine, nPitch, nLines, pGroup->nBits, os);
          break;
        case ERoutine::Packed10p32:
          WriteCSVPacked10p32(static_cast<const unsigned int*>(p), nPerLine, nPitch, nLines, os);
          break;
      }
    }
    os.close();
  } catch (const std::exception&) {
    throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
  }
  // Refused only now, so the file keeps its header lines.
  if (!pGroup) throw VY_RUNTIME_EXCEPTION("Not supported pixelformat %s", strFormat.c_str());
}

}  // namespace VyApi
