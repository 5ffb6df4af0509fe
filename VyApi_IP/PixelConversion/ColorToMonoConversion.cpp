#include "PixelConversion/ColorToMonoConversion.h"

namespace VyApi {
namespace PixelConversion {

namespace {
template <typename X, typename Y>
VY_KERNEL_INLINE void bgrToMono(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder,
                                void* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight,
                                const uint16_t* pTable, bool bReverseY) {
  WithComponentCount(nSrcComponentCount, [&](auto sc) {
    WithFlag(bSrcBGROrder, [&](auto bgr) {
      ConverterBGRToMono_t<X, Y, decltype(sc)::value, decltype(bgr)::value>(pSrc, nSrcLinePitch, pDest, nDestLinePitch,
                                                                            nWidth, nHeight, pTable, bReverseY);
    });
  });
}
}  // namespace

VY_KERNEL_CLONES
void ConverterBGR8ToMono8(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder,
                          void* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                          bool bReverseY) {
  bgrToMono<uint8_t, uint8_t>(pSrc, nSrcLinePitch, nSrcComponentCount, bSrcBGROrder, pDest, nDestLinePitch, nWidth,
                              nHeight, pTable, bReverseY);
}

VY_KERNEL_CLONES
void ConverterBGR16ToMono16(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder,
                          void* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                          bool bReverseY) {
  bgrToMono<uint16_t, uint16_t>(pSrc, nSrcLinePitch, nSrcComponentCount, bSrcBGROrder, pDest, nDestLinePitch, nWidth,
                              nHeight, pTable, bReverseY);
}

VY_KERNEL_CLONES
void ConverterBGR16ToMono8(const void* pSrc, size_t nSrcLinePitch, size_t nSrcComponentCount, bool bSrcBGROrder,
                          void* pDest, size_t nDestLinePitch, size_t nWidth, size_t nHeight, const uint16_t* pTable,
                          bool bReverseY) {
  bgrToMono<uint16_t, uint8_t>(pSrc, nSrcLinePitch, nSrcComponentCount, bSrcBGROrder, pDest, nDestLinePitch, nWidth,
                              nHeight, pTable, bReverseY);
}

}  // namespace PixelConversion
}  // namespace VyApi
