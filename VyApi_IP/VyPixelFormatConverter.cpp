#include "VyPixelFormatConverter.h"

#include <algorithm>
#include <cstring>

#include "VyPixelFormatConverterImage.h"

namespace VyApi {

namespace {

// Register addresses of the description.
constexpr long c_nDestinationPixelFormatReg = 0x10;
constexpr long c_nReverseYReg = 0x18;
constexpr long c_nBayerInterpolationMethodReg = 0x20;
constexpr long c_nGammaReg = 0x28;
constexpr long c_nGammaMinReg = 0x30;
constexpr long c_nGammaMaxReg = 0x38;
constexpr long c_nDestinationPixelFormatNodeLockReg = 0x40;
constexpr long c_nBitExpansionModeReg = 0x48;

using Fmt = EVyPixelFormatNamingConvention_t;

// Raw formats by colour filter (rows: Mono, RG, GR, GB, BG) and depth (columns: 8, 10, 12, 14, 16).
constexpr Fmt c_aRawFormats[5][5] = {
    {VyPixelFormat_Mono8, VyPixelFormat_Mono10, VyPixelFormat_Mono12, VyPixelFormat_Mono14, VyPixelFormat_Mono16},
    {VyPixelFormat_BayerRG8, VyPixelFormat_BayerRG10, VyPixelFormat_BayerRG12, VyPixelFormat_BayerRG14,
     VyPixelFormat_BayerRG16},
    {VyPixelFormat_BayerGR8, VyPixelFormat_BayerGR10, VyPixelFormat_BayerGR12, VyPixelFormat_BayerGR14,
     VyPixelFormat_BayerGR16},
    {VyPixelFormat_BayerGB8, VyPixelFormat_BayerGB10, VyPixelFormat_BayerGB12, VyPixelFormat_BayerGB14,
     VyPixelFormat_BayerGB16},
    {VyPixelFormat_BayerBG8, VyPixelFormat_BayerBG10, VyPixelFormat_BayerBG12, VyPixelFormat_BayerBG14,
     VyPixelFormat_BayerBG16},
};

// The unpacked raw format of a filter (Mono to BayerBG) and a depth of 8 to 16
// in steps of 2; anything else is no table key's business.
Fmt RawFormat(EVyPixelColorFilter_t eFilter, size_t nDepth) {
  const bool bDepth = nDepth >= 8 && nDepth <= 16 && nDepth % 2 == 0;
  const bool bFilter = eFilter >= VyPixelColorFilter_Mono && eFilter <= VyPixelColorFilter_BayerBG;
  if (!bDepth || !bFilter) VY_ASSERT(false);
  return c_aRawFormats[eFilter - VyPixelColorFilter_Mono][(nDepth - 8) / 2];
}

// The Bayer format that a vertical flip of even height gives. Columns follow
// the source's phase (RG -> 2, GR -> 3, GB -> 0, BG -> 1), which turns RG into
// GB and GR into BG and back; the row is the destination's storage class. The
// row of the 12-bit GVSP formats has its first two columns exchanged, and stays so.
constexpr Fmt c_aFlippedBayer[10][4] = {
    {VyPixelFormat_BayerRG8, VyPixelFormat_BayerGR8, VyPixelFormat_BayerGB8, VyPixelFormat_BayerBG8},
    {VyPixelFormat_BayerRG10, VyPixelFormat_BayerGR10, VyPixelFormat_BayerGB10, VyPixelFormat_BayerBG10},
    {VyPixelFormat_BayerRG12, VyPixelFormat_BayerGR12, VyPixelFormat_BayerGB12, VyPixelFormat_BayerBG12},
    {VyPixelFormat_BayerRG16, VyPixelFormat_BayerGR16, VyPixelFormat_BayerGB16, VyPixelFormat_BayerBG16},
    {VyPixelFormat_BayerRG10p, VyPixelFormat_BayerGR10p, VyPixelFormat_BayerGB10p, VyPixelFormat_BayerBG10p},
    {VyPixelFormat_BayerRG12p, VyPixelFormat_BayerGR12p, VyPixelFormat_BayerGB12p, VyPixelFormat_BayerBG12p},
    {VyPixelFormat_GVSP_BayerRG10Packed, VyPixelFormat_GVSP_BayerGR10Packed, VyPixelFormat_GVSP_BayerGB10Packed,
     VyPixelFormat_GVSP_BayerBG10Packed},
    {VyPixelFormat_GVSP_BayerGR12Packed, VyPixelFormat_GVSP_BayerRG12Packed, VyPixelFormat_GVSP_BayerGB12Packed,
     VyPixelFormat_GVSP_BayerBG12Packed},
    {VyPixelFormat_BayerRG14, VyPixelFormat_BayerGR14, VyPixelFormat_BayerGB14, VyPixelFormat_BayerBG14},
    {VyPixelFormat_BayerRG14p, VyPixelFormat_BayerGR14p, VyPixelFormat_BayerGB14p, VyPixelFormat_BayerBG14p},
};

size_t FlippedBayerRow(const IVyPixelFormatInfoInside& dest) {
  const size_t nDepth = dest.GetComponentBitDepth();
  if (nDepth <= 8) return 0;
  if (dest.GetPlanePixelBitCount() == 16) {
    switch (nDepth) {
      case 10: return 1;
      case 12: return 2;
      case 14: return 8;
      case 16: return 3;
      default: return 0;
    }
  }
  if (dest.IsGVSPPacked()) {
    switch (nDepth) {
      case 10: return 6;
      case 12: return 7;
      default: return 0;
    }
  }
  switch (nDepth) {
    case 10: return 4;
    case 12: return 5;
    case 14: return 9;
    default: return 0;
  }
}

Fmt FlippedBayerFormat(EVyPixelColorFilter_t eSrcFilter, const IVyPixelFormatInfoInside& dest) {
  size_t nColumn = 0;
  switch (eSrcFilter) {
    case VyPixelColorFilter_BayerRG: nColumn = 2; break;
    case VyPixelColorFilter_BayerGR: nColumn = 3; break;
    case VyPixelColorFilter_BayerGB: nColumn = 0; break;
    case VyPixelColorFilter_BayerBG: nColumn = 1; break;
    default: VY_ASSERT(false); break;
  }
  return c_aFlippedBayer[FlippedBayerRow(dest)][nColumn];
}

}  // namespace

CVyPixelFormatConverter::CVyPixelFormatConverter() : CVyIPModuleBase(c_nResourceID) {}

IVyConverterInfo* CVyPixelFormatConverter::GetIVyConverterInfo() const { return &m_objConverterInfo; }

CVyPixelFormatConverter::PfnConverter CVyPixelFormatConverter::GetConverter(Fmt eSource, Fmt eDestination) const {
  if (eSource == eDestination) return &CVyPixelFormatConverter::ConverterCopy;
  auto it = m_mapConverters.find(ConvKey(eSource, eDestination));
  return it == m_mapConverters.end() ? nullptr : it->second;
}

bool CVyPixelFormatConverter::IsSupportedFormat(Fmt eSource) const {
  return GetConverter(eSource, m_eDestinationPixelFormat) != nullptr;
}

// ---------------------------------------------------------------- accessors

size_t CVyPixelFormatConverter::GetLinePitchAlignment() const { return m_nLinePitchAlignment; }
void CVyPixelFormatConverter::SetLinePitchAlignment(size_t nAlignment) { m_nLinePitchAlignment = nAlignment; }

Fmt CVyPixelFormatConverter::GetDestinationPixelFormat() const { return m_eDestinationPixelFormat; }
void CVyPixelFormatConverter::SetDestinationPixelFormat(Fmt eFormat) {
  StoreSetting(m_eDestinationPixelFormat, eFormat, "DestinationPixelFormatReg");
}

bool CVyPixelFormatConverter::GetReverseY() const { return m_bReverseY; }
void CVyPixelFormatConverter::SetReverseY(bool bReverseY) {
  StoreSetting(m_bReverseY, bReverseY, "ReverseYReg");
}

EVyBayerInterpolationMethod_t CVyPixelFormatConverter::GetBayerInterpolationMethod() const {
  return m_eBayerInterpolationMethod;
}
void CVyPixelFormatConverter::SetBayerInterpolationMethod(EVyBayerInterpolationMethod_t eMethod) {
  // Compared unsigned, so that a negative value is out of range as well.
  if (static_cast<uint32_t>(eMethod) > VyBayerInterpolationMethod_BiCubic)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be smaller than Max = %lld", "eBIM",
                                    static_cast<long long>(eMethod), 6LL);
  StoreSetting(m_eBayerInterpolationMethod, eMethod, "BayerInterpolationMethodReg");
}

