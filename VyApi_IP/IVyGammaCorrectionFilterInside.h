// The library's own view of the gamma filter: its user interface and its
// releasable filter interface (IVyFilter is held twice, on purpose).
#ifndef VYAPI_IP_IVYGAMMACORRECTIONFILTERINSIDE_H
#define VYAPI_IP_IVYGAMMACORRECTIONFILTERINSIDE_H

#include <VyApi_IP/IVyGammaCorrectionFilter.h>

namespace VyApi {

class IVyGammaCorrectionFilterInside : public IVyGammaCorrectionFilter, public IVyFilterReleasable {};

}  // namespace VyApi

#endif
