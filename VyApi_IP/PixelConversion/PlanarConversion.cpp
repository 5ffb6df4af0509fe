#include "PixelConversion/PlanarConversion.h"

namespace VyApi {
namespace PixelConversion {

#define VY_DEFINE_MONO_TO_PLANAR(name, X, Y)                                                                       \
  VY_KERNEL_CLONES VY_DECLARE_MONO_TO_PLANAR(name) {                                                              \
    ConverterMonoToPlanar_t<X, Y>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nDestPlanePitch, nWidth, nHeight,   \
                                  nInputBitCount, pTable, bReverseY);                                             \
  }
#define VY_DEFINE_PLANAR_TO_PLANAR(name, X, Y)                                                                    \
  VY_KERNEL_CLONES VY_DECLARE_PLANAR_TO_PLANAR(name) {                                                           \
    ConverterPlanarToPlanar_t<X, Y>(pSrc, nSrcLinePitch, nSrcPlanePitch, pDest, nDestLinePitch, nDestPlanePitch, \
                                    nWidth, nHeight, nInputBitCount, pTable, bReverseY);                         \
  }
#define VY_DEFINE_NONPLANAR_TO_PLANAR(name, X, Y)                                                                  \
  VY_KERNEL_CLONES VY_DECLARE_NONPLANAR_TO_PLANAR(name) {                                                         \
    WithComponentCount(nSrcComponentCount, [&](auto sc) {                                                         \
      WithFlag(bSrcBGROrder, [&](auto bgr) {                                                                      \
        ConverterNonPlanarToPlanar_t<X, Y, decltype(sc)::value, decltype(bgr)::value>(                            \
            pSrc, nSrcLinePitch, pDest, nDestLinePitch, nDestPlanePitch, nWidth, nHeight, nInputBitCount, pTable, \
            bReverseY);                                                                                           \
      });                                                                                                         \
    });                                                                                                           \
  }
#define VY_DEFINE_PLANAR_TO_NONPLANAR(name, X, Y)                                                                  \
  VY_KERNEL_CLONES VY_DECLARE_PLANAR_TO_NONPLANAR(name) {                                                         \
    WithComponentCount(nDestComponentCount, [&](auto dc) {                                                        \
      WithFlag(bDestBGROrder, [&](auto bgr) {                                                                     \
        ConverterPlanarToNonPlanar_t<X, Y, decltype(dc)::value, decltype(bgr)::value>(                            \
            pSrc, nSrcLinePitch, nSrcPlanePitch, pDest, nDestLinePitch, nWidth, nHeight, nInputBitCount, pTable,  \
            bReverseY);                                                                                           \
      });                                                                                                         \
    });                                                                                                           \
  }

VY_DEFINE_MONO_TO_PLANAR(ConverterMonoToPlanar_8_8, uint8_t, uint8_t)
VY_DEFINE_MONO_TO_PLANAR(ConverterMonoToPlanar_8_16, uint8_t, uint16_t)
VY_DEFINE_MONO_TO_PLANAR(ConverterMonoToPlanar_16_8, uint16_t, uint8_t)
VY_DEFINE_MONO_TO_PLANAR(ConverterMonoToPlanar_16_16, uint16_t, uint16_t)
VY_DEFINE_PLANAR_TO_PLANAR(ConverterPlanarToPlanar_8_16, uint8_t, uint16_t)
VY_DEFINE_PLANAR_TO_PLANAR(ConverterPlanarToPlanar_16_8, uint16_t, uint8_t)
VY_DEFINE_PLANAR_TO_PLANAR(ConverterPlanarToPlanar_16_16, uint16_t, uint16_t)
VY_DEFINE_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_8_8, uint8_t, uint8_t)
VY_DEFINE_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_8_16, uint8_t, uint16_t)
VY_DEFINE_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_16_8, uint16_t, uint8_t)
VY_DEFINE_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_16_16, uint16_t, uint16_t)
VY_DEFINE_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_8_8, uint8_t, uint8_t)
VY_DEFINE_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_8_16, uint8_t, uint16_t)
VY_DEFINE_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_16_8, uint16_t, uint8_t)
VY_DEFINE_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_16_16, uint16_t, uint16_t)

}  // namespace PixelConversion
}  // namespace VyApi