double CVyPixelFormatConverter::GetGammaValue() const { return m_LookUpTableManager.m_dGammaValue.load(); }
void CVyPixelFormatConverter::SetGammaValue(double dGamma) {
  // Written so that a NaN passes both limits, as the node map lets it pass.
  if (m_dGammaMin > dGamma)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %f must be greater than or equal %f", "Gamma Value", dGamma, m_dGammaMin);
  if (dGamma > m_dGammaMax)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %f must be smaller than or equal %f", "Gamma Value", dGamma, m_dGammaMax);
  if (dGamma == GetGammaValue()) return;
  // The table follows at its next use.
  m_LookUpTableManager.m_dGammaValue = dGamma;
  InvalidateRegisterNode("GammaReg");
}

bool CVyPixelFormatConverter::GetDestinationPixelFormatNodeLock() const { return m_bDestinationPixelFormatNodeLock; }
void CVyPixelFormatConverter::SetDestinationPixelFormatNodeLock(bool bLock) {
  StoreSetting(m_bDestinationPixelFormatNodeLock, bLock, "DestinationPixelFormatNodeLockReg");
}

// ---------------------------------------------------------------- registers

bool CVyPixelFormatConverter::mRead(unsigned char* pBuffer, long Address, long* pLength) {
  if (CVyIPModuleBase::mRead(pBuffer, Address, pLength)) return true;
  uint32_t n = 0;
  double d = 0.0;
  bool bDouble = false;
  switch (Address) {
    case c_nDestinationPixelFormatReg: n = GetDestinationPixelFormat(); break;
    case c_nReverseYReg: n = GetReverseY() ? 1 : 0; break;
    case c_nBayerInterpolationMethodReg: n = static_cast<uint32_t>(GetBayerInterpolationMethod()); break;
    case c_nGammaReg:
      d = GetGammaValue();
      bDouble = true;
      break;
    case c_nGammaMinReg:
      d = m_dGammaMin;
      bDouble = true;
      break;
    case c_nGammaMaxReg:
      d = m_dGammaMax;
      bDouble = true;
      break;
    case c_nDestinationPixelFormatNodeLockReg: n = GetDestinationPixelFormatNodeLock() ? 1 : 0; break;
    case c_nBitExpansionModeReg: n = m_LookUpTableManager.m_eBitExpansionMode.load(); break;
    default: return false;
  }
  if (bDouble) {
    std::memcpy(pBuffer, &d, sizeof d);
    *pLength = sizeof d;
  } else {
    std::memcpy(pBuffer, &n, sizeof n);
    *pLength = sizeof n;
  }
  return true;
}

