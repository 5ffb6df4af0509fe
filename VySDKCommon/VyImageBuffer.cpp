#include <VyApi_IP/VyImageBuffer.h>

#include <cstring>
#include <new>

#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyROIImage.h>
#include <VyApi_IP/VyReporter.h>

#include "VySDKCommon/VyImageChart.h"

namespace VyApi {

namespace {
const EVyPixelFormatNamingConvention_t kNoFormat = static_cast<EVyPixelFormatNamingConvention_t>(0xFFFFFFFFu);
}

CVyImageBuffer::CVyImageBuffer(IVyAllocator* pAllocator) try
    : m_pBuffer(nullptr),
      m_pContext(nullptr),
      m_nAllocatedSize(0),
      m_pAllocator(pAllocator != nullptr ? pAllocator : this),
      m_nWidth(0),
      m_nHeight(0),
      m_nLinePitch(0),
      m_ePixelFormat(kNoFormat),
      m_PixelComponent(),
      m_pROIImage(nullptr) {
} catch (const std::bad_alloc& e) {
  throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
}

CVyImageBuffer::~CVyImageBuffer() {
  try {
    mDeallocate();
    if (m_pAllocator != this) m_pAllocator->OnDeregister();
  } catch (...) {
  }
}

void CVyImageBuffer::CreateBuffer(size_t width, size_t height, EVyPixelFormatNamingConvention_t format,
                                  _EVyMemoryInitialization_t init) {
  SetSize(width, height, format, 0);
  if (m_pBuffer == nullptr) return;
  switch (init) {
    case VyMemoryInitialization_Zero: std::memset(m_pBuffer, 0, m_nAllocatedSize); break;
    case VyMemoryInitialization_Full: std::memset(m_pBuffer, 255, m_nAllocatedSize); break;
    case VyMemoryInitialization_Chart: {
      const PVyMakeChart pfnMakeChart = GetFunction(format);
      if (pfnMakeChart == nullptr || !pfnMakeChart(GetIVyImage(), VyMemoryInitialization_Chart))
        std::memset(m_pBuffer, 0, m_nAllocatedSize);
      break;
    }
    default: break;
  }
}

IVyImage* CVyImageBuffer::GetIVyImage() {
  if (m_pBuffer == nullptr) throw VY_RUNTIME_EXCEPTION("There is no available image.");
  return static_cast<IVyImageInside*>(this);
}

void CVyImageBuffer::CopyImage(IVyImage* pSource) {
  const EVyPixelFormatNamingConvention_t format = pSource->GetImagePixelFormat();
  const size_t width = pSource->GetImageWidth();
  const size_t height = pSource->GetImageHeight();
  const size_t srcPitch = pSource->GetImageLinePitch();
  const unsigned char* pSrc = static_cast<const unsigned char*>(pSource->GetImageBuffer());
  IVyImageInside* pSrcIVyImageInside = dynamic_cast<IVyImageInside*>(pSource);
  VY_ASSERT_NOT_NULL(pSrcIVyImageInside);

  SetSize(width, height, format, 0);

  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(format);
  VY_ASSERT_NOT_NULL(pInfo);
  const size_t planes = pInfo->GetPlaneCount();
  const size_t destPitch = m_nLinePitch;
  const size_t srcPlanePitch = pSource->GetImagePlanePitch();
  const size_t destPlanePitch = GetImagePlanePitch();
  unsigned char* pDest = static_cast<unsigned char*>(m_pBuffer);
  // memmove: the source may be a view of this very buffer.
  for (size_t plane = 0; plane < planes; ++plane) {
    if (srcPitch == destPitch) {
      std::memmove(pDest, pSrc, height * destPitch);
    } else {
      const size_t lineBytes = srcPitch < destPitch ? srcPitch : destPitch;
      for (size_t y = 0; y < height; ++y) std::memmove(pDest + y * destPitch, pSrc + y * srcPitch, lineBytes);
    }
    pSrc += srcPlanePitch;
    pDest += destPlanePitch;
  }
}

void CVyImageBuffer::SetSize(size_t width, size_t height, EVyPixelFormatNamingConvention_t format,
                             size_t lineAlignment) {
  if (static_cast<long long>(width) < 1)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be greater than Min = %lld", "size_t nWidth",
                                    static_cast<long long>(width), 0LL);
  if (static_cast<long long>(height) < 1)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be greater than Min = %lld", "size_t nHeight",
                                    static_cast<long long>(height), 0LL);
  IVyPixelFormatInfoInside* pIVyPixelFormatInfoDest =
      dynamic_cast<IVyPixelFormatInfoInside*>(GetIVyPixelFormatInfo(format));
  VY_ASSERT_NOT_NULL(pIVyPixelFormatInfoDest);
  if (lineAlignment == 0) lineAlignment = pIVyPixelFormatInfoDest->GetDefaultLineAlignment();
  const size_t pitch = pIVyPixelFormatInfoDest->GetLinePitchBytes(width, lineAlignment);
  const size_t size = pitch * pIVyPixelFormatInfoDest->GetPlaneCount() * height;

  if (m_pBuffer == nullptr || size > m_nAllocatedSize) {
    mDeallocate();
    m_pAllocator->Allocate(&m_pBuffer, size, &m_pContext);
    if (m_pBuffer == nullptr) throw VY_BAD_ALLOC_EXCEPTION();
    m_nAllocatedSize = size;
  }
  m_nWidth = width;
  m_nHeight = height;
  m_nLinePitch = pitch;
  m_ePixelFormat = format;
}

