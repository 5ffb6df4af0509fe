// The components of one pixel of an image, read through the pixel-format
// service: which components (kind and depth) and their values.
#ifndef VYAPI_VYPIXELCOMPONENT_H
#define VYAPI_VYPIXELCOMPONENT_H

#include <cstddef>
#include <cstdint>

#include <VyApi_IP/EVyPixelFormatNamingConvention.h>
#include <VyApi_IP/VyPixelTypes.h>

namespace VyApi {

class IVyImage;

class CVyPixelComponent {
public:
  /// Most components a pixel can have (B, G, R, alpha).
  static constexpr size_t MaxComponentCount = 4;

  CVyPixelComponent();
  ~CVyPixelComponent();

  /// Points the object at pixel (x, y) of the image and reads its components.
  /// A null image, an unknown format or a pixel outside the image leaves the
  /// object with no components. Raises nothing.
  void SetPixelComponent(IVyImage* pImage, size_t x, size_t y);

  /// Number of components read (0 when the object points at nothing). Raises nothing.
  size_t GetComponentCount() const { return m_nCount; }
  /// Kind and depth of component i, in the pixel's memory order (alpha not
  /// counted); Unknown when i is out of range. Raises nothing.
  EVyPixelComponent_t GetComponent(size_t i) const;
  /// Value of component i, right-aligned; 0 when i is out of range. Raises nothing.
  uint32_t GetValue(size_t i) const;
  /// The value of the component of that kind and depth; false when the pixel has none.
  bool GetValueOf(EVyPixelComponent_t component, uint32_t* pValue) const;

  /// The pixel the object points at.
  size_t GetX() const { return m_nX; }
  size_t GetY() const { return m_nY; }
  EVyPixelFormatNamingConvention_t GetPixelFormat() const { return m_ePixelFormat; }

private:
  void mClear();
  void mAdd(EVyPixelComponent_t component, uint32_t value);

  EVyPixelFormatNamingConvention_t m_ePixelFormat;
  size_t m_nX;
  size_t m_nY;
  size_t m_nCount;
  EVyPixelComponent_t m_eComponents[MaxComponentCount];
  uint32_t m_nValues[MaxComponentCount];
};

}  // namespace VyApi

#endif
