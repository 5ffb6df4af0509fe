// Uncompressed baseline TIFF ("II", one strip per plane), written by hand in
// one block and one fwrite.
#ifndef VYAPI_IP_VYTIFFWRITER_H
#define VYAPI_IP_VYTIFFWRITER_H

#include <cstdio>

#include <Base/GCString.h>
#include <VyApi_IP/IVyImage.h>

namespace VyApi {

/// Writes pImage to the open stream pFile; strName only names the file in
/// messages. The caller opens and closes the stream.
/// Takes Mono8, Mono16 (grey) and RGB8, RGBa8, RGB8_Planar, RGB16,
/// RGB16_Planar (colour; a fourth component is stored as an extra sample).
/// Raises RuntimeException "Not supported pixelformat %s" for any other
/// format, BadAllocException when the file block cannot be allocated, and
/// RuntimeException "File %s is unwritable." when the file would pass the
/// 4 GiB that 32-bit offsets reach, when the stream takes fewer bytes than
/// the file has, or when anything else fails on the way.
void WriteTiff(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile);

}  // namespace VyApi

#endif
