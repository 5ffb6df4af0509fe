// AVX-512 form of the packed YCbCr readers (to BGR8, RGB8, BGRa8, RGBa8 and
// to Mono8). The values are those of the per-pixel rule because the rule is
// computed as it stands: the same table entries, fetched by vector gathers,
// summed in 32-bit lanes, clamped to [0, 255 x F] and shifted by the fraction
// bits. Only the order of work changes: the chroma sums of up to sixteen
// groups at once, spread to their pixels by a lane permute.
#ifndef VYAPI_IP_COLORINTERPOLATION_YCBCRREADSIMD_H
#define VYAPI_IP_COLORINTERPOLATION_YCBCRREADSIMD_H

#include <cstddef>
#include <cstdint>

#include "ColorInterpolation/YCbCrTables.h"

namespace VyApi {

/// Converts the first nGroups whole groups of a line (layout TLayout) to
/// pixels of nDestStep bytes (the fourth, alpha, never written) and returns
/// nGroups; returns 0 without writing when the processor has no AVX-512
/// (F, BW, VBMI) or the form is switched off for a test. Raises nothing.
template <class TLayout, int nDestStep, bool bBGROrder>
size_t SimdYCbCrToColorGroups(const uint8_t* pSrc, uint8_t* pDest, size_t nGroups, const SYCbCrReadTable& t);

/// The same for the mono reader: each pixel's luma entry >> the fraction bits.
template <class TLayout>
size_t SimdYCbCrToMonoGroups(const uint8_t* pSrc, uint8_t* pDest, size_t nGroups, const SYCbCrReadTable& t);

/// Switches the vector form off (false) or back on, for tests that compare
/// it with the per-pixel rule on one machine.
void SetYCbCrSimdForTesting(bool bEnabled);

}  // namespace VyApi

#endif
