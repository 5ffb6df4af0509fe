// Bayer mosaic to a luminance image of the same sample type, without a
// colour image in between. Input: an SBayerJob whose source is the mosaic
// and whose destination is one component per pixel (nComponents, bBGROrder
// and nBitDepth are not used), and the source's GetPixelColorFilter(0, 0).
#ifndef VYAPI_IP_COLORINTERPOLATION_BAYERTOMONO_H
#define VYAPI_IP_COLORINTERPOLATION_BAYERTOMONO_H

#include <cstdint>

#include "ColorInterpolation/BayerJob.h"

namespace VyApi {

template <typename Sample>
class CBayerToMono {
public:
  /// m = (2R + 5G + B) >> 3 with R, G, B of the NearestNeighbor2 window.
  /// No size check; images narrower or lower than 4 get a result of the
  /// same form. A colour filter outside 2 to 5 stops the process
  /// (assertion "false"). Raises BadAllocException when line buffers cannot
  /// be allocated.
  static void Run(uint32_t eColorFilter, const SBayerJob& job);
};

extern template class CBayerToMono<uint8_t>;
extern template class CBayerToMono<uint16_t>;

}  // namespace VyApi

#endif
