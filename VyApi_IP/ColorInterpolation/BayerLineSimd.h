// Hand-vectorised bodies of the BiCubic rules on 8-bit samples, the parts
// the compiler leaves scalar (the every-other-sample line rule) or builds
// with compare-and-select chains (the limited four-tap kernel).
//
// Each function does the longest prefix it can without touching a byte
// outside the ranges the scalar rule reads and writes, and returns how far it
// got; the caller finishes with the scalar rule of CBayerLineInterpolation,
// which gives the same values. The AVX-512 or AVX2 form is chosen once per
// process; on other processors every function does nothing.
#ifndef VYAPI_IP_COLORINTERPOLATION_BAYERLINESIMD_H
#define VYAPI_IP_COLORINTERPOLATION_BAYERLINESIMD_H

#include <cstddef>
#include <cstdint>

namespace VyApi {

class CBayerLineSimd {
public:
  /// The middle pairs of a BiCubic line (see CBayerLineInterpolation::Line):
  /// for k = kBegin, kBegin + 1, ... with c = 2k + q, pOut[c] = s[c] and
  /// pOut[c + 1] = Kernel(s[c], s[c + 2], s[c - 2], s[c + 4], nMax). Reads
  /// only s[0 .. w - 1] and writes only pairs below kEnd. kBegin >= 1.
  /// Returns the first pair not done. Raises nothing.
  static size_t BiCubicPairs8(const uint8_t* s, uint8_t* pOut, size_t w, unsigned q, size_t kBegin, size_t kEnd,
                              int16_t nMax);

  /// pOut[c] = Kernel(pa[c], pb[c], pe[c], pf[c], nMax) for a prefix of
  /// c < n; returns its length. Raises nothing.
  static size_t BiCubicColumn8(const uint8_t* pa, const uint8_t* pb, const uint8_t* pe, const uint8_t* pf,
                               uint8_t* pOut, size_t n, int16_t nMax);

  /// Instruction set in use: 512, 256, or 0 for none. Decided once.
  static unsigned VectorBits();

  /// One instruction set's forms of the two functions above.
  struct SPath {
    size_t (*pfPairs)(const uint8_t*, uint8_t*, size_t, unsigned, size_t, size_t, int16_t);
    size_t (*pfColumn)(const uint8_t*, const uint8_t*, const uint8_t*, const uint8_t*, uint8_t*, size_t, int16_t);
  };
  /// The forms for nVectorBits (0, 256 or 512), or null when this processor
  /// lacks them; lets every form be compared with the scalar rule.
  static const SPath* Path(unsigned nVectorBits);
};

}  // namespace VyApi

#endif
