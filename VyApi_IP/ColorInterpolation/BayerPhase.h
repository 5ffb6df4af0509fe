// Bayer phases and site colours, shared by the demosaicing, Bayer-to-mono and
// colour-to-Bayer kernels. The phase values mirror the pixel colour filter of
// the pixel-format service (BayerRG = 2 ... BayerBG = 5), so that the module
// can pass GetPixelColorFilter(0, 0) through unchanged.
#ifndef VYAPI_IP_COLORINTERPOLATION_BAYERPHASE_H
#define VYAPI_IP_COLORINTERPOLATION_BAYERPHASE_H

#include <cstdint>

#include "Kernels/KernelClones.h"

namespace VyApi {

/// The colour at line 0, column 0 and its neighbours, by colour-filter value.
enum EBayerPhase_t : uint32_t {
  BayerPhase_RG = 2,  ///< R G / G B
  BayerPhase_GR = 3,  ///< G R / B G
  BayerPhase_GB = 4,  ///< G B / R G
  BayerPhase_BG = 5   ///< B G / G R
};

/// Colour of a site; also the index of a colour in planar line buffers.
enum EBayerColour_t : unsigned { BayerColour_R = 0, BayerColour_G = 1, BayerColour_B = 2 };

/// Whether a colour-filter value names one of the four phases.
constexpr bool IsBayerPhase(uint32_t eFilter) { return eFilter >= BayerPhase_RG && eFilter <= BayerPhase_BG; }

/// Colour of the site at line parity nRowParity and column parity nColParity.
constexpr EBayerColour_t BayerSiteColour(EBayerPhase_t ePhase, unsigned nRowParity, unsigned nColParity) {
  // The four phases are the RG pattern shifted by one column (GR), one line
  // (GB) or both (BG).
  const unsigned nShiftCol = (ePhase == BayerPhase_GR || ePhase == BayerPhase_BG) ? 1u : 0u;
  const unsigned nShiftRow = (ePhase == BayerPhase_GB || ePhase == BayerPhase_BG) ? 1u : 0u;
  const unsigned r = (nRowParity ^ nShiftRow) & 1u;
  const unsigned c = (nColParity ^ nShiftCol) & 1u;
  return (r == 0 && c == 0) ? BayerColour_R : (r == 1 && c == 1) ? BayerColour_B : BayerColour_G;
}

/// The non-green colour held by lines of parity nRowParity.
constexpr EBayerColour_t BayerLineColour(EBayerPhase_t ePhase, unsigned nRowParity) {
  return BayerSiteColour(ePhase, nRowParity, 0) == BayerColour_G ? BayerSiteColour(ePhase, nRowParity, 1)
                                                                  : BayerSiteColour(ePhase, nRowParity, 0);
}

/// Column parity of the non-green sites on lines of parity nRowParity.
constexpr unsigned BayerLineColourParity(EBayerPhase_t ePhase, unsigned nRowParity) {
  return BayerSiteColour(ePhase, nRowParity, 0) == BayerColour_G ? 1u : 0u;
}

}  // namespace VyApi

#endif
