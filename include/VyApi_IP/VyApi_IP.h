// Umbrella header of the image-processing library: every public interface of
// the library and of the transport-layer library, and the GenICam headers
// they need.
#ifndef VYAPI_VYAPI_IP_H
#define VYAPI_VYAPI_IP_H

#include <GenICam.h>
#include <VyApi_IP/VyApi_TL.h>

#include <VyApi_IP/EVyModuleType.h>
#include <VyApi_IP/IVyCallback.h>
#include <VyApi_IP/IVyModuleInfo.h>
#include <VyApi_IP/IVyFilter.h>
#include <VyApi_IP/IVyConverter.h>
#include <VyApi_IP/IVyFiler.h>
#include <VyApi_IP/IVyGammaCorrectionFilter.h>
#include <VyApi_IP/IVyPixelFormatConverter.h>
#include <VyApi_IP/IVyStillImageFiler.h>
#include <VyApi_IP/IVyReverseConverter.h>
#include <VyApi_IP/VyAutoPtr.h>
#include <VyApi_IP/VyAutoPtrArray.h>
#include <VyApi_IP/VyFilterPtrList.h>
#include <VyApi_IP/VyFactory.h>

#endif
