// The answers of the pixel-format service for one format, derived once from
// its table row and its code.
#ifndef VYAPI_TL_VYPIXELFORMATINFO_H
#define VYAPI_TL_VYPIXELFORMATINFO_H

#include <string>

#include <VyApi_IP/IVyPixelFormatInfo.h>

#include "VyApi_TL/VyPixelFormatTable.h"

namespace VyApi {

class CVyPixelFormatInfo : public IVyPixelFormatInfoInside {
public:
  /// pSiblings: the four rows of the same Bayer format (null for other kinds).
  CVyPixelFormatInfo(const SVyPixelFormatRow& row, const SVyPixelFormatRow* pBayerSiblings);
  ~CVyPixelFormatInfo() override = default;

  EVyPixelFormatNamingConvention_t GetCode() const override { return m_Row.eCode; }
  GenICam_3_0::gcstring GetName() const override { return GenICam_3_0::gcstring(m_Row.pName); }
  GenICam_3_0::gcstring GetDescription() const override { return GenICam_3_0::gcstring(m_strDescription); }
  size_t GetPixelBitCount() const override { return m_nPixelBits; }
  size_t GetPlanePixelBitCount() const override { return m_nPlanePixelBits; }
  size_t GetComponentBitDepth() const override { return m_Row.nDepth; }
  size_t GetComponentCount() const override { return m_nComponentCount; }
  size_t GetPlaneCount() const override { return m_nPlaneCount; }
  size_t GetPixelIncrementX() const override { return m_nIncrementX; }
  size_t GetPixelIncrementY() const override { return 1; }
  bool IsColor() const override { return m_Row.eKind != VyFormatKind_Mono; }
  bool IsMono() const override { return m_Row.eKind == VyFormatKind_Mono; }
  bool IsBayer() const override { return m_Row.eKind == VyFormatKind_Bayer; }
  bool HasAlpha() const override { return m_Row.eKind == VyFormatKind_Color && m_Row.nComponents == 4; }
  EVyPixelColorFilter_t GetPixelColorFilter(size_t x, size_t y) const override;

  size_t GetDefaultLineAlignment() const override { return 1; }
  size_t GetLinePitchBytes(size_t width, size_t alignment) const override;
  size_t GetEffectiveBitCount() const override { return m_nEffectiveBits; }
  bool IsPacked() const override { return m_bPacked; }
  EVyPixelFormatNamingConvention_t GetPixelFormatAtOffset(size_t x, size_t y) const override;
  bool IsBGROrder() const override;
  bool IsGVSPPacked() const override { return m_Row.ePacking == VyFormatPacking_GVSP; }

  /// The row this object answers for.
  const SVyPixelFormatRow& GetRow() const { return m_Row; }

private:
  /// Bayer phase seen from (x, y): the red site moves with odd offsets.
  size_t mPhaseAt(size_t x, size_t y) const { return m_Row.nBayerPhase ^ ((x & 1) | ((y & 1) << 1)); }

  const SVyPixelFormatRow& m_Row;
  const SVyPixelFormatRow* m_pBayerSiblings;
  size_t m_nPixelBits;
  size_t m_nPlanePixelBits;
  size_t m_nPlaneCount;
  size_t m_nComponentCount;
  size_t m_nIncrementX;
  size_t m_nEffectiveBits;
  size_t m_nLineGranuleBytes;
  bool m_bPacked;
  std::string m_strDescription;
};

}  // namespace VyApi

#endif