bool CVyPixelFormatConverter::mWrite(const unsigned char* pBuffer, long Address, long* pLength) {
  // The node map has checked the values; the registers store them as they come.
  uint32_t n = 0;
  if (Address == c_nGammaReg) {
    double d;
    std::memcpy(&d, pBuffer, sizeof d);
    m_LookUpTableManager.m_dGammaValue = d;
    *pLength = sizeof d;
    return true;
  }
  switch (Address) {
    case c_nDestinationPixelFormatReg:
    case c_nReverseYReg:
    case c_nBayerInterpolationMethodReg:
    case c_nDestinationPixelFormatNodeLockReg:
    case c_nBitExpansionModeReg: std::memcpy(&n, pBuffer, sizeof n); break;
    default: return false;
  }
  switch (Address) {
    case c_nDestinationPixelFormatReg: m_eDestinationPixelFormat = static_cast<Fmt>(n); break;
    case c_nReverseYReg: m_bReverseY = n == 1; break;
    case c_nBayerInterpolationMethodReg:
      m_eBayerInterpolationMethod = static_cast<EVyBayerInterpolationMethod_t>(n);
      break;
    case c_nDestinationPixelFormatNodeLockReg: m_bDestinationPixelFormatNodeLock = n == 1; break;
    default: m_LookUpTableManager.m_eBitExpansionMode = static_cast<EVyBitExpansionMode_t>(n); break;
  }
  *pLength = sizeof n;
  return true;
}

