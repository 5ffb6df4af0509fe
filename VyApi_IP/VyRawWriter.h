// RAW: the library's own still format, a 72-byte header and then the image
// memory as it stands, lines at their line pitch. It takes every pixel format.
#ifndef VYAPI_IP_VYRAWWRITER_H
#define VYAPI_IP_VYRAWWRITER_H

#include <cstdint>
#include <cstdio>

#include <Base/GCString.h>
#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/IVyImageBuffer.h>

namespace VyApi {

/// The magic of a RAW file, its first four bytes.
extern const char pszRawHeader[5];

/// The header at the start of a RAW file, little-endian in the file.
struct SVyRawHeader {
  static constexpr size_t c_nSize = 72;
  /// The shortest header a reader takes; it ends before the pixel format.
  static constexpr size_t c_nMinSize = 64;
  char szMagic[4] = {'V', 'Y', 'R', 'W'};
  // A fixed stamp that no reader looks at.
  uint32_t nStamp[5] = {1, 0, 5, 0x10000, 0};
  uint64_t nHeaderSize = c_nSize;
  uint64_t nDataSize = 0;  // line pitch x height
  uint64_t nWidth = 0;
  uint64_t nHeight = 0;
  uint64_t nLinePitch = 0;
  uint32_t nPixelFormat = 0;
  uint32_t nReserved = 0;
};

/// Writes the header and line pitch x height bytes of pImage's memory to the
/// open stream pFile; strName only names the file in messages. Planar images
/// thus keep their first plane only. Raises RuntimeException "File %s is
/// unwritable." when the stream takes fewer bytes. A foreign image (not the
/// kit's own) stops the process.
void WriteRaw(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile);

/// Reads a RAW file from pFile into pBuffer, which must be the kit's own
/// buffer and is sized to the file's width, height, pixel format and line
/// pitch. Raises RuntimeException "File %s is unreadable." for a short file, a
/// header size outside 64 to 72, or a line pitch the buffer cannot take; and
/// what the image buffer raises when sized (a format it does not know stops
/// the process).
void LoadRaw(IVyImageBuffer* pBuffer, const GenICam_3_0::gcstring& strName, FILE* pFile);

}  // namespace VyApi

#endif
