#include <VyApi_IP/VyROIImage.h>

#include <new>

#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

CVyROIImage::CVyROIImage(IVyImage* pParent)
    : m_pParent(pParent), m_nOffsetX(0), m_nOffsetY(0), m_nWidth(0), m_nHeight(0), m_pChildROI(nullptr) {}

CVyROIImage::~CVyROIImage() { delete m_pChildROI; }

void CVyROIImage::mSetAxis(size_t pos, size_t size, size_t parentSize, size_t inc, const char* sizeName,
                           const char* posName, size_t& rPos, size_t& rSize) {
  const long long nPos = static_cast<long long>(pos);
  const long long nSize = static_cast<long long>(size);
  const long long nParent = static_cast<long long>(parentSize);
  const long long nInc = static_cast<long long>(inc);
  if (nSize < nInc)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be equal or greater than Min = %lld", sizeName, nSize, nInc);
  if (nSize > nParent)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be equal or smaller than Max = %lld", sizeName, nSize, nParent);
  if (nInc == 0) throw VY_LOGICAL_ERROR_EXCEPTION("Increment must not equal 0!");
  if ((nSize - nInc) % nInc != 0)
    throw VY_OUT_OF_RANGE_EXCEPTION(
        "The difference between %s = %lld and Min = %lld must be dividable without rest by Inc = %lld", sizeName,
        nSize, nInc, nInc);
  const long long nMax = nSize < nParent ? nParent - nSize : 0;
  if (nPos < 0)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be equal or greater than Min = %lld", posName, nPos, 0LL);
  if (nPos > nMax)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be equal or smaller than Max = %lld", posName, nPos, nMax);
  if (nPos % nInc != 0)
    throw VY_OUT_OF_RANGE_EXCEPTION(
        "The difference between %s = %lld and Min = %lld must be dividable without rest by Inc = %lld", posName, nPos,
        0LL, nInc);
  rSize = size;
  rPos = pos;
}

void CVyROIImage::SetROI(size_t x, size_t y, size_t width, size_t height) {
  // The increments are those of the view's format as it stands before the move.
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(GetImagePixelFormat());
  VY_ASSERT_NOT_NULL(pInfo);
  const size_t incX = pInfo->GetPixelIncrementX();
  const size_t incY = pInfo->GetPixelIncrementY();
  // The x axis is committed before the y axis is checked.
  mSetAxis(x, width, m_pParent->GetImageWidth(), incX, "size_t Width", "size_t x", m_nOffsetX, m_nWidth);
  mSetAxis(y, height, m_pParent->GetImageHeight(), incY, "size_t Height", "size_t y", m_nOffsetY, m_nHeight);
}

size_t CVyROIImage::GetImageWidth() const { return m_nWidth; }

size_t CVyROIImage::GetImageHeight() const { return m_nHeight; }

size_t CVyROIImage::GetImageLinePitch() const { return m_pParent->GetImageLinePitch(); }

size_t CVyROIImage::GetImagePlanePitch() const { return m_pParent->GetImagePlanePitch(); }

EVyPixelFormatNamingConvention_t CVyROIImage::GetImagePixelFormat() const {
  const EVyPixelFormatNamingConvention_t parentFormat = m_pParent->GetImagePixelFormat();
  const IVyPixelFormatInfoInside* pInfo =
      dynamic_cast<const IVyPixelFormatInfoInside*>(GetIVyPixelFormatInfo(parentFormat));
  VY_ASSERT_NOT_NULL(pInfo);
  return pInfo->GetPixelFormatAtOffset(m_nOffsetX, m_nOffsetY);
}

void* CVyROIImage::GetImageBuffer() const {
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(GetImagePixelFormat());
  VY_ASSERT_NOT_NULL(pInfo);
  const size_t bits = pInfo->GetPlaneCount() < 2 ? pInfo->GetPixelBitCount() : pInfo->GetPlanePixelBitCount();
  return static_cast<unsigned char*>(m_pParent->GetImageBuffer()) + m_nOffsetY * GetImageLinePitch() +
         ((bits * m_nOffsetX) >> 3);
}

void* CVyROIImage::GetUserContext() const { return m_pParent->GetUserContext(); }

IVyImage* CVyROIImage::GetROIImage(size_t x, size_t y, size_t width, size_t height) {
  if (m_pChildROI == nullptr) {
    try {
      m_pChildROI = new CVyROIImage(this);
    } catch (const std::bad_alloc& e) {
      throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
    }
  }
  m_pChildROI->SetROI(x, y, width, height);
  return m_pChildROI;
}

CVyPixelComponent& CVyROIImage::GetIVyPixelComponentValue(size_t x, size_t y) {
  return m_pParent->GetIVyPixelComponentValue(x + m_nOffsetX, y + m_nOffsetY);
}

}  // namespace VyApi
