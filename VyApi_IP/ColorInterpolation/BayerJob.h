// The plain description of one Bayer pass: buffers, pitches, size and the
// properties of the colour side. The kernels know nothing of image objects;
// the converter module fills this from its source and destination images.
#ifndef VYAPI_IP_COLORINTERPOLATION_BAYERJOB_H
#define VYAPI_IP_COLORINTERPOLATION_BAYERJOB_H

#include <cstddef>
#include <cstdint>

namespace VyApi {

struct SBayerJob {
  const void* pSrc = nullptr;  ///< first byte of source line 0
  size_t nSrcPitch = 0;        ///< source line pitch in bytes
  void* pDest = nullptr;       ///< first byte of the destination buffer
  size_t nDestPitch = 0;       ///< destination line pitch in bytes
  size_t nWidth = 0;
  size_t nHeight = 0;
  /// Components per pixel of the colour side (destination of demosaicing,
  /// source of colour to Bayer): 3, or 4 with an alpha that is never written.
  size_t nComponents = 3;
  /// Blue is component 0 and red component 2 of the colour side (BGR...);
  /// false for RGB... Green is always component 1.
  bool bBGROrder = true;
  /// The destination is written bottom-up: source line r lands on
  /// destination line nHeight - 1 - r.
  bool bReverseY = false;
  /// Component bit depth of the destination (8 to 16); it bounds BiCubic.
  unsigned nBitDepth = 8;

  template <typename Sample>
  const Sample* SrcLine(size_t r) const {
    return reinterpret_cast<const Sample*>(static_cast<const uint8_t*>(pSrc) + r * nSrcPitch);
  }
  /// Destination line that receives source line r.
  template <typename Sample>
  Sample* DestLine(size_t r) const {
    return DestLineAt<Sample>(bReverseY ? nHeight - 1 - r : r);
  }
  /// Destination line d counted from the buffer's start, without flip.
  template <typename Sample>
  Sample* DestLineAt(size_t d) const {
    return reinterpret_cast<Sample*>(static_cast<uint8_t*>(pDest) + d * nDestPitch);
  }
  /// Component index of red and blue in the colour side's pixels.
  size_t RedIndex() const { return bBGROrder ? 2 : 0; }
  size_t BlueIndex() const { return bBGROrder ? 0 : 2; }
};

}  // namespace VyApi

#endif
