// Interleaving of three planar line buffers into one destination line of
// three- or four-component pixels. Component 3 (alpha) is never written.
// The implementation is chosen once, by component count and by the CPU
// (an AVX2 build of the same loop where the processor has it); every choice
// writes the same values.
#ifndef VYAPI_IP_COLORINTERPOLATION_BAYERLINESTORE_H
#define VYAPI_IP_COLORINTERPOLATION_BAYERLINESTORE_H

#include <cstddef>
#include <cstdint>

namespace VyApi {

class CBayerLineStore {
public:
  /// Writes nWidth pixels: component k of pixel i is pPlane[k][i], k = 0..2.
  template <typename Sample>
  using PFStore = void (*)(Sample* pDest, const Sample* const pPlane[3], size_t nWidth);

  /// The store for pixels of nComponents (3 or 4) components.
  /// Raises nothing; another component count is an assertion.
  template <typename Sample>
  static PFStore<Sample> Select(size_t nComponents);

  /// Whether the AVX2 build is used on this processor (decided once).
  static bool UsesAvx2();
};

}  // namespace VyApi

#endif
