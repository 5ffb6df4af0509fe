#include "VyApi_TL/VyPixelFormatInfo.h"

namespace VyApi {

namespace {

size_t Gcd(size_t a, size_t b) {
  while (b != 0) {
    const size_t t = a % b;
    a = b;
    b = t;
  }
  return a;
}

std::string Describe(const SVyPixelFormatRow& row) {
  static const char* const kKinds[] = {"Mono", "Bayer", "Colour", "Planar colour", "YCbCr"};
  static const char* const kPhases[] = {" RG", " GR", " GB", " BG"};
  std::string s = kKinds[row.eKind];
  if (row.eKind == VyFormatKind_Bayer) s += kPhases[row.nBayerPhase & 3];
  if (row.eKind == VyFormatKind_Color) s += row.bBGR ? " BGR" : " RGB";
  if (row.eKind == VyFormatKind_Color && row.nComponents == 4) s += "a";
  if (row.eKind == VyFormatKind_YCbCr) s += row.nComponents == 1 ? " 4:4:4" : row.nComponents == 2 ? " 4:2:2" : " 4:1:1";
  s += ", " + std::to_string(row.nDepth) + (row.nDepth == 1 ? " bit" : " bits");
  switch (row.ePacking) {
    case VyFormatPacking_P: s += ", packed"; break;
    case VyFormatPacking_GVSP: s += ", GVSP packed"; break;
    case VyFormatPacking_Word32: s += ", packed in 32 bits"; break;
    case VyFormatPacking_None: break;
  }
  return s;
}

}  // namespace

CVyPixelFormatInfo::CVyPixelFormatInfo(const SVyPixelFormatRow& row, const SVyPixelFormatRow* pBayerSiblings)
    : m_Row(row), m_pBayerSiblings(pBayerSiblings), m_strDescription(Describe(row)) {
  // The second byte of the code is the storage bits of one pixel.
  m_nPixelBits = (static_cast<uint32_t>(row.eCode) >> 16) & 0xFF;
  m_nPlaneCount = row.eKind == VyFormatKind_Planar ? 3 : 1;
  m_nPlanePixelBits = m_nPixelBits / m_nPlaneCount;
  const size_t cellBits = row.nDepth <= 8 ? 8 : 16;
  const bool bSubsampled411 = row.eKind == VyFormatKind_YCbCr && row.nComponents == 4;
  m_bPacked = row.ePacking != VyFormatPacking_None || bSubsampled411;

  if (m_bPacked) {
    const bool bOneComponent = row.eKind == VyFormatKind_Mono || row.eKind == VyFormatKind_Bayer;
    m_nComponentCount = bOneComponent ? 1 : 3;
  } else {
    m_nComponentCount = m_nPlanePixelBits / cellBits;
  }

  // A view must start on a byte, and a YCbCr view on a chroma group.
  m_nIncrementX = 8 / Gcd(m_nPlanePixelBits, 8);
  if (row.eKind == VyFormatKind_YCbCr && row.nComponents > m_nIncrementX) m_nIncrementX = row.nComponents;

  switch (row.eKind) {
    case VyFormatKind_Mono:
    case VyFormatKind_Bayer: m_nEffectiveBits = row.nDepth; break;
    case VyFormatKind_Color: m_nEffectiveBits = static_cast<size_t>(row.nDepth) * row.nComponents; break;
    case VyFormatKind_Planar: m_nEffectiveBits = static_cast<size_t>(row.nDepth) * 3; break;
    case VyFormatKind_YCbCr:
    default: m_nEffectiveBits = m_nPixelBits; break;
  }

  // The colour bit streams are written in whole 16-bit words, so their lines
  // end on a word.
  m_nLineGranuleBytes = (row.eKind == VyFormatKind_Color && row.ePacking == VyFormatPacking_P) ? 2 : 1;
}

EVyPixelColorFilter_t CVyPixelFormatInfo::GetPixelColorFilter(size_t x, size_t y) const {
  switch (m_Row.eKind) {
    case VyFormatKind_Mono: return VyPixelColorFilter_Mono;
    case VyFormatKind_Bayer: return static_cast<EVyPixelColorFilter_t>(VyPixelColorFilter_BayerRG + mPhaseAt(x, y));
    default: return VyPixelColorFilter_None;
  }
}

size_t CVyPixelFormatInfo::GetLinePitchBytes(size_t width, size_t alignment) const {
  const size_t granuleBits = 8 * m_nLineGranuleBytes;
  size_t bytes = (width * m_nPlanePixelBits + granuleBits - 1) / granuleBits * m_nLineGranuleBytes;
  if (alignment > 1) bytes = (bytes + alignment - 1) / alignment * alignment;
  return bytes;
}

EVyPixelFormatNamingConvention_t CVyPixelFormatInfo::GetPixelFormatAtOffset(size_t x, size_t y) const {
  if (m_pBayerSiblings == nullptr) return m_Row.eCode;
  return m_pBayerSiblings[mPhaseAt(x, y)].eCode;
}

bool CVyPixelFormatInfo::IsBGROrder() const {
  switch (m_Row.eKind) {
    case VyFormatKind_Mono:
    case VyFormatKind_Bayer: return true;
    case VyFormatKind_Color: return m_Row.bBGR;
    default: return false;
  }
}

}  // namespace VyApi
