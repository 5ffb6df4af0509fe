#include "PixelConversion/ColorToColorConversion.h"

namespace VyApi {
namespace PixelConversion {

namespace {
template <typename X, typename Y>
VY_KERNEL_INLINE void bgrxToBGRx(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,
                                 size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth,
                                 size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  WithComponentCount(nSrcComponentCount, [&](auto sc) {
    WithComponentCount(nDestComponentCount, [&](auto dc) {
      WithFlag(bSrcBGROrder != bDestBGROrder, [&](auto swap) {
        ConverterBGRxToBGRx_t<X, Y, decltype(sc)::value, decltype(dc)::value, decltype(swap)::value>(
            pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight, pTable, bReverseY);
      });
    });
  });
}
}  // namespace

VY_KERNEL_CLONES
void ConverterBGRx8ToBGRx8(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,
                           size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth,
                           size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  bgrxToBGRx<uint8_t, uint8_t>(pSrc, nSrcLinePitch, nSrcComponentCount, bSrcBGROrder, pDest, nDestLinePitch,
                               nDestComponentCount, bDestBGROrder, nWidth, nHeight, pTable, bReverseY);
}

VY_KERNEL_CLONES
void ConverterBGRx8ToBGRx16(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,
                           size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth,
                           size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  bgrxToBGRx<uint8_t, uint16_t>(pSrc, nSrcLinePitch, nSrcComponentCount, bSrcBGROrder, pDest, nDestLinePitch,
                               nDestComponentCount, bDestBGROrder, nWidth, nHeight, pTable, bReverseY);
}

VY_KERNEL_CLONES
void ConverterBGRx16ToBGRx8(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,
                           size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth,
                           size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  bgrxToBGRx<uint16_t, uint8_t>(pSrc, nSrcLinePitch, nSrcComponentCount, bSrcBGROrder, pDest, nDestLinePitch,
                               nDestComponentCount, bDestBGROrder, nWidth, nHeight, pTable, bReverseY);
}

VY_KERNEL_CLONES
void ConverterBGRxWToBGRxW(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder, void* pDest,
                           size_t nDestLinePitch, size_t nDestComponentCount, bool bDestBGROrder, size_t nWidth,
                           size_t nHeight, const uint16_t* pTable, bool bReverseY) {
  bgrxToBGRx<uint16_t, uint16_t>(pSrc, nSrcLinePitch, nSrcComponentCount, bSrcBGROrder, pDest, nDestLinePitch,
                               nDestComponentCount, bDestBGROrder, nWidth, nHeight, pTable, bReverseY);
}

}  // namespace PixelConversion
}  // namespace VyApi
