// The library's own view of the pixel-format converter: its user interface
// and its releasable converter interface (IVyConverter is held twice, on purpose).
#ifndef VYAPI_IP_IVYPIXELFORMATCONVERTERINSIDE_H
#define VYAPI_IP_IVYPIXELFORMATCONVERTERINSIDE_H

#include <VyApi_IP/IVyPixelFormatConverter.h>

namespace VyApi {

class IVyPixelFormatConverterInside : public IVyPixelFormatConverter, public IVyConverterReleasable {};

}  // namespace VyApi

#endif
