// The kit's owning image: a block from a pluggable allocator plus width,
// height, line pitch and pixel format. The buffer is its own default
// allocator (plain heap memory).
#ifndef VYAPI_VYIMAGEBUFFER_H
#define VYAPI_VYIMAGEBUFFER_H

#include <cstddef>

#include <VyApi_IP/IVyAllocator.h>
#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/IVyImageBuffer.h>
#include <VyApi_IP/VyPixelComponent.h>

namespace VyApi {

class CVyROIImage;

class CVyImageBuffer : public IVyImageBufferInside, public IVyImageInside, public IVyAllocator {
public:
  /// An empty buffer using pAllocator, or itself when pAllocator is null.
  /// Raises BadAllocException.
  explicit CVyImageBuffer(IVyAllocator* pAllocator);
  /// Frees the memory and calls OnDeregister() of a plugged-in allocator.
  /// Lets nothing out.
  ~CVyImageBuffer() override;
  CVyImageBuffer(const CVyImageBuffer&) = delete;
  CVyImageBuffer& operator=(const CVyImageBuffer&) = delete;

  // IVyImageBuffer (see there for what each raises)
  void CreateBuffer(size_t width, size_t height, EVyPixelFormatNamingConvention_t format,
                    _EVyMemoryInitialization_t init) override;
  IVyImage* GetIVyImage() override;
  void CopyImage(IVyImage* pSource) override;
  // IVyImageBufferInside
  void SetSize(size_t width, size_t height, EVyPixelFormatNamingConvention_t format,
               size_t lineAlignment) override;
  bool HasImageBuffer() const override;
  // IVyImage; raise nothing except GetROIImage (see IVyImage)
  size_t GetImageWidth() const override;
  size_t GetImageHeight() const override;
  size_t GetImageLinePitch() const override;
  /// Height times line pitch.
  size_t GetImagePlanePitch() const override;
  EVyPixelFormatNamingConvention_t GetImagePixelFormat() const override;
  IVyImage* GetROIImage(size_t x, size_t y, size_t width, size_t height) override;
  void* GetImageBuffer() const override;
  CVyPixelComponent& GetIVyPixelComponentValue(size_t x, size_t y) override;
  void* GetUserContext() const override;
  // IVyAllocator, the default policy: new[] / delete[]; Allocate gives null
  // on failure and raises nothing.
  void Allocate(void** ppBuffer, size_t size, void** ppContext) override;
  void Deallocate(void* pBuffer, size_t size, void* pContext) override;
  void OnDeregister() override;
  // IVyReleasable
  void Release() override;

private:
  void mDeallocate();

  void* m_pBuffer;
  void* m_pContext;
  size_t m_nAllocatedSize;
  IVyAllocator* m_pAllocator;
  size_t m_nWidth;
  size_t m_nHeight;
  size_t m_nLinePitch;
  EVyPixelFormatNamingConvention_t m_ePixelFormat;
  CVyPixelComponent m_PixelComponent;
  CVyROIImage* m_pROIImage;
};

}  // namespace VyApi

#endif
