#include "PixelConversion/MonoToColorConversion.h"

namespace VyApi {
namespace PixelConversion {

namespace {
template <typename X, typename Y>
VY_KERNEL_INLINE void monoToBGR(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                              size_t nDestComponentCount, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                              bool bReverseY) {
  WithComponentCount(nDestComponentCount, [&](auto dc) {
    ConverterMonoToBGR_t<X, Y, decltype(dc)::value>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight,
                                                     pTable, bReverseY);
  });
}
}  // namespace

VY_KERNEL_CLONES
void ConverterMonoB2BGRB_RGBB(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                              size_t nDestComponentCount, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                              bool bReverseY) {
  monoToBGR<uint8_t, uint8_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nDestComponentCount, nWidth, nHeight,
                              pTable, bReverseY);
}

VY_KERNEL_CLONES
void ConverterMonoB2BGRW_RGBW(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                              size_t nDestComponentCount, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                              bool bReverseY) {
  monoToBGR<uint8_t, uint16_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nDestComponentCount, nWidth, nHeight,
                              pTable, bReverseY);
}

VY_KERNEL_CLONES
void ConverterMonoW2BGRW_RGBW(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                              size_t nDestComponentCount, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                              bool bReverseY) {
  monoToBGR<uint16_t, uint16_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nDestComponentCount, nWidth, nHeight,
                              pTable, bReverseY);
}

}  // namespace PixelConversion
}  // namespace VyApi
