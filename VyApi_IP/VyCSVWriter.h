// CSV: every sample of an image as decimal text, for inspection in a
// spreadsheet. Packed formats are unpacked for the printing.
#ifndef VYAPI_IP_VYCSVWRITER_H
#define VYAPI_IP_VYCSVWRITER_H

#include <cstddef>
#include <ostream>

#include <Base/GCString.h>
#include <VyApi_IP/IVyImage.h>

namespace VyApi {

/// Writes pImage to the file strName, which it opens and truncates itself:
/// "Width=", "Height=" and "PixelFormat=" lines, then one line per image line
/// (per plane line for planar formats) with every sample followed by ",".
/// Takes the 8- and 16-bit mono, Bayer, RGB/BGR and YCbCr/YUV formats, the
/// planar formats, Mono1p/2p/4p, the 4p, 10p and 12p formats, the GVSP 10 and
/// 12 packed formats and the 10p32 formats.
/// Raises RuntimeException "File %s is unwritable." when the file cannot be
/// opened or written, and RuntimeException "Not supported pixelformat %s"
/// for other formats (Mono14p and Bayer 14p among them), after the header
/// lines have been written.
void WriteCSV(IVyImage* pImage, const GenICam_3_0::gcstring& strName);

/// nPerLine samples of X from each of nLines lines, nPitch bytes apart.
/// Raises what the stream raises.
template <typename X>
void WriteCSVUnpacked(const X* p, size_t nPerLine, size_t nPitch, size_t nLines, std::ostream& os);

/// nPerLine samples of nBits each from a bit stream per line, the first byte
/// giving the lowest bits; X is the type of the samples printed. Raises what
/// the stream raises.
template <typename X>
void WriteCSVPacked(const X* p, size_t nPerLine, size_t nPitch, size_t nLines, size_t nBits, std::ostream& os);

/// GigE Vision packed pixels of nBits (10 or 12): three bytes per two pixels.
/// Raises what the stream raises.
void WriteCSVGEVPacked(const unsigned char* p, size_t nPixels, size_t nPitch, size_t nLines, size_t nBits,
                       std::ostream& os);

/// Three 10-bit samples per 32-bit little-endian word, bits 0-9 first.
/// Raises what the stream raises.
void WriteCSVPacked10p32(const unsigned int* p, size_t nPixels, size_t nPitch, size_t nLines, std::ostream& os);

}  // namespace VyApi

#endif