// ---------------------------------------------------------------- conversion

void CVyPixelFormatConverter::Convert(IVyImage* pSrc, IVyImageBuffer* pDest) {
  if (pSrc == nullptr) throw VY_INVALID_ARGUMENT_EXCEPTION("IVyImage is NULL.");
  if (pDest == nullptr) throw VY_INVALID_ARGUMENT_EXCEPTION("IVyImageBuffer is NULL.");
  // Settings are sampled once; a setter on another thread affects the next call.
  const bool bReverseY = m_bReverseY;
  const Fmt eDest = m_eDestinationPixelFormat;
  const Fmt eSrc = pSrc->GetImagePixelFormat();
  IVyImageBufferInside* pBufferInside = dynamic_cast<IVyImageBufferInside*>(pDest);
  VY_ASSERT_NOT_NULL(pBufferInside);

  bool bInPlace = false;
  if (pBufferInside->HasImageBuffer()) {
    try {
      bInPlace = pDest->GetIVyImage() == pSrc;
    } catch (...) {
      // An image that cannot be had is not the source.
    }
  }
  if (!bInPlace) {
    mConvert(pSrc, pDest, eDest, bReverseY);
    return;
  }
  if (eDest == eSrc && !bReverseY) return;
  // The destination is the source: convert from a copy.
  CTempolaryBuffer tmp(*this);
  tmp->CopyImage(pSrc);
  mConvert(tmp->GetIVyImage(), pDest, eDest, bReverseY);
}

void CVyPixelFormatConverter::mConvert(IVyImage* pSrc, IVyImageBuffer* pDest, Fmt eDest, bool bReverseY) {
  const Fmt eSrc = pSrc->GetImagePixelFormat();
  const PfnConverter pfn = GetConverter(eSrc, eDest);
  if (pfn == nullptr)
    throw VY_RUNTIME_EXCEPTION("Converting a pixelformat from  %s to %s is not supported.", FormatName(eSrc).c_str(),
                               FormatName(eDest).c_str());
  IVyImageInside* pSrcIVyImageInside = dynamic_cast<IVyImageInside*>(pSrc);
  VY_ASSERT_NOT_NULL(pSrcIVyImageInside);
  const size_t nWidth = pSrcIVyImageInside->GetImageWidth();
  const size_t nHeight = pSrcIVyImageInside->GetImageHeight();

  Fmt eFormat = eDest;
  if (bReverseY && nHeight % 2 == 0) {
    const IVyPixelFormatInfo* pSrcInfo = GetIVyPixelFormatInfo(eSrc);
    const auto* pDestInfo = dynamic_cast<const IVyPixelFormatInfoInside*>(GetIVyPixelFormatInfo(eDest));
    // A flip of an even number of lines turns the mosaic's phase over.
    if (pSrcInfo != nullptr && pDestInfo != nullptr && pSrcInfo->IsBayer() && pDestInfo->IsBayer())
      eFormat = FlippedBayerFormat(pSrcInfo->GetPixelColorFilter(0, 0), *pDestInfo);
  }

  IVyImageBufferInside* pDestIVyImageInside = dynamic_cast<IVyImageBufferInside*>(pDest);
  VY_ASSERT_NOT_NULL(pDestIVyImageInside);
  pDestIVyImageInside->SetSize(nWidth, nHeight, eFormat, m_nLinePitchAlignment);
  (this->*pfn)(pSrc, pDestIVyImageInside->GetIVyImage(), bReverseY);
}

void CVyPixelFormatConverter::ConvertViaTmp(IVyImage* pSrc, IVyImage* pDest, Fmt eTmp, Fmt eDest, bool bReverseY) {
  IVyImageBufferReleasable* pIVyImageBuffer = GetTempolaryBuffer();
  VY_ASSERT(pIVyImageBuffer);
  // The first step carries the flip (and may mirror a Bayer phase); the second never flips.
  mConvert(pSrc, pIVyImageBuffer, eTmp, bReverseY);
  IVyImageBuffer* pDestBuffer = dynamic_cast<IVyImageBuffer*>(pDest);
  VY_ASSERT_NOT_NULL(pDestBuffer);
  mConvert(pIVyImageBuffer->GetIVyImage(), pDestBuffer, eDest, false);
  // Not handed back when a step throws: the pool still owns the buffer and frees it with the module.
  ReleaseTempolaryBuffer(pIVyImageBuffer);
}

