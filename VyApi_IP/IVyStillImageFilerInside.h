// The library's own view of the still-image filer: its user interface and its
// releasable filer interface (IVyFiler is held twice, on purpose).
#ifndef VYAPI_IP_IVYSTILLIMAGEFILERINSIDE_H
#define VYAPI_IP_IVYSTILLIMAGEFILERINSIDE_H

#include <VyApi_IP/IVyStillImageFiler.h>

namespace VyApi {

class IVyStillImageFilerInside : public IVyStillImageFiler, public IVyFilerReleasable {};

}  // namespace VyApi

#endif
