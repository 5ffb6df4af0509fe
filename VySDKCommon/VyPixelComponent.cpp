#include <VyApi_IP/VyPixelComponent.h>

#include <VyApi_IP/IVyImage.h>

#include "VyApi_TL/VyPixelFormatInfo.h"

namespace VyApi {

namespace {

enum EKind_t : uint32_t { kMono = 1, kR = 2, kG = 3, kB = 4, kGr = 5, kGb = 6, kY = 7, kCb = 8, kCr = 9, kU = 10, kV = 11 };

EVyPixelComponent_t Component(uint32_t kind, size_t depth) {
  return static_cast<EVyPixelComponent_t>((kind << 24) | (static_cast<uint32_t>(depth) << 16));
}

uint32_t ReadCell(const unsigned char* pLine, size_t index, size_t depth) {
  if (depth <= 8) return pLine[index];
  return static_cast<uint32_t>(pLine[2 * index]) | (static_cast<uint32_t>(pLine[2 * index + 1]) << 8);
}

/// n bits at bit position `bit` of a least-significant-bit-first stream.
uint32_t ReadBits(const unsigned char* pLine, size_t bit, size_t n) {
  uint64_t acc = 0;
  const size_t first = bit / 8;
  const size_t bytes = (bit % 8 + n + 7) / 8;
  for (size_t i = 0; i < bytes; ++i) acc |= static_cast<uint64_t>(pLine[first + i]) << (8 * i);
  return static_cast<uint32_t>((acc >> (bit % 8)) & ((uint64_t(1) << n) - 1));
}

/// Two pixels in three bytes: the high bits in bytes 0 and 2, the low bits of
/// the first pixel in the high nibble of byte 1, of the second in its low nibble.
uint32_t ReadGVSP(const unsigned char* pLine, size_t x, size_t depth) {
  const size_t s = depth - 8;
  const uint32_t mask = (1u << s) - 1;
  const unsigned char* p = pLine + (x / 2) * 3;
  if ((x & 1) == 0) return (static_cast<uint32_t>(p[0]) << s) | ((p[1] >> 4) & mask);
  return (static_cast<uint32_t>(p[2]) << s) | (p[1] & mask);
}

}  // namespace

CVyPixelComponent::CVyPixelComponent() { mClear(); }

CVyPixelComponent::~CVyPixelComponent() = default;

void CVyPixelComponent::mClear() {
  m_ePixelFormat = VyPixelFormat_Undefined;
  m_nX = 0;
  m_nY = 0;
  m_nCount = 0;
  for (size_t i = 0; i < MaxComponentCount; ++i) {
    m_eComponents[i] = VyPixelComponent_Unknown;
    m_nValues[i] = 0;
  }
}

void CVyPixelComponent::mAdd(EVyPixelComponent_t component, uint32_t value) {
  if (m_nCount < MaxComponentCount) {
    m_eComponents[m_nCount] = component;
    m_nValues[m_nCount] = value;
    ++m_nCount;
  }
}

EVyPixelComponent_t CVyPixelComponent::GetComponent(size_t i) const {
  return i < m_nCount ? m_eComponents[i] : VyPixelComponent_Unknown;
}

uint32_t CVyPixelComponent::GetValue(size_t i) const { return i < m_nCount ? m_nValues[i] : 0; }

bool CVyPixelComponent::GetValueOf(EVyPixelComponent_t component, uint32_t* pValue) const {
  for (size_t i = 0; i < m_nCount; ++i) {
    if (m_eComponents[i] == component) {
      if (pValue != nullptr) *pValue = m_nValues[i];
      return true;
    }
  }
  return false;
}

void CVyPixelComponent::SetPixelComponent(IVyImage* pImage, size_t x, size_t y) {
  mClear();
  if (pImage == nullptr || pImage->GetImageBuffer() == nullptr) return;
  if (x >= pImage->GetImageWidth() || y >= pImage->GetImageHeight()) return;
  const CVyPixelFormatInfo* pInfo = dynamic_cast<const CVyPixelFormatInfo*>(
      GetIVyPixelFormatInfo(pImage->GetImagePixelFormat()));
  if (pInfo == nullptr) return;
  const SVyPixelFormatRow& row = pInfo->GetRow();
  m_ePixelFormat = row.eCode;
  m_nX = x;
  m_nY = y;

  const size_t depth = row.nDepth;
  const unsigned char* pLine = static_cast<const unsigned char*>(pImage->GetImageBuffer()) + y * pImage->GetImageLinePitch();

  // One sample per pixel: mono and Bayer.
  if (row.eKind == VyFormatKind_Mono || row.eKind == VyFormatKind_Bayer) {
    uint32_t value = 0;
    switch (row.ePacking) {
      case VyFormatPacking_P: value = ReadBits(pLine, x * depth, depth); break;
      case VyFormatPacking_GVSP: value = ReadGVSP(pLine, x, depth); break;
      default: value = ReadCell(pLine, x, depth); break;
    }
    uint32_t kind = kMono;
    if (row.eKind == VyFormatKind_Bayer) {
      switch (pInfo->GetPixelColorFilter(x, y)) {
        case VyPixelColorFilter_BayerRG: kind = kR; break;
        case VyPixelColorFilter_BayerBG: kind = kB; break;
        case VyPixelColorFilter_BayerGR: kind = kGr; break;  // green on a red line
        default: kind = kGb; break;                          // green on a blue line
      }
    }
    mAdd(Component(kind, depth), value);
    return;
  }

  if (row.eKind == VyFormatKind_Planar) {
    const size_t planePitch = pImage->GetImagePlanePitch();
    const uint32_t kinds[3] = {kR, kG, kB};
    for (size_t k = 0; k < 3; ++k) mAdd(Component(kinds[k], depth), ReadCell(pLine + k * planePitch, x, depth));
    return;
  }

  if (row.eKind == VyFormatKind_Color) {
    const uint32_t bgr[3] = {kB, kG, kR};
    const uint32_t rgb[3] = {kR, kG, kB};
    const uint32_t* kinds = row.bBGR ? bgr : rgb;
    for (size_t k = 0; k < 3; ++k) {
      uint32_t value = 0;
      switch (row.ePacking) {
        case VyFormatPacking_P: value = ReadBits(pLine, (3 * x + k) * depth, depth); break;
        case VyFormatPacking_Word32: value = ReadBits(pLine, 32 * x + 10 * k, 10); break;
        default: value = ReadCell(pLine, row.nComponents * x + k, depth); break;
      }
      mAdd(Component(kinds[k], depth), value);
    }
    return;
  }

  // YCbCr: the pixel's own luma and the chroma of its group.
  const bool bYUV = row.pName[1] == 'U';
  const size_t group = row.nComponents;
  const size_t groupBytes = group == 1 ? 3 : group == 2 ? 4 : 6;
  const unsigned char* pGroup = pLine + (x / group) * groupBytes;
  size_t lumaSeen = 0;
  uint32_t luma = 0, blue = 0, red = 0;
  for (size_t i = 0; row.pLayout[i] != '\0'; ++i) {
    switch (row.pLayout[i]) {
      case 'Y':
        if (lumaSeen++ == x % group) luma = pGroup[i];
        break;
      case 'b': blue = pGroup[i]; break;
      default: red = pGroup[i]; break;
    }
  }
  mAdd(Component(kY, 8), luma);
  mAdd(Component(bYUV ? kU : kCb, 8), blue);
  mAdd(Component(bYUV ? kV : kCr, 8), red);
}

}  // namespace VyApi
