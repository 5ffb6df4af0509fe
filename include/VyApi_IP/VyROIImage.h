// A non-owning view of a rectangle of another image. It copies no pixels and
// can itself be the parent of a further view; a Bayer view reports the phase
// that its offset gives.
#ifndef VYAPI_VYROIIMAGE_H
#define VYAPI_VYROIIMAGE_H

#include <cstddef>

#include <VyApi_IP/IVyImage.h>

namespace VyApi {

class CVyROIImage : public IVyImageInside {
public:
  /// A view of pParent (not owned), empty until SetROI. Raises nothing.
  explicit CVyROIImage(IVyImage* pParent);
  /// Deletes the nested view, if any.
  ~CVyROIImage() override;
  CVyROIImage(const CVyROIImage&) = delete;
  CVyROIImage& operator=(const CVyROIImage&) = delete;

  /// Moves the view. The x axis is checked and committed before the y axis,
  /// so that a failure on y leaves the new x and width in place. Raises
  /// OutOfRangeException for a size below the increment or above the parent,
  /// an offset beyond the parent or off the increment grid, and
  /// LogicalErrorException "Increment must not equal 0!".
  void SetROI(size_t x, size_t y, size_t width, size_t height);

  size_t GetImageWidth() const override;
  size_t GetImageHeight() const override;
  size_t GetImageLinePitch() const override;
  size_t GetImagePlanePitch() const override;
  /// The parent's format seen from this view's offset. Raises nothing.
  EVyPixelFormatNamingConvention_t GetImagePixelFormat() const override;
  /// The parent's buffer advanced to the view's origin. Raises nothing.
  void* GetImageBuffer() const override;
  void* GetUserContext() const override;
  /// The one nested view, moved to (x, y, width, height) relative to this
  /// view. Raises as SetROI, and BadAllocException.
  IVyImage* GetROIImage(size_t x, size_t y, size_t width, size_t height) override;
  /// The parent's pixel component at the pixel's position in the parent.
  CVyPixelComponent& GetIVyPixelComponentValue(size_t x, size_t y) override;

private:
  void mSetAxis(size_t pos, size_t size, size_t parentSize, size_t inc, const char* sizeName,
                const char* posName, size_t& rPos, size_t& rSize);

  IVyImage* m_pParent;
  size_t m_nOffsetX;
  size_t m_nOffsetY;
  size_t m_nWidth;
  size_t m_nHeight;
  CVyROIImage* m_pChildROI;
};

}  // namespace VyApi

#endif
