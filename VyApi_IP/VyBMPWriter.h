// Windows bitmaps with a 40-byte info header, written and read by hand.
// Grey depths above 8 bits keep their samples as 16-bit bit fields, so that a
// BMP file is a lossless store of camera data.
#ifndef VYAPI_IP_VYBMPWRITER_H
#define VYAPI_IP_VYBMPWRITER_H

#include <cstdint>
#include <cstdio>

#include <Base/GCString.h>
#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/IVyImageBuffer.h>

namespace VyApi {

/// BITMAPFILEHEADER: 14 bytes in the file.
struct SVyBitmapFileHeader {
  static constexpr size_t c_nSize = 14;
  uint16_t bfType = 0x4D42;  // "BM"
  uint32_t bfSize = 0;
  uint16_t bfReserved1 = 0;
  uint16_t bfReserved2 = 0;
  uint32_t bfOffBits = 0;
};

/// BITMAPINFOHEADER: 40 bytes in the file.
struct SVyBitmapInfoHeader {
  static constexpr size_t c_nSize = 40;
  uint32_t biSize = 40;
  int32_t biWidth = 0;
  int32_t biHeight = 0;  // positive: bottom-up lines
  uint16_t biPlanes = 1;
  uint16_t biBitCount = 0;
  uint32_t biCompression = 0;  // 0 plain, 3 bit fields
  uint32_t biSizeImage = 0;
  int32_t biXPelsPerMeter = 0;
  int32_t biYPelsPerMeter = 0;
  uint32_t biClrUsed = 0;
  uint32_t biClrImportant = 0;
};

/// Writes pImage as a bitmap to the open stream pFile, last line first, each
/// line padded with zeros to a multiple of four bytes; strName only names the
/// file in messages. Takes Mono8 (256-entry grey palette), Mono10 to Mono16
/// (16 bits with masks of the component depth), BGR8, BGRa8 and CBGR10p32
/// (bit fields). Raises RuntimeException "Not supported pixelformat %s" for
/// other formats, RuntimeException "File %s is unwritable." when the stream
/// takes fewer bytes, and BadAllocException when the file block cannot be
/// allocated.
void WriteBMP(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile);

/// Reads a bitmap of one of the layouts WriteBMP writes (top-down files too)
/// from pFile into pBuffer, which must be the kit's own buffer and is resized
/// to the file's image with the format's default line alignment. Lines are
/// read at the buffer's line pitch, without skipping pad bytes.
/// Raises RuntimeException "File %s is unreadable." for a short file, another
/// layout, a grey palette that is not the identity, or offsets that do not fit
/// the image; and what the image buffer raises when sized.
void LoadBMP(IVyImageBuffer* pBuffer, const GenICam_3_0::gcstring& strName, FILE* pFile);

}  // namespace VyApi

#endif
