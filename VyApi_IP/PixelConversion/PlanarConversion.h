// Planar colour (RGB8_Planar, RGB10/12/16_Planar) to and from mono and
// interleaved colour. Planes hold red, green, blue in that order (a planar
// format is never in BGR order); plane k starts k plane pitches after the
// buffer, and lines step within a plane by the line pitch, bottom-up under
// the flip.
//
// The module passes: buffers, line pitches, the plane pitch of each planar
// side (GetImagePlanePitch), width and height, the source's component depth
// (nInputBitCount), for the interleaved side its component count and
// IsBGROrder, the table from source to destination depth or null for equal
// depths, and the flip flag. 16-bit sources are checked against
// nInputBitCount on the table road; an out-of-range sample stops the process.
//
// Names: the first number is the source's storage, the second the
// destination's (ConverterMonoToPlanar_16_8: 16-bit mono to RGB8_Planar).
#ifndef VYAPI_PIXELCONVERSION_PLANARCONVERSION_H
#define VYAPI_PIXELCONVERSION_PLANARCONVERSION_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "PixelConversion/ColorLayout.h"
#include "PixelConversion/PixelKernelSupport.h"

namespace VyApi {
namespace PixelConversion {

/// Finds the first sample of a planar line at or above 2^nInputBitCount and
/// stops there, naming its plane.
template <typename X>
inline void checkPlanarLine(const X* pxSrcPlane0, const X* pxSrcPlane1, const X* pxSrcPlane2, size_t nWidth,
                            size_t nInputBitCount) {
  for (size_t x = 0; x < nWidth; ++x, ++pxSrcPlane0, ++pxSrcPlane1, ++pxSrcPlane2) {
    VY_ASSERT(*pxSrcPlane0 < (1 << nInputBitCount));
    VY_ASSERT(*pxSrcPlane1 < (1 << nInputBitCount));
    VY_ASSERT(*pxSrcPlane2 < (1 << nInputBitCount));
  }
}

template <typename X, typename Y>
VY_KERNEL_INLINE void ConverterMonoToPlanar_t(const void* pSrc, size_t nSrcLinePitch, void* pDest,
                                              size_t nDestLinePitch, size_t nDestPlanePitch, size_t nWidth,
                                              size_t nHeight, size_t nInputBitCount, const uint16_t* pTable,
                                              bool bReverseY) {
  VY_ASSERT(pTable != nullptr || (std::is_same<X, Y>::value));
  uint8_t* pPlane[3] = {static_cast<uint8_t*>(pDest), static_cast<uint8_t*>(pDest) + nDestPlanePitch,
                        static_cast<uint8_t*>(pDest) + 2 * nDestPlanePitch};
  CDestLines dest0(pPlane[0], nDestLinePitch, nHeight, bReverseY);
  CDestLines dest1(pPlane[1], nDestLinePitch, nHeight, bReverseY);
  CDestLines dest2(pPlane[2], nDestLinePitch, nHeight, bReverseY);
  const size_t nCopy = std::min(nSrcLinePitch, nDestLinePitch);
  for (size_t y = 0; y < nHeight; ++y, dest0.Next(), dest1.Next(), dest2.Next()) {
    const X* __restrict pxSrcPos = SrcLine<X>(pSrc, nSrcLinePitch, y);
    if (pTable != nullptr) {
      if (LineHasBitsAbove(pxSrcPos, nWidth, nInputBitCount)) {
        for (size_t x = 0; x < nWidth; ++x) VY_ASSERT(pxSrcPos[x] < (1 << nInputBitCount));
      }
      Y* __restrict p0 = dest0.Line<Y>();
      Y* __restrict p1 = dest1.Line<Y>();
      Y* __restrict p2 = dest2.Line<Y>();
      for (size_t x = 0; x < nWidth; ++x) {
        const Y v = static_cast<Y>(pTable[pxSrcPos[x]]);
        p0[x] = v;
        p1[x] = v;
        p2[x] = v;
      }
    } else {
      std::memcpy(dest0.Line<Y>(), pxSrcPos, nCopy);
      std::memcpy(dest1.Line<Y>(), pxSrcPos, nCopy);
      std::memcpy(dest2.Line<Y>(), pxSrcPos, nCopy);
    }
  }
}

template <typename X, typename Y>
VY_KERNEL_INLINE void ConverterPlanarToPlanar_t(const void* pSrc, size_t nSrcLinePitch, size_t nSrcPlanePitch,
                                                void* pDest, size_t nDestLinePitch, size_t nDestPlanePitch,
                                                size_t nWidth, size_t nHeight, size_t nInputBitCount,
                                                const uint16_t* pTable, bool bReverseY) {
  VY_ASSERT(pTable != nullptr || (std::is_same<X, Y>::value));
  const uint8_t* pSrcPlane = static_cast<const uint8_t*>(pSrc);
  uint8_t* pDestPlane = static_cast<uint8_t*>(pDest);
  if (pTable != nullptr) {
    for (size_t y = 0; y < nHeight; ++y) {
      const X* pxSrcPlane0 = SrcLine<X>(pSrcPlane, nSrcLinePitch, y);
      const X* pxSrcPlane1 = SrcLine<X>(pSrcPlane + nSrcPlanePitch, nSrcLinePitch, y);
      const X* pxSrcPlane2 = SrcLine<X>(pSrcPlane + 2 * nSrcPlanePitch, nSrcLinePitch, y);
      if (LineHasBitsAbove(pxSrcPlane0, nWidth, nInputBitCount) ||
          LineHasBitsAbove(pxSrcPlane1, nWidth, nInputBitCount) ||
          LineHasBitsAbove(pxSrcPlane2, nWidth, nInputBitCount)) {
        checkPlanarLine(pxSrcPlane0, pxSrcPlane1, pxSrcPlane2, nWidth, nInputBitCount);
      }
    }
  }
  for (int nPlane = 0; nPlane < 3; ++nPlane) {
    CDestLines dest(pDestPlane + nPlane * nDestPlanePitch, nDestLinePitch, nHeight, bReverseY);
    for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
      const X* __restrict ps = SrcLine<X>(pSrcPlane + nPlane * nSrcPlanePitch, nSrcLinePitch, y);
      Y* __restrict pd = dest.Line<Y>();
      if (pTable != nullptr) {
        for (size_t x = 0; x < nWidth; ++x) pd[x] = static_cast<Y>(pTable[ps[x]]);
      } else {
        for (size_t x = 0; x < nWidth; ++x) pd[x] = static_cast<Y>(ps[x]);
      }
    }
  }
}

template <typename X, typename Y, int SC, bool BGR>
VY_KERNEL_INLINE void ConverterNonPlanarToPlanar_t(const void* pSrc, size_t nSrcLinePitch, void* pDest,
                                                   size_t nDestLinePitch, size_t nDestPlanePitch, size_t nWidth,
                                                   size_t nHeight, size_t nInputBitCount, const uint16_t* pTable,
                                                   bool bReverseY) {
  VY_ASSERT(pTable != nullptr || (std::is_same<X, Y>::value));
  constexpr int R = BGR ? 2 : 0;
  constexpr int B = BGR ? 0 : 2;
  uint8_t* pBase = static_cast<uint8_t*>(pDest);
  CDestLines destR(pBase, nDestLinePitch, nHeight, bReverseY);
  CDestLines destG(pBase + nDestPlanePitch, nDestLinePitch, nHeight, bReverseY);
  CDestLines destB(pBase + 2 * nDestPlanePitch, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, destR.Next(), destG.Next(), destB.Next()) {
    const X* __restrict pxSrc = SrcLine<X>(pSrc, nSrcLinePitch, y);
    Y* __restrict pr = destR.Line<Y>();
    Y* __restrict pg = destG.Line<Y>();
    Y* __restrict pb = destB.Line<Y>();
    if (pTable != nullptr) {
      if (LineHasBitsAbove(pxSrc, SC * nWidth, nInputBitCount)) {
        const X* pxSrcPos = pxSrc;
        for (size_t x = 0; x < nWidth; ++x, pxSrcPos += SC) {
          VY_ASSERT(*pxSrcPos < (1 << nInputBitCount));
          VY_ASSERT(*(pxSrcPos + 1) < (1 << nInputBitCount));
          VY_ASSERT(*(pxSrcPos + 2) < (1 << nInputBitCount));
        }
      }
      for (size_t x = 0; x < nWidth; ++x) {
        pr[x] = static_cast<Y>(pTable[pxSrc[SC * x + R]]);
        pg[x] = static_cast<Y>(pTable[pxSrc[SC * x + 1]]);
        pb[x] = static_cast<Y>(pTable[pxSrc[SC * x + B]]);
      }
    } else {
      for (size_t x = 0; x < nWidth; ++x) {
        pr[x] = static_cast<Y>(pxSrc[SC * x + R]);
        pg[x] = static_cast<Y>(pxSrc[SC * x + 1]);
        pb[x] = static_cast<Y>(pxSrc[SC * x + B]);
      }
    }
  }
}

template <typename X, typename Y, int DC, bool BGR>
VY_KERNEL_INLINE void ConverterPlanarToNonPlanar_t(const void* pSrc, size_t nSrcLinePitch, size_t nSrcPlanePitch,
                                                   void* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight,
                                                   size_t nInputBitCount, const uint16_t* pTable, bool bReverseY) {
  VY_ASSERT(pTable != nullptr || (std::is_same<X, Y>::value));
  constexpr int R = BGR ? 2 : 0;
  constexpr int B = BGR ? 0 : 2;
  const uint8_t* pBase = static_cast<const uint8_t*>(pSrc);
  CDestLines dest(pDest, nDestLinePitch, nHeight, bReverseY);
  for (size_t y = 0; y < nHeight; ++y, dest.Next()) {
    const X* __restrict pxSrcPlane0 = SrcLine<X>(pBase, nSrcLinePitch, y);
    const X* __restrict pxSrcPlane1 = SrcLine<X>(pBase + nSrcPlanePitch, nSrcLinePitch, y);
    const X* __restrict pxSrcPlane2 = SrcLine<X>(pBase + 2 * nSrcPlanePitch, nSrcLinePitch, y);
    Y* __restrict pd = dest.Line<Y>();
    if (pTable != nullptr) {
      if (LineHasBitsAbove(pxSrcPlane0, nWidth, nInputBitCount) ||
          LineHasBitsAbove(pxSrcPlane1, nWidth, nInputBitCount) ||
          LineHasBitsAbove(pxSrcPlane2, nWidth, nInputBitCount)) {
        checkPlanarLine(pxSrcPlane0, pxSrcPlane1, pxSrcPlane2, nWidth, nInputBitCount);
      }
      for (size_t x = 0; x < nWidth; ++x) {
        pd[DC * x + R] = static_cast<Y>(pTable[pxSrcPlane0[x]]);
        pd[DC * x + 1] = static_cast<Y>(pTable[pxSrcPlane1[x]]);
        pd[DC * x + B] = static_cast<Y>(pTable[pxSrcPlane2[x]]);
      }
    } else {
      for (size_t x = 0; x < nWidth; ++x) {
        pd[DC * x + R] = static_cast<Y>(pxSrcPlane0[x]);
        pd[DC * x + 1] = static_cast<Y>(pxSrcPlane1[x]);
        pd[DC * x + B] = static_cast<Y>(pxSrcPlane2[x]);
      }
    }
  }
}

// Named entry points. Each raises nothing; a table is required where the
// storages differ (_8_16, _16_8) and null means copy otherwise.
#define VY_DECLARE_MONO_TO_PLANAR(name)                                                                          \
  void name(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch, size_t nDestPlanePitch, \
            size_t nWidth, size_t nHeight, size_t nInputBitCount, const uint16_t* pTable, bool bReverseY)
#define VY_DECLARE_PLANAR_TO_PLANAR(name)                                                                     \
  void name(const void* pSrc, size_t nSrcLinePitch, size_t nSrcPlanePitch, void* pDest, size_t nDestLinePitch, \
            size_t nDestPlanePitch, size_t nWidth, size_t nHeight, size_t nInputBitCount, const uint16_t* pTable,  \
            bool bReverseY)
#define VY_DECLARE_NONPLANAR_TO_PLANAR(name)                                                                     \
  void name(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,   \
            size_t nDestLinePitch, size_t nDestPlanePitch, size_t nWidth, size_t nHeight, size_t nInputBitCount, \
            const uint16_t* pTable, bool bReverseY)
#define VY_DECLARE_PLANAR_TO_NONPLANAR(name)                                                                     \
  void name(const void* pSrc, size_t nSrcLinePitch, size_t nSrcPlanePitch, void* pDest, size_t nDestLinePitch,   \
            size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth, size_t nHeight, size_t nInputBitCount, \
            const uint16_t* pTable, bool bReverseY)

VY_DECLARE_MONO_TO_PLANAR(ConverterMonoToPlanar_8_8);
VY_DECLARE_MONO_TO_PLANAR(ConverterMonoToPlanar_8_16);
VY_DECLARE_MONO_TO_PLANAR(ConverterMonoToPlanar_16_8);
VY_DECLARE_MONO_TO_PLANAR(ConverterMonoToPlanar_16_16);
VY_DECLARE_PLANAR_TO_PLANAR(ConverterPlanarToPlanar_8_16);
VY_DECLARE_PLANAR_TO_PLANAR(ConverterPlanarToPlanar_16_8);
VY_DECLARE_PLANAR_TO_PLANAR(ConverterPlanarToPlanar_16_16);
VY_DECLARE_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_8_8);
VY_DECLARE_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_8_16);
VY_DECLARE_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_16_8);
VY_DECLARE_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_16_16);
VY_DECLARE_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_8_8);
VY_DECLARE_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_8_16);
VY_DECLARE_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_16_8);
VY_DECLARE_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_16_16);

}  // namespace PixelConversion
}  // namespace VyApi

#endif
