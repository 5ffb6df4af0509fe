// The library's own view of the reverse converter: its user interface and its
// releasable converter interface (IVyConverter is held twice, on purpose).
#ifndef VYAPI_IP_IVYREVERSECONVERTERINSIDE_H
#define VYAPI_IP_IVYREVERSECONVERTERINSIDE_H

#include <VyApi_IP/IVyReverseConverter.h>

namespace VyApi {

class IVyReverseConverterInside : public IVyReverseConverter, public IVyConverterReleasable {};

}  // namespace VyApi

#endif
