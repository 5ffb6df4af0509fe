// The pixel-format converter: turns an image of any of 98 pixel formats into
// an image of another, with an optional vertical flip, demosaicing Bayer images with a selectable method.
#ifndef VYAPI_IVYPIXELFORMATCONVERTER_H
#define VYAPI_IVYPIXELFORMATCONVERTER_H

#include <VyApi_IP/IVyConverter.h>

#include <cstddef>
#include <cstdint>

namespace VyApi {

/// Demosaicing methods; also the values of the BayerInterpolationMethod
/// feature.
enum EVyBayerInterpolationMethod_t : int32_t {
  VyBayerInterpolationMethod_None = 0,
  VyBayerInterpolationMethod_NearestNeighbor = 1,
  VyBayerInterpolationMethod_NearestNeighbor2 = 2,
  VyBayerInterpolationMethod_BilinearSimple = 3,
  VyBayerInterpolationMethod_BilinearFalseColorReduction = 4,
  VyBayerInterpolationMethod_BiCubic = 5
};

/// Convert(pSrc, pDest) writes pSrc into pDest in the destination format set
/// here, resizing pDest first; pSrc may be pDest's own image (conversion in
/// place). Convert raises InvalidArgumentException "IVyImage is NULL." or
/// "IVyImageBuffer is NULL." for null arguments, RuntimeException
/// "Converting a pixelformat from  %s to %s is not supported." (two blanks
/// after "from") for a pair the converter does not reach, RuntimeException
/// "Not supported image size %u x %u" when a Bayer image is too small to
/// demosaic, and BadAllocException when memory runs out (pDest's contents are
/// then undefined). The source is never written.
class IVyPixelFormatConverter : public IVyConverter {
public:
  /// Line alignment of the destination; 0 (the default) takes the format's own.
  /// Raises nothing.
  virtual size_t GetLinePitchAlignment() const = 0;
  /// Raises nothing.
  virtual void SetLinePitchAlignment(size_t nAlignment) = 0;
  /// The format Convert writes (BGR8 after construction). Raises nothing.
  virtual EVyPixelFormatNamingConvention_t GetDestinationPixelFormat() const = 0;
  /// Not checked against the formats the converter reaches; Convert does that.
  /// Raises LogicalErrorException "NULL pointer dereferenced" if the node map
  /// exists but cannot be reached.
  virtual void SetDestinationPixelFormat(EVyPixelFormatNamingConvention_t eFormat) = 0;
  /// True when the destination is written bottom-up (false after construction).
  /// Raises nothing.
  virtual bool GetReverseY() const = 0;
  /// Raises as SetDestinationPixelFormat.
  virtual void SetReverseY(bool bReverseY) = 0;
  /// NearestNeighbor2 after construction. Raises nothing.
  virtual EVyBayerInterpolationMethod_t GetBayerInterpolationMethod() const = 0;
  /// Raises OutOfRangeException "eBIM = %lld must be smaller than Max = 6"
  /// for a value above 5, and as SetDestinationPixelFormat.
  virtual void SetBayerInterpolationMethod(EVyBayerInterpolationMethod_t eMethod) = 0;
  /// Gamma of every depth change (1.0 after construction). Raises nothing.
  virtual double GetGammaValue() const = 0;
  /// From 0.0 to 4.0 inclusive. Raises OutOfRangeException "Gamma Value = %f
  /// must be greater than or equal %f" below, "Gamma Value = %f must be
  /// smaller than or equal %f" above the range, and as
  /// SetDestinationPixelFormat.
  virtual void SetGammaValue(double dGamma) = 0;
  /// True when the DestinationPixelFormat feature is locked. Raises nothing.
  virtual bool GetDestinationPixelFormatNodeLock() const = 0;
  /// Raises as SetDestinationPixelFormat.
  virtual void SetDestinationPixelFormatNodeLock(bool bLock) = 0;
};

}  // namespace VyApi

#endif