bool CVyImageBuffer::HasImageBuffer() const { return m_pBuffer != nullptr; }

size_t CVyImageBuffer::GetImageWidth() const { return m_nWidth; }

size_t CVyImageBuffer::GetImageHeight() const { return m_nHeight; }

size_t CVyImageBuffer::GetImageLinePitch() const { return m_nLinePitch; }

size_t CVyImageBuffer::GetImagePlanePitch() const { return m_nHeight * m_nLinePitch; }

EVyPixelFormatNamingConvention_t CVyImageBuffer::GetImagePixelFormat() const { return m_ePixelFormat; }

IVyImage* CVyImageBuffer::GetROIImage(size_t x, size_t y, size_t width, size_t height) {
  if (m_pROIImage == nullptr) {
    try {
      m_pROIImage = new CVyROIImage(static_cast<IVyImageInside*>(this));
    } catch (const std::bad_alloc& e) {
      throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
    }
  }
  m_pROIImage->SetROI(x, y, width, height);
  return m_pROIImage;
}

void* CVyImageBuffer::GetImageBuffer() const { return m_pBuffer; }

CVyPixelComponent& CVyImageBuffer::GetIVyPixelComponentValue(size_t x, size_t y) {
  m_PixelComponent.SetPixelComponent(static_cast<IVyImageInside*>(this), x, y);
  return m_PixelComponent;
}

void* CVyImageBuffer::GetUserContext() const { return m_pContext; }

void CVyImageBuffer::Allocate(void** ppBuffer, size_t size, void** /*ppContext*/) {
  *ppBuffer = new (std::nothrow) unsigned char[size];
}

void CVyImageBuffer::Deallocate(void* pBuffer, size_t /*size*/, void* /*pContext*/) {
  delete[] static_cast<unsigned char*>(pBuffer);
}

void CVyImageBuffer::OnDeregister() {}

void CVyImageBuffer::Release() { delete this; }

void CVyImageBuffer::mDeallocate() {
  delete m_pROIImage;
  m_pROIImage = nullptr;
  if (m_pBuffer != nullptr) {
    m_pAllocator->Deallocate(m_pBuffer, m_nAllocatedSize, m_pContext);
    m_pBuffer = nullptr;
    m_nAllocatedSize = 0;
    m_nWidth = 0;
    m_nHeight = 0;
    m_nLinePitch = 0;
    m_ePixelFormat = kNoFormat;
  }
}

}  // namespace VyApi
