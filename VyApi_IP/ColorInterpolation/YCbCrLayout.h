// Byte layouts of the packed YCbCr formats, as compile-time constants.
//
// A line is a row of groups; a group holds nPixels luma bytes and one Cb and
// one Cr byte shared by those pixels:
//
//   subsampling   Cb first (CbYCr family)   luma first
//   4:4:4         Cb Y Cr                   Y Cb Cr
//   4:2:2         Cb Y0 Cr Y1               Y0 Cb Y1 Cr
//   4:1:1         Cb Y0 Y1 Cr Y2 Y3         Y0 Y1 Cb Y2 Y3 Cr
//
// A line of w pixels occupies ceil(w x bits per pixel / 8) bytes. When w is
// not a multiple of the group, the last group is partial: it holds the luma
// of the pixels that exist and those chroma bytes that still fall inside the
// line's bytes (the kernels neither read nor write beyond them).
#ifndef VYAPI_IP_COLORINTERPOLATION_YCBCRLAYOUT_H
#define VYAPI_IP_COLORINTERPOLATION_YCBCRLAYOUT_H

#include <cstddef>

namespace VyApi {

/// Pixels that share one pair of chroma bytes.
enum EYCbCrSubsampling_t : int {
  YCbCrSubsampling_444 = 1,
  YCbCrSubsampling_422 = 2,
  YCbCrSubsampling_411 = 4,
};

template <EYCbCrSubsampling_t eSubsampling, bool bCbFirst>
struct TYCbCrLayout {
  static constexpr int nPixels = static_cast<int>(eSubsampling);
  static constexpr int nGroupBytes = nPixels + 2;
  static constexpr int nBitsPerPixel = 8 * nGroupBytes / nPixels;
  /// log2(nPixels): the shift that turns a group's sum into its mean.
  static constexpr int nMeanShift = nPixels == 4 ? 2 : (nPixels == 2 ? 1 : 0);

  /// Offset of the luma byte of pixel p of a group.
  static constexpr int Y(int p) {
    if (nPixels == 1) return bCbFirst ? 1 : 0;
    // 4:2:2 and 4:1:1 are two halves, each one chroma byte and nPixels / 2
    // luma bytes; the chroma comes first in a half of the CbYCr family.
    const int nHalf = nPixels / 2;
    const int nHalfStart = (p / nHalf) * (nHalf + 1);
    return nHalfStart + (p % nHalf) + (bCbFirst ? 1 : 0);
  }
  static constexpr int nCb = nPixels == 1 ? (bCbFirst ? 0 : 1) : (bCbFirst ? 0 : nPixels / 2);
  static constexpr int nCr = nPixels == 1 ? 2 : (bCbFirst ? nPixels / 2 + 1 : nGroupBytes - 1);

  /// Bytes of the data of one line of nWidth pixels.
  static constexpr size_t LineBytes(size_t nWidth) { return (nWidth * nBitsPerPixel + 7) / 8; }
};

}  // namespace VyApi

#endif
