// An owning, writable image.
#ifndef VYAPI_IVYIMAGEBUFFER_H
#define VYAPI_IVYIMAGEBUFFER_H

#include <cstddef>

#include <VyApi_IP/EVyPixelFormatNamingConvention.h>
#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/IVyReleasable.h>
#include <VyApi_IP/VyPixelTypes.h>

namespace VyApi {

class IVyImageBuffer {
public:
  /// Sizes the buffer with the format's default line alignment and fills it
  /// as `init` says. Raises OutOfRangeException for a width or height of 0,
  /// BadAllocException when no memory is to be had.
  virtual void CreateBuffer(size_t width, size_t height, EVyPixelFormatNamingConvention_t format,
                            _EVyMemoryInitialization_t init) = 0;
  /// The image of this buffer. Raises RuntimeException "There is no available
  /// image." when the buffer holds no memory.
  virtual IVyImage* GetIVyImage() = 0;
  /// Takes the source's size and format and copies its pixels. Raises as
  /// CreateBuffer does; a source that is not the kit's own image stops the process.
  virtual void CopyImage(IVyImage* pSource) = 0;

protected:
  virtual ~IVyImageBuffer() = default;
};

class IVyImageBufferReleasable : public IVyImageBuffer, public IVyReleasable {
protected:
  ~IVyImageBufferReleasable() override = default;
};

/// The kit's own view of a buffer, used by converters to size their destination.
class IVyImageBufferInside : public IVyImageBufferReleasable {
public:
  /// Makes the buffer fit without initialising it; a lineAlignment of 0 asks
  /// for the format's default. Keeps the block when it is large enough.
  /// Raises OutOfRangeException for a width or height of 0 (state unchanged),
  /// BadAllocException when the allocator gives nothing (the buffer is then empty).
  virtual void SetSize(size_t width, size_t height, EVyPixelFormatNamingConvention_t format,
                       size_t lineAlignment) = 0;
  /// True when memory is held. Raises nothing.
  virtual bool HasImageBuffer() const = 0;

protected:
  ~IVyImageBufferInside() override = default;
};

}  // namespace VyApi

#endif
