// What a pixel format is. One constant object per format, owned by the
// service and valid for the life of the process; every answer is a constant,
// so the objects may be used from any thread.
//
// Conventions of the answers:
// - Pixel bits are the storage bits of one pixel as packed in a line (the
//   second byte of the format code): 8 for Mono8, 16 for Mono10, 10 for Mono10p.
// - Cells are 8-bit when the component depth is up to 8, else 16-bit little
//   endian, right-aligned.
// - GetComponentCount() is the number of cells from one pixel to the next when
//   every component of the format fills a whole cell (1 for mono and Bayer,
//   3 for BGR8, 4 for BGRa8, 2 for YCbCr422_8, 1 within a plane of a planar
//   format). For formats whose components do not sit on cells (the p, GVSP,
//   10p32 formats and YCbCr 4:1:1) it is the number of components a pixel has
//   once unpacked: 1 for mono and Bayer, 3 for colour and YCbCr.
#ifndef VYAPI_IVYPIXELFORMATINFO_H
#define VYAPI_IVYPIXELFORMATINFO_H

#include <cstddef>

#include <Base/GCString.h>
#include <VyApi_IP/EVyPixelFormatNamingConvention.h>
#include <VyApi_IP/VyPixelTypes.h>

namespace VyApi {

class IVyPixelFormatInfo {
public:
  /// The format's code. Raises nothing.
  virtual EVyPixelFormatNamingConvention_t GetCode() const = 0;
  /// The format's name, such as "Mono8". Raises nothing.
  virtual GenICam_3_0::gcstring GetName() const = 0;
  /// A readable description, such as "Bayer RG, 10 bits, packed". Raises nothing.
  virtual GenICam_3_0::gcstring GetDescription() const = 0;
  /// Storage bits of one pixel as packed in a line (24 for BGR8, 10 for Mono10p).
  virtual size_t GetPixelBitCount() const = 0;
  /// Storage bits of one pixel within one plane (8 for RGB8_Planar); the pixel
  /// bit count for formats with one plane.
  virtual size_t GetPlanePixelBitCount() const = 0;
  /// Significant bits of one component (1 to 16).
  virtual size_t GetComponentBitDepth() const = 0;
  /// Cells from one pixel to the next; see the conventions above.
  virtual size_t GetComponentCount() const = 0;
  /// Number of planes: 3 for the _Planar formats, else 1.
  virtual size_t GetPlaneCount() const = 0;
  /// Smallest legal step of a view's x and width, in pixels: what keeps a
  /// view's start on a byte (and, for YCbCr, on a chroma group).
  virtual size_t GetPixelIncrementX() const = 0;
  /// Smallest legal step of a view's y and height (1).
  virtual size_t GetPixelIncrementY() const = 0;
  /// True for colour, YCbCr and Bayer formats.
  virtual bool IsColor() const = 0;
  /// True for monochrome formats.
  virtual bool IsMono() const = 0;
  /// True for Bayer mosaic formats.
  virtual bool IsBayer() const = 0;
  /// True when a pixel carries an alpha component (BGRa8, RGBa8, ...).
  virtual bool HasAlpha() const = 0;
  /// The mosaic seen from pixel (x, y): the phase shifts with odd x and y.
  /// Mono for monochrome formats, None for the others.
  virtual EVyPixelColorFilter_t GetPixelColorFilter(size_t x, size_t y) const = 0;

protected:
  virtual ~IVyPixelFormatInfo() = default;
};

/// The kit's own view, reached by a dynamic cast of what GetIVyPixelFormatInfo returned.
class IVyPixelFormatInfoInside : public IVyPixelFormatInfo {
public:
  /// The line alignment that SetSize uses when given 0 (1: tight lines).
  virtual size_t GetDefaultLineAlignment() const = 0;
  /// Bytes of one line (of one plane) of that width, rounded up to the
  /// alignment; an alignment of 0 counts as 1.
  virtual size_t GetLinePitchBytes(size_t width, size_t alignment) const = 0;
  /// Significant bits of a whole pixel: the depth for mono and Bayer, 24 for
  /// BGR8, 32 for BGRa8, 30 for BGR10p, the storage bits for YCbCr.
  virtual size_t GetEffectiveBitCount() const = 0;
  /// True when components do not sit on whole 8- or 16-bit cells (p, GVSP,
  /// 10p32 formats and YCbCr 4:1:1).
  virtual bool IsPacked() const = 0;
  /// The format of a view starting at (x, y) of an image of this format: a
  /// Bayer format changes its phase with odd x and y, others stay.
  virtual EVyPixelFormatNamingConvention_t GetPixelFormatAtOffset(size_t x, size_t y) const = 0;
  /// True when blue is the first colour of a pixel; also true for mono and
  /// Bayer formats, whose bytes must never be swapped.
  virtual bool IsBGROrder() const = 0;
  /// True for the GVSP_ packed formats.
  virtual bool IsGVSPPacked() const = 0;

protected:
  ~IVyPixelFormatInfoInside() override = default;
};

/// The description of a format; null for a code the service does not know.
/// Lock-free, callable from any thread. Raises nothing.
IVyPixelFormatInfo* GetIVyPixelFormatInfo(EVyPixelFormatNamingConvention_t format);

}  // namespace VyApi

#endif