// ---------------------------------------------------------------- routes

void CVyPixelFormatConverter::ConverterViaRaw(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  // Deep raw data is reduced to 8 bits before demosaicing, so that the gamma
  // table acts on raw values and the expensive step runs on narrow samples.
  const CVyConvImage src(pSrc), dest(pDest);
  const size_t nDepth = dest.Depth();
  const Fmt eTmp = nDepth < 8 ? dest.Format() : RawFormat(src.Filter(), nDepth == 8 ? 8 : 16);
  ConvertViaTmp(pSrc, pDest, eTmp, dest.Format(), bReverseY);
}

void CVyPixelFormatConverter::ConverterViaSameBitRaw(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const CVyConvImage src(pSrc), dest(pDest);
  const EVyPixelColorFilter_t eFilter = dest.Filter();
  const Fmt eTmp = eFilter == VyPixelColorFilter_None ? dest.Format() : RawFormat(eFilter, src.Depth());
  ConvertViaTmp(pSrc, pDest, eTmp, dest.Format(), bReverseY);
}

void CVyPixelFormatConverter::ConverterViaSameBitBGR(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  // The form with alpha, whose pixels are whole words of any width.
  static constexpr Fmt c_aBGRa[5] = {VyPixelFormat_BGRa8, VyPixelFormat_BGRa10, VyPixelFormat_BGRa12,
                                     VyPixelFormat_BGRa14, VyPixelFormat_BGRa16};
  const CVyConvImage src(pSrc), dest(pDest);
  const size_t nDepth = src.Depth();
  if (nDepth < 8 || nDepth > 16 || nDepth % 2 != 0) VY_ASSERT(false);
  ConvertViaTmp(pSrc, pDest, c_aBGRa[(nDepth - 8) / 2], dest.Format(), bReverseY);
}

void CVyPixelFormatConverter::ConverterViaUnpack(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const CVyConvImage src(pSrc), dest(pDest);
  const IVyPixelFormatInfoInside& info = src.Info();
  if (!info.IsPacked() || !(info.IsMono() || info.IsBayer())) VY_ASSERT(false);
  // 1, 2 and 4 bits unpack to 8; 10, 12 and 14 bits to their own depth.
  const size_t nDepth = src.Depth() < 8 ? 8 : src.Depth();
  ConvertViaTmp(pSrc, pDest, RawFormat(src.Filter(), nDepth), dest.Format(), bReverseY);
}

// ---------------------------------------------------------------- copy

void CVyPixelFormatConverter::ConverterCopy(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const size_t nHeight = pDest->GetImageHeight();
  const size_t nSrcPitch = pSrc->GetImageLinePitch();
  const size_t nDestPitch = pDest->GetImageLinePitch();
  const size_t nPlanes = GetIVyPixelFormatInfo(pDest->GetImagePixelFormat())->GetPlaneCount();
  const uint8_t* pSrcPlane = static_cast<const uint8_t*>(pSrc->GetImageBuffer());
  uint8_t* pDestPlane = static_cast<uint8_t*>(pDest->GetImageBuffer());
  for (size_t k = 0; k < nPlanes; ++k) {
    if (nSrcPitch == nDestPitch && !bReverseY) {
      std::memcpy(pDestPlane, pSrcPlane, nHeight * nSrcPitch);
    } else {
      const size_t nBytes = std::min(nSrcPitch, nDestPitch);
      for (size_t y = 0; y < nHeight; ++y) {
        const size_t yDest = bReverseY ? nHeight - 1 - y : y;
        std::memcpy(pDestPlane + yDest * nDestPitch, pSrcPlane + y * nSrcPitch, nBytes);
      }
    }
    pSrcPlane += pSrc->GetImagePlanePitch();
    pDestPlane += pDest->GetImagePlanePitch();
  }
}

}  // namespace VyApi
