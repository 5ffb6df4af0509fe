// The transport-layer library's public interface: image model, pixel-format
// service, kit initialisation and the kit's exceptions.
#ifndef VYAPI_VYAPI_TL_H
#define VYAPI_VYAPI_TL_H

#include <VyApi_IP/EVyPixelFormatNamingConvention.h>
#include <VyApi_IP/IVyAllocator.h>
#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/IVyImageBuffer.h>
#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/IVyReleasable.h>
#include <VyApi_IP/VyApiInit.h>
#include <VyApi_IP/VyException.h>
#include <VyApi_IP/VyImageBuffer.h>
#include <VyApi_IP/VyPixelComponent.h>
#include <VyApi_IP/VyPixelTypes.h>
#include <VyApi_IP/VyROIImage.h>

namespace VyApi {

/// A new, empty image buffer using pAllocator, or plain heap memory when it
/// is null. The caller owns it until Release(). Raises BadAllocException.
IVyImageBufferReleasable* CreateIVyImageBuffer(IVyAllocator* pAllocator = nullptr);

}  // namespace VyApi

#endif
