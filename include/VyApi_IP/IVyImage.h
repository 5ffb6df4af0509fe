// Read access to an image: size, line pitch, pixel format and the address of
// its first pixel. Filters write through GetImageBuffer(), since they work in place.
#ifndef VYAPI_IVYIMAGE_H
#define VYAPI_IVYIMAGE_H

#include <cstddef>

#include <VyApi_IP/EVyPixelFormatNamingConvention.h>

namespace VyApi {

class CVyPixelComponent;

class IVyImage {
public:
  /// Width in pixels. Raises nothing.
  virtual size_t GetImageWidth() const = 0;
  /// Height in lines. Raises nothing.
  virtual size_t GetImageHeight() const = 0;
  /// Bytes from the start of one line to the start of the next. Raises nothing.
  virtual size_t GetImageLinePitch() const = 0;
  /// Bytes from the start of one plane to the next (planar formats). Raises nothing.
  virtual size_t GetImagePlanePitch() const = 0;
  /// The pixel format. Raises nothing.
  virtual EVyPixelFormatNamingConvention_t GetImagePixelFormat() const = 0;
  /// Address of pixel (0, 0). Raises nothing.
  virtual void* GetImageBuffer() const = 0;
  /// What the buffer's allocator returned with the memory. Raises nothing.
  virtual void* GetUserContext() const = 0;
  /// A view of a rectangle of this image, owned by the image. Each call moves
  /// the one view the image has. Raises OutOfRangeException or
  /// LogicalErrorException for an illegal rectangle, BadAllocException when
  /// the view cannot be made.
  virtual IVyImage* GetROIImage(size_t x, size_t y, size_t width, size_t height) = 0;
  /// The image's pixel-component object, pointed at pixel (x, y). A second
  /// call overwrites the first result. Raises nothing.
  virtual CVyPixelComponent& GetIVyPixelComponentValue(size_t x, size_t y) = 0;

protected:
  virtual ~IVyImage() = default;
};

/// The kit's own view of an image; every image class of the kit derives from it.
class IVyImageInside : public IVyImage {
protected:
  ~IVyImageInside() override = default;
};

}  // namespace VyApi

#endif
