// Gamma correction: every sample through value^gamma, by a cached look-up table.
#ifndef VYAPI_IVYGAMMACORRECTIONFILTER_H
#define VYAPI_IVYGAMMACORRECTIONFILTER_H

#include <VyApi_IP/IVyFilter.h>

namespace VyApi {

/// Takes Mono8..16, the Bayer formats of 8 to 16 bits (as grey images),
/// BGR8/RGB8/BGRa8/RGBa8, BGR10..16 with or without alpha, and the luma of
/// YCbCr8, YCbCr422_8, YCbCr411_8 and YCbCr709_422_8. Alpha is never written.
/// Filter raises RuntimeException "Not supported pixelformat %s" for other formats.
class IVyGammaCorrectionFilter : public IVyFilter {
public:
  /// The current gamma value (1.0 after construction). Raises nothing.
  virtual double GetGammaValue() const = 0;
  /// Sets the gamma, from 0.0 to 4.0 inclusive; 1.0 leaves images untouched.
  /// Raises OutOfRangeException "value = %f must be greater than or equal %f"
  /// below the lower limit, "value = %f must be smaller than or equal %f" above
  /// the upper limit, and LogicalErrorException "NULL pointer dereferenced" if
  /// the node map exists but cannot be reached.
  virtual void SetGammaValue(double value) = 0;
};

}  // namespace VyApi

#endif
