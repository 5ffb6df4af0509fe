#include "PixelConversion/RawMonoConversion.h"

namespace VyApi {
namespace PixelConversion {

VY_KERNEL_CLONES
void ConverterRawMono8ToRawMono16(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                  size_t nWidth, size_t nHeight, size_t nInputBitCount, const uint16_t* pTable,
                                  bool bReverseY) {
  ConverterRawMonoXToRawMonoY_t<uint8_t, uint16_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight,
                                                   nInputBitCount, pTable, bReverseY);
}

VY_KERNEL_CLONES
void ConverterRawMono16ToRawMono16(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                   size_t nWidth, size_t nHeight, size_t nInputBitCount, const uint16_t* pTable,
                                   bool bReverseY) {
  ConverterRawMonoXToRawMonoY_t<uint16_t, uint16_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight,
                                                    nInputBitCount, pTable, bReverseY);
}

VY_KERNEL_CLONES
void ConverterRawMono16ToRawMono8(const void* pSrc, size_t nSrcLinePitch, void* pDest, size_t nDestLinePitch,
                                  size_t nWidth, size_t nHeight, size_t nInputBitCount, const uint16_t* pTable,
                                  bool bReverseY) {
  ConverterRawMonoXToRawMonoY_t<uint16_t, uint8_t>(pSrc, nSrcLinePitch, pDest, nDestLinePitch, nWidth, nHeight,
                                                   nInputBitCount, pTable, bReverseY);
}

}  // namespace PixelConversion
}  // namespace VyApi
