#include "ColorInterpolation/ColorInterpolation_YCbCr.h"

#include <memory>
#include <new>

#include <VyApi_IP/VyReporter.h>

#include "ColorInterpolation/BGRToYCbCrKernel.h"
#include "ColorInterpolation/BayerToYCbCr422Kernel.h"
#include "ColorInterpolation/YCbCrFormat.h"
#include "ColorInterpolation/YCbCrToBGRKernel.h"

namespace VyApi {
namespace {

using PFReadColor = void (*)(const uint8_t*, size_t, uint8_t*, size_t, size_t, size_t, bool,
                             const SYCbCrReadTable&);
using PFReadMono = PFReadColor;
using PFWriteColor = void (*)(const uint8_t*, size_t, uint8_t*, size_t, size_t, size_t, bool,
                              const SYCbCrWriteTable&);

// Kernel choice, once per image: the layout from the format, the pixel step
// and order of the BGR-family side.

template <class TLayout>
PFReadColor SelectReadColor(size_t nStep, bool bBGROrder) {
  VY_ASSERT(nStep == 3 || nStep == 4);
  if (nStep == 3) return bBGROrder ? YCbCrToColorKernel<TLayout, 3, true> : YCbCrToColorKernel<TLayout, 3, false>;
  return bBGROrder ? YCbCrToColorKernel<TLayout, 4, true> : YCbCrToColorKernel<TLayout, 4, false>;
}

template <class TLayout>
PFWriteColor SelectWriteColor(size_t nStep, bool bBGROrder) {
  VY_ASSERT(nStep == 3 || nStep == 4);
  if (nStep == 3) return bBGROrder ? ColorToYCbCrKernel<TLayout, 3, true> : ColorToYCbCrKernel<TLayout, 3, false>;
  return bBGROrder ? ColorToYCbCrKernel<TLayout, 4, true> : ColorToYCbCrKernel<TLayout, 4, false>;
}

/// Calls fn with a TYCbCrLayout value of the format's layout.
template <class Fn>
auto WithLayout(const SYCbCrFormat& f, Fn fn) {
  switch (f.m_eSubsampling) {
    case YCbCrSubsampling_444:
      return f.m_bCbFirst ? fn(TYCbCrLayout<YCbCrSubsampling_444, true>{})
                          : fn(TYCbCrLayout<YCbCrSubsampling_444, false>{});
    case YCbCrSubsampling_422:
      return f.m_bCbFirst ? fn(TYCbCrLayout<YCbCrSubsampling_422, true>{})
                          : fn(TYCbCrLayout<YCbCrSubsampling_422, false>{});
    case YCbCrSubsampling_411:
      break;
  }
  return f.m_bCbFirst ? fn(TYCbCrLayout<YCbCrSubsampling_411, true>{})
                      : fn(TYCbCrLayout<YCbCrSubsampling_411, false>{});
}

/// Where the samples of each line of a mosaic go, by its phase.
const SYCbCrBayerPhase* FindBayerPhase(EVyPixelFormatNamingConvention_t eFormat) {
  static constexpr SYCbCrBayerPhase GR{{YCbCrBayerRow_Ga, YCbCrBayerRow_R}, {YCbCrBayerRow_B, YCbCrBayerRow_Gb}};
  static constexpr SYCbCrBayerPhase RG{{YCbCrBayerRow_R, YCbCrBayerRow_Gb}, {YCbCrBayerRow_Ga, YCbCrBayerRow_B}};
  static constexpr SYCbCrBayerPhase GB{{YCbCrBayerRow_Ga, YCbCrBayerRow_B}, {YCbCrBayerRow_R, YCbCrBayerRow_Gb}};
  static constexpr SYCbCrBayerPhase BG{{YCbCrBayerRow_B, YCbCrBayerRow_Gb}, {YCbCrBayerRow_Ga, YCbCrBayerRow_R}};
  switch (eFormat) {
    case VyPixelFormat_BayerGR8: return &GR;
    case VyPixelFormat_BayerRG8: return &RG;
    case VyPixelFormat_BayerGB8: return &GB;
    case VyPixelFormat_BayerBG8: return &BG;
    default: return nullptr;
  }
}

}  // namespace

bool TransformYCbCrToColor(EVyPixelFormatNamingConvention_t eSrcFormat, const uint8_t* pSrc, size_t nSrcLinePitch,
                           uint8_t* pDest, size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder,
                           size_t nWidth, size_t nHeight, bool bReverseY) {
  const SYCbCrFormat* pFormat = FindYCbCrFormat(eSrcFormat);
  if (pFormat == nullptr) return false;
  const PFReadColor pfKernel = WithLayout(*pFormat, [&](auto layout) {
    return SelectReadColor<decltype(layout)>(nDestComponentCount, bDestBGROrder);
  });
  pfKernel(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, bReverseY,
           GetYCbCrReadTable(pFormat->m_eFamily));
  return true;
}

bool TransformYCbCrToMono(EVyPixelFormatNamingConvention_t eSrcFormat, const uint8_t* pSrc, size_t nSrcLinePitch,
                          uint8_t* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, bool bReverseY) {
  const SYCbCrFormat* pFormat = FindYCbCrFormat(eSrcFormat);
  if (pFormat == nullptr) return false;
  const PFReadMono pfKernel =
      WithLayout(*pFormat, [](auto layout) -> PFReadMono { return YCbCrToMonoKernel<decltype(layout)>; });
  pfKernel(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, bReverseY,
           GetYCbCrReadTable(pFormat->m_eFamily));
  return true;
}

bool TransformBayer8ToYCbCr422(EVyPixelFormatNamingConvention_t eSrcFormat, const uint8_t* pSrc,
                               size_t nSrcLinePitch, uint8_t* pDest, size_t nDestLinePitch, size_t nWidth,
                               size_t nHeight, bool bReverseY) {
  const SYCbCrBayerPhase* pPhase = FindBayerPhase(eSrcFormat);
  if (pPhase == nullptr) return false;
  std::unique_ptr<uint8_t[]> pWork;
  try {
    pWork.reset(new uint8_t[2 * nWidth]);
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
  BayerToYCbCr422Kernel(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, bReverseY, *pPhase,
                        pnRGB2YCrCbConvTable, pWork.get());
  return true;
}

bool TransformToYCbCr(EVyPixelFormatNamingConvention_t eSrcFormat, const uint8_t* pSrc, size_t nSrcLinePitch,
                      size_t nSrcComponentCount, bool bSrcBGROrder, EVyPixelFormatNamingConvention_t eDestFormat,
                      uint8_t* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, bool bReverseY) {
  if (FindBayerPhase(eSrcFormat) != nullptr) {
    if (eDestFormat != VyPixelFormat_YCbCr422_8) return false;
    return TransformBayer8ToYCbCr422(eSrcFormat, pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight,
                                     bReverseY);
  }
  // Other one-component sources (mono, deeper Bayer) are not read as colour;
  // the converter reaches this road with them only after a step to 8 bits.
  if ((static_cast<uint32_t>(eSrcFormat) >> 24) == 0x01) return false;
  const SYCbCrFormat* pFormat = FindYCbCrFormat(eDestFormat);
  if (pFormat == nullptr) return false;
  const PFWriteColor pfKernel = WithLayout(*pFormat, [&](auto layout) {
    return SelectWriteColor<decltype(layout)>(nSrcComponentCount, bSrcBGROrder);
  });
  pfKernel(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, bReverseY,
           GetYCbCrWriteTable(pFormat->m_eFamily));
  return true;
}

}  // namespace VyApi
