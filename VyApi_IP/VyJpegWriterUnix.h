// Baseline JPEG files through TurboJPEG.
#ifndef VYAPI_IP_VYJPEGWRITERUNIX_H
#define VYAPI_IP_VYJPEGWRITERUNIX_H

#include <cstdio>

#include <Base/GCString.h>
#include <VyApi_IP/IVyImage.h>

namespace VyApi {

/// Compresses pImage with quality min(nQuality, 100) and writes the result
/// to the open stream pFile; strName only names the file in messages. The
/// caller opens and closes the stream.
/// Takes Mono8 and Mono10 (grey; the samples are read as bytes), RGB8 and
/// BGR8 (4:2:2 chroma).
/// Raises RuntimeException "Not supported pixelformat %s" for any other
/// format, and RuntimeException "File %s is unwritable." when the compressor
/// cannot be made, compression fails, or the stream takes fewer bytes.
void WriteJPG(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile, unsigned int nQuality);

}  // namespace VyApi

#endif
