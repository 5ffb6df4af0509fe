// What a YCbCr or YUV pixel format is to the conversions: its subsampling
// (and so its byte layout), its table family and its chroma order.
#ifndef VYAPI_IP_COLORINTERPOLATION_YCBCRFORMAT_H
#define VYAPI_IP_COLORINTERPOLATION_YCBCRFORMAT_H

#include <cstddef>

#include <VyApi_IP/EVyPixelFormatNamingConvention.h>

#include "ColorInterpolation/YCbCrLayout.h"
#include "ColorInterpolation/YCbCrTables.h"

namespace VyApi {

struct SYCbCrFormat {
  EVyPixelFormatNamingConvention_t m_eFormat;
  EYCbCrSubsampling_t m_eSubsampling;
  EYCbCrTableFamily_t m_eFamily;
  /// True for the CbYCr family (Cb before the luma of its half group).
  bool m_bCbFirst;
};

/// Number of YCbCr and YUV formats.
constexpr size_t YCbCrFormatCount = 18;

/// The description of eFormat, or nullptr when it is not a YCbCr or YUV
/// format. Raises nothing; callable from any thread.
const SYCbCrFormat* FindYCbCrFormat(EVyPixelFormatNamingConvention_t eFormat);

/// The i-th of the YCbCrFormatCount formats, for enumeration. Raises nothing;
/// i out of range is an assertion.
const SYCbCrFormat& GetYCbCrFormat(size_t i);

}  // namespace VyApi

#endif
