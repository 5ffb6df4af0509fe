// Helpers shared by the pixel kernels: destination line walking with the
// flip, the line range check of 16-bit sources, and the marker that builds a
// kernel once per instruction set.
//
// All kernels take plain parameters: buffers, line pitches in bytes, width
// and height in pixels, depths, component counts, channel order flags, an
// optional look-up table, and bReverseY, which writes the destination
// bottom-up (source line 0 lands on the last destination line). Sources are
// always read top-down.
#ifndef VYAPI_PIXELCONVERSION_PIXELKERNELSUPPORT_H
#define VYAPI_PIXELCONVERSION_PIXELKERNELSUPPORT_H

#include <cstddef>
#include <cstdint>

#include "Kernels/KernelClones.h"

// Row bodies are inlined into the cloned functions so that each clone
// vectorises them for its own instruction set.
#if defined(__GNUC__)
#define VY_KERNEL_INLINE inline __attribute__((always_inline))
#else
#define VY_KERNEL_INLINE inline
#endif

namespace VyApi {
namespace PixelConversion {

/// Walks destination lines top-down, or bottom-up with the flip.
class CDestLines {
public:
  CDestLines(void* pDest, size_t nPitch, size_t nHeight, bool bReverseY)
      : m_pLine(static_cast<uint8_t*>(pDest) + (bReverseY && nHeight > 0 ? (nHeight - 1) * nPitch : 0)),
        m_nStep(bReverseY ? -static_cast<ptrdiff_t>(nPitch) : static_cast<ptrdiff_t>(nPitch)) {}

  template <typename T>
  T* Line() const {
    return reinterpret_cast<T*>(m_pLine);
  }
  void Next() { m_pLine += m_nStep; }

private:
  uint8_t* m_pLine;
  ptrdiff_t m_nStep;
};

template <typename T>
inline const T* SrcLine(const void* pSrc, size_t nPitch, size_t y) {
  return reinterpret_cast<const T*>(static_cast<const uint8_t*>(pSrc) + y * nPitch);
}

/// True when some of the n 16-bit cells has bits at or above nBitCount.
/// An OR over the line vectorises; the caller then finds the culprit with the
/// per-sample assertion, so that the check costs little on valid data.
VY_KERNEL_INLINE bool LineHasBitsAbove(const uint16_t* p, size_t n, size_t nBitCount) {
  uint32_t acc = 0;
  for (size_t i = 0; i < n; ++i) acc |= p[i];
  return (acc >> nBitCount) != 0;
}

/// Same for 8-bit cells, which never exceed 8 bits.
VY_KERNEL_INLINE bool LineHasBitsAbove(const uint8_t*, size_t, size_t nBitCount) { return nBitCount < 8; }

}  // namespace PixelConversion
}  // namespace VyApi

#endif
