// The YCbCr conversions as the pixel-format converter calls them: one entry
// per direction, each choosing its kernel once per image from the format
// codes, so that a row of the converter's dispatch table is one call.
//
// What the converter passes, taken from its images:
// - the format codes (VyPixelFormat_...) of the source and, for the writing
//   direction, of the destination;
// - buffer addresses and line pitches in bytes (GetImageBuffer,
//   GetImageLinePitch);
// - width and height in pixels, the same for source and destination (the
//   destination has been sized before);
// - for a BGR-family image: its GetComponentCount (3 or 4) and IsBGROrder;
// - bReverseY: the destination is written bottom-up.
//
// The module's own names map as follows:
//   mvTransform_YCrCb2BGR  -> TransformYCbCrToColor
//   mvTransform_YCrCb2Mono -> TransformYCbCrToMono
//   ConverterBayerToYCrCb  -> TransformToYCbCr
// A format outside a direction's list gives false and nothing is written.
#ifndef VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATION_YCBCR_H
#define VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATION_YCBCR_H

#include <cstddef>
#include <cstdint>

#include <VyApi_IP/EVyPixelFormatNamingConvention.h>

namespace VyApi {

/// YCbCr or YUV (any of the 18 formats) to BGR8, RGB8, BGRa8 or RGBa8.
/// nDestComponentCount is the destination's pixel step, bDestBGROrder its
/// order; alpha is left as it is. Returns false, writing nothing, when
/// eSrcFormat is not a YCbCr or YUV format.
/// Raises nothing; a component count other than 3 or 4 is an assertion.
bool TransformYCbCrToColor(EVyPixelFormatNamingConvention_t eSrcFormat, const uint8_t* pSrc, size_t nSrcLinePitch,
                           uint8_t* pDest, size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder,
                           size_t nWidth, size_t nHeight, bool bReverseY);

/// YCbCr or YUV to Mono8: the luma, stretched from studio to full range for
/// the BT.601 and BT.709 formats. Returns false, writing nothing, when
/// eSrcFormat is not a YCbCr or YUV format. Raises nothing.
bool TransformYCbCrToMono(EVyPixelFormatNamingConvention_t eSrcFormat, const uint8_t* pSrc, size_t nSrcLinePitch,
                          uint8_t* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, bool bReverseY);

/// To YCbCr or YUV (eDestFormat):
/// - from BayerGR8, BayerRG8, BayerGB8 or BayerBG8 to YCbCr422_8 only, by the
///   cell-wise road of BayerToYCbCr422Kernel (no demosaicing step);
///   nSrcComponentCount and bSrcBGROrder are not used then;
/// - from any other source, read as nSrcComponentCount (3 or 4) bytes a pixel
///   in the order bSrcBGROrder (BGR8, RGB8, BGRa8, RGBa8), to any of the 18
///   formats.
/// Returns false, writing nothing, when eDestFormat is not a YCbCr or YUV
/// format, when the source is Bayer8 and the destination other than
/// YCbCr422_8, or when the source is another one-component format (mono,
/// Bayer deeper than 8 bits).
/// Raises BadAllocException with the standard text when the Bayer road's work
/// rows cannot be allocated. A component count other than 3 or 4 for a
/// non-Bayer source is an assertion.
bool TransformToYCbCr(EVyPixelFormatNamingConvention_t eSrcFormat, const uint8_t* pSrc, size_t nSrcLinePitch,
                      size_t nSrcComponentCount, bool bSrcBGROrder, EVyPixelFormatNamingConvention_t eDestFormat,
                      uint8_t* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, bool bReverseY);

/// The Bayer road alone: BayerGR8, BayerRG8, BayerGB8 or BayerBG8 to
/// YCbCr422_8. Returns false, writing nothing, for another source format.
/// Raises BadAllocException with the standard text when the work rows
/// (2 x nWidth bytes) cannot be allocated.
bool TransformBayer8ToYCbCr422(EVyPixelFormatNamingConvention_t eSrcFormat, const uint8_t* pSrc,
                               size_t nSrcLinePitch, uint8_t* pDest, size_t nDestLinePitch, size_t nWidth,
                               size_t nHeight, bool bReverseY);

}  // namespace VyApi

#endif
