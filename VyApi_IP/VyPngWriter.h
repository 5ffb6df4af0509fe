// PNG files through libpng: grey, RGB and RGB-with-alpha, 8 or 16 bits per
// sample, with the significant bits of 10- to 14-bit samples recorded.
#ifndef VYAPI_IP_VYPNGWRITER_H
#define VYAPI_IP_VYPNGWRITER_H

#include <cstdio>

#include <Base/GCString.h>
#include <VyApi_IP/IVyImage.h>

namespace VyApi {

/// Writes pImage to the open stream pFile; strName only names the file in
/// messages. The caller opens and closes the stream.
/// Takes Mono8..Mono16, RGB8, RGB16, BGR8..BGR16, and for direct calls RGBa8
/// and BGRa8..BGRa16.
/// Raises RuntimeException "Not supported pixelformat %s" for any other
/// format, BadAllocException when libpng cannot make its write or info
/// structure, and RuntimeException "File %s is unwritable." when libpng
/// fails while writing.
void WritePng(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile);

}  // namespace VyApi

#endif
