// The reverse converter: flips an image horizontally or vertically and turns
// it by a quarter turn, writing into a destination buffer. Pixel values are
// never changed; only a Bayer destination changes its phase to follow the move.
#ifndef VYAPI_IVYREVERSECONVERTER_H
#define VYAPI_IVYREVERSECONVERTER_H

#include <VyApi_IP/IVyConverter.h>

#include <cstddef>
#include <cstdint>

namespace VyApi {

/// Quarter turns; also the values of the RotationMode feature (OFF,
/// Clockwise90, Counterclockwise90).
enum EVyRotationMode_t : int32_t {
  VyRotationMode_OFF = 0,
  VyRotationMode_Clockwise90 = 1,
  VyRotationMode_Counterclockwise90 = 2
};

/// Convert(pSrc, pDest) gives pDest the moved size (width and height exchanged
/// under a quarter turn) and format, then writes the moved pixels. The flips
/// apply to the source, the turn after them. pSrc may be pDest's own image.
/// With no flip and no turn the image is copied with CopyImage, so that any
/// format passes; otherwise it takes Mono8..16, Bayer GR/RG/GB/BG at 8 to 16
/// bits, BGR8, BGRa8, RGB8, RGBa8, YCbCr8, BGR10..16 with or without alpha,
/// CBGR10p32 and RGB10p32. The alpha cells of the destination are not written
/// except by a plain vertical flip, which copies whole lines.
/// Convert raises InvalidArgumentException "IVyImage pointer is NULL." for a
/// null source, RuntimeException "Not supported pixelformat %s" for another
/// format, BadAllocException when memory runs out, and what CopyImage raises;
/// a null destination, or one that is not the kit's own, stops the process.
class IVyReverseConverter : public IVyConverter {
public:
  /// Line alignment given to the destination when it is resized by a move
  /// (1 after construction); a plain copy keeps CopyImage's own. Raises nothing.
  virtual size_t GetLinePitchAlignment() const = 0;
  /// Any value is taken. Raises nothing.
  virtual void SetLinePitchAlignment(size_t nAlignment) = 0;
  /// True when the image is flipped horizontally (false after construction).
  /// Raises nothing.
  virtual bool GetReverseX() const = 0;
  /// Raises LogicalErrorException "NULL pointer dereferenced" if the node map
  /// exists but cannot be reached.
  virtual void SetReverseX(bool bReverseX) = 0;
  /// True when the image is flipped vertically (false after construction).
  /// Raises nothing.
  virtual bool GetReverseY() const = 0;
  /// Raises as SetReverseX.
  virtual void SetReverseY(bool bReverseY) = 0;
  /// The quarter turn (OFF after construction); a value written through the
  /// register is returned as written, even out of range. Raises nothing.
  virtual EVyRotationMode_t GetRotationMode() const = 0;
  /// Raises OutOfRangeException "eRM = %lld must be smaller than Max = 3" for
  /// a value above 2, and as SetReverseX.
  virtual void SetRotationMode(EVyRotationMode_t eRotationMode) = 0;
};

}  // namespace VyApi

#endif
