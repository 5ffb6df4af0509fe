// The 2 x 2 window rule shared by NearestNeighbor2, the green of
// BilinearFalseColorReduction and Bayer to mono. Pixel (r, c) looks at lines
// r and a partner line of the other parity, and at columns c and c + 1.
// Red and blue are the window's one sample of that colour, green is
// (g1 + g2) >> 1 of its two greens. Last column, w even: the window of
// column w - 2, except that a green site at (r, w - 1) gives its own sample
// as green. Last column, w odd: a copy of column w - 2. Needs w >= 2.
#ifndef VYAPI_IP_COLORINTERPOLATION_BAYERWINDOW2X2_H
#define VYAPI_IP_COLORINTERPOLATION_BAYERWINDOW2X2_H

#include <cstddef>

#include "ColorInterpolation/BayerPhase.h"

namespace VyApi {

template <typename Sample, EBayerPhase_t Phase, unsigned RowParity>
class CBayerWindow2x2 {
public:
  /// Non-green colour of the pixel's own line, and of the partner line.
  static constexpr EBayerColour_t eOwnColour = BayerLineColour(Phase, RowParity);
  static constexpr EBayerColour_t ePartnerColour = BayerLineColour(Phase, RowParity ^ 1);
  /// Whether the own line's green sites are its even columns.
  static constexpr bool bOwnGreenEven = BayerSiteColour(Phase, RowParity, 0) == BayerColour_G;

  /// One window from its four samples by column parity: the rule itself.
  static inline void Pixel(unsigned ownEven, unsigned ownOdd, unsigned partEven, unsigned partOdd, Sample& xOwn,
                           Sample& xPart, Sample& g) {
    xOwn = static_cast<Sample>(bOwnGreenEven ? ownOdd : ownEven);
    xPart = static_cast<Sample>(bOwnGreenEven ? partEven : partOdd);
    g = static_cast<Sample>(((bOwnGreenEven ? ownEven : ownOdd) + (bOwnGreenEven ? partOdd : partEven)) >> 1);
  }

  /// The whole line r (samples s) with partner line t into three planes;
  /// without WithColours only green is written (pOwn and pPart unused).
  template <bool WithColours = true>
  VY_KERNEL_CLONES static void Line(const Sample* __restrict s, const Sample* __restrict t, Sample* __restrict pOwn,
                   Sample* __restrict pPart, Sample* __restrict pG, size_t w) {
    const size_t nPairs = (w - 1) / 2;  // pairs (2k, 2k + 1) whose windows end inside the line
    for (size_t k = 0; k < nPairs; ++k) {
      const size_t c = 2 * k;
      if (WithColours) {
        Pixel(s[c], s[c + 1], t[c], t[c + 1], pOwn[c], pPart[c], pG[c]);
        Pixel(s[c + 2], s[c + 1], t[c + 2], t[c + 1], pOwn[c + 1], pPart[c + 1], pG[c + 1]);
      } else {
        Sample x, y;
        Pixel(s[c], s[c + 1], t[c], t[c + 1], x, y, pG[c]);
        Pixel(s[c + 2], s[c + 1], t[c + 2], t[c + 1], x, y, pG[c + 1]);
      }
    }
    if (!WithColours) {
      // Colour planes are not written; keep the border rules on green only.
      Sample x, y;
      if (w & 1) {
        pG[w - 1] = pG[w - 2];
      } else {
        Pixel(s[w - 2], s[w - 1], t[w - 2], t[w - 1], x, y, pG[w - 2]);
        pG[w - 1] = bOwnGreenEven ? pG[w - 2] : s[w - 1];
      }
      return;
    }
    if (w & 1) {
      const size_t c = w - 1;  // even; column w - 2 ended the last pair
      pOwn[c] = pOwn[c - 1];
      pPart[c] = pPart[c - 1];
      pG[c] = pG[c - 1];
    } else {
      const size_t c = w - 2;
      Pixel(s[c], s[c + 1], t[c], t[c + 1], pOwn[c], pPart[c], pG[c]);
      pOwn[c + 1] = pOwn[c];
      pPart[c + 1] = pPart[c];
      pG[c + 1] = bOwnGreenEven ? pG[c] : s[c + 1];
    }
  }
};

}  // namespace VyApi

#endif
