// Interpolation of one colour along one mosaic line, the first step of
// BilinearSimple and BiCubic. For a colour whose sites have column parity q:
// at a site the sample; at column 0 S[1]; at column w - 1 S[w - 2];
// otherwise the mean of the two neighbours, or for BiCubic, where columns
// c - 3 and c + 3 are inside the line, the four-tap kernel.
#ifndef VYAPI_IP_COLORINTERPOLATION_BAYERLINEINTERPOLATION_H
#define VYAPI_IP_COLORINTERPOLATION_BAYERLINEINTERPOLATION_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "ColorInterpolation/BayerLineSimd.h"
#include "ColorInterpolation/BayerPhase.h"

namespace VyApi {

template <typename Sample>
class CBayerLineInterpolation {
public:
  /// Arithmetic type of the kernel: every intermediate of 8-bit samples
  /// fits 16 bits (at most 2 x 255 + 255 / 2), which doubles the lanes.
  typedef typename std::conditional<sizeof(Sample) == 1, int16_t, int32_t>::type Wide;

  /// The kernel (-1, 5, 5, -1) / 8 on near samples a, b and outer samples
  /// e, f, each part truncated on its own, limited to 0 and nMax.
  static inline Sample Kernel(Wide a, Wide b, Wide e, Wide f, Wide nMax) {
    const Wide s = static_cast<Wide>(a + b);
    const Wide t = static_cast<Wide>((e + f) >> 3);
    const Wide p = static_cast<Wide>((s >> 3) + (s >> 1));
    const Wide v = static_cast<Wide>(p - t);
    return static_cast<Sample>(p <= t ? Wide(0) : (v < nMax ? v : nMax));
  }

  static inline Sample Mean(unsigned a, unsigned b) { return static_cast<Sample>((a + b) >> 1); }

  /// The rule at any column c of a line of width w >= 2.
  template <unsigned SiteParity, bool BiCubic>
  static inline Sample At(const Sample* s, size_t c, size_t w, Wide nMax) {
    if ((c & 1) == SiteParity) return s[c];
    if (c == 0) return s[1];
    if (c == w - 1) return s[w - 2];
    if (BiCubic && c >= 3 && c + 3 <= w - 1) return Kernel(s[c - 1], s[c + 1], s[c - 3], s[c + 3], nMax);
    return Mean(s[c - 1], s[c + 1]);
  }

  /// The whole line into pOut[0..w-1].
  template <unsigned SiteParity, bool BiCubic>
  VY_KERNEL_CLONES static void Line(const Sample* __restrict s, Sample* __restrict pOut, size_t w, Wide nMax) {
    constexpr size_t q = SiteParity;
    // Middle pairs (site 2k + q, non-site 2k + q + 1) where the non-site
    // needs no border rule.
    const size_t kStart = BiCubic ? 1 : 0;
    size_t kEnd = kStart;
    if (BiCubic) {
      if (w >= 5 + q) kEnd = (w - 5 - q) / 2 + 1;
    } else {
      if (w >= 3 + q) kEnd = (w - 3 - q) / 2 + 1;
    }
    if (kEnd < kStart) kEnd = kStart;
    size_t k = kStart;
    // The compiler keeps this every-other-sample loop scalar; the vector
    // form does the bulk of an 8-bit line.
    if constexpr (BiCubic && sizeof(Sample) == 1) k = CBayerLineSimd::BiCubicPairs8(s, pOut, w, q, k, kEnd, nMax);
    for (; k < kEnd; ++k) {
      const size_t c = 2 * k + q;
      pOut[c] = s[c];
      if (BiCubic)
        pOut[c + 1] = Kernel(s[c], s[c + 2], s[c - 2], s[c + 4], nMax);
      else
        pOut[c + 1] = Mean(s[c], s[c + 2]);
    }
    const size_t nHeadEnd = 2 * kStart + q < w ? 2 * kStart + q : w;
    for (size_t c = 0; c < nHeadEnd; ++c) pOut[c] = At<SiteParity, BiCubic>(s, c, w, nMax);
    size_t nTail = 2 * kEnd + q;
    if (nTail < nHeadEnd) nTail = nHeadEnd;
    for (size_t c = nTail; c < w; ++c) pOut[c] = At<SiteParity, BiCubic>(s, c, w, nMax);
  }
};

}  // namespace VyApi

#endif
