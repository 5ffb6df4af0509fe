// Colour image to Bayer mosaic: each destination site takes the source
// component of its colour. Input: an SBayerJob whose source is the colour
// image (nComponents 3 or 4, bBGROrder of the source; alpha is ignored) and
// whose destination is the mosaic, and the destination's
// GetPixelColorFilter(0, 0). With the flip, source line r lands on
// destination line h - 1 - r and the mosaic stays the destination's own.
#ifndef VYAPI_IP_COLORINTERPOLATION_COLORTOBAYER_H
#define VYAPI_IP_COLORINTERPOLATION_COLORTOBAYER_H

#include <cstdint>

#include "ColorInterpolation/BayerJob.h"

namespace VyApi {

template <typename Sample>
class CColorToBayer {
public:
  /// No size check. A colour filter outside 2 to 5, or a component count
  /// other than 3 or 4, stops the process (assertion). Raises nothing.
  static void Run(uint32_t eDestColorFilter, const SBayerJob& job);
};

extern template class CColorToBayer<uint8_t>;
extern template class CColorToBayer<uint16_t>;

}  // namespace VyApi

#endif
