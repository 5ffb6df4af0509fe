// Entry of Bayer demosaicing: one call per image. The converter module
// fills an SBayerJob from its images (source mosaic; destination BGR/RGB
// with 3 or 4 components, its IsBGROrder flag and component bit depth; the
// flip flag) and passes the source's GetPixelColorFilter(0, 0) and the
// interpolation method. Sample is uint8_t for Bayer*8 to 8-bit colour and
// uint16_t for the 10- to 16-bit mosaics in 16-bit cells.
#ifndef VYAPI_IP_COLORINTERPOLATION_COLORINTERPORATION_H
#define VYAPI_IP_COLORINTERPOLATION_COLORINTERPORATION_H

#include <cstdint>

#include "ColorInterpolation/BayerJob.h"
#include "ColorInterpolation/BayerPhase.h"

namespace VyApi {

/// Demosaicing methods, by the values of the converter's interpolation
/// method register.
enum EBayerMethod_t : int {
  BayerMethod_None = 0,
  BayerMethod_NearestNeighbor = 1,
  BayerMethod_NearestNeighbor2 = 2,
  BayerMethod_BilinearSimple = 3,
  BayerMethod_BilinearFalseColorReduction = 4,
  BayerMethod_BiCubic = 5
};

template <typename Sample>
class CColorInterporation {
public:
  /// Result and errno value for a colour filter that is no Bayer phase.
  static constexpr unsigned int nNotBayerError = 10087;

  /// Demosaics job.pSrc into job.pDest with method eMethod for the colour
  /// filter eColorFilter (2 to 5). Images narrower or lower than 4 run None
  /// for method 0 and NearestNeighbor for every other method; BiCubic on
  /// widths up to 6 runs BilinearFalseColorReduction.
  /// Raises RuntimeException "Not supported image size %u x %u" when the
  /// width or the height is at most 1 (nothing is written), and
  /// BadAllocException when line buffers cannot be allocated.
  /// Returns 0, or 10087 with errno set to 10087 and nothing written when
  /// eColorFilter is no Bayer phase. A method outside 0 to 5 on an image of
  /// at least 4 x 4 stops the process (assertion "false").
  static unsigned int Run(int eMethod, uint32_t eColorFilter, const SBayerJob& job);
};

extern template class CColorInterporation<uint8_t>;
extern template class CColorInterporation<uint16_t>;

}  // namespace VyApi

#endif
