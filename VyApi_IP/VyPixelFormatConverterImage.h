// What a table function of the converter reads from one of its images: the
// buffer, pitches, size and the answers of the format service, fetched once per step.
#ifndef VYAPI_IP_VYPIXELFORMATCONVERTERIMAGE_H
#define VYAPI_IP_VYPIXELFORMATCONVERTERIMAGE_H

#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyReporter.h>

#include "PixelConversion/SharedTableHolder.h"

#include <cstddef>
#include <cstdint>

namespace VyApi {

class CVyConvImage {
public:
  explicit CVyConvImage(IVyImage* pImage)
      : m_pImage(pImage),
        m_eFormat(pImage->GetImagePixelFormat()),
        m_pInfo(dynamic_cast<IVyPixelFormatInfoInside*>(GetIVyPixelFormatInfo(m_eFormat))) {
    // Every format of a table key is known to the format service.
    VY_ASSERT_NOT_NULL(m_pInfo);
  }

  EVyPixelFormatNamingConvention_t Format() const { return m_eFormat; }
  uint8_t* Buffer() const { return static_cast<uint8_t*>(m_pImage->GetImageBuffer()); }
  size_t Pitch() const { return m_pImage->GetImageLinePitch(); }
  size_t PlanePitch() const { return m_pImage->GetImagePlanePitch(); }
  size_t Width() const { return m_pImage->GetImageWidth(); }
  size_t Height() const { return m_pImage->GetImageHeight(); }
  size_t Depth() const { return m_pInfo->GetComponentBitDepth(); }
  size_t Components() const { return m_pInfo->GetComponentCount(); }
  bool BGROrder() const { return m_pInfo->IsBGROrder(); }
  EVyPixelColorFilter_t Filter() const { return m_pInfo->GetPixelColorFilter(0, 0); }
  const IVyPixelFormatInfoInside& Info() const { return *m_pInfo; }

private:
  IVyImage* m_pImage;
  EVyPixelFormatNamingConvention_t m_eFormat;
  IVyPixelFormatInfoInside* m_pInfo;
};

/// Opens the body of a table primitive of CVyPixelFormatConverter that hands
/// its two images to a kernel: s and d describe source and destination, and
/// table holds the look-up table of the depth change (null for equal depths).
/// The kernel call and the closing brace follow.
#define VY_PRIMITIVE_HEAD(name)                                                         \
  void CVyPixelFormatConverter::name(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) { \
    const CVyConvImage s(pSrc), d(pDest);                                               \
    const PixelConversion::CSharedTableHolder table(m_LookUpTableManager, s.Depth(), d.Depth());

}  // namespace VyApi

#endif
