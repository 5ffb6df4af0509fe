// Converters write a new image into a destination buffer.
#ifndef VYAPI_IVYCONVERTER_H
#define VYAPI_IVYCONVERTER_H

#include <GenApi/INodeMap.h>
#include <VyApi_IP/IVyCallback.h>
#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/IVyImageBuffer.h>
#include <VyApi_IP/IVyModuleInfo.h>
#include <VyApi_IP/IVyReleasable.h>

namespace VyApi {

class IVyConverter : public IVyRegisterCallback {
public:
  /// The info object of the converter; it lives as long as the converter.
  virtual IVyConverterInfo* GetIVyConverterInfo() const = 0;
  /// Converts pSrc into pDest, giving pDest its size and format first.
  /// Raises RuntimeException "Not supported pixelformat %s" for a pair the
  /// converter does not reach, and what the converter's interface documents.
  virtual void Convert(IVyImage* pSrc, IVyImageBuffer* pDest) = 0;
  /// The converter's node map; see IVyFilter::GetINodeMap for what it raises.
  virtual GenApi_3_0::INodeMap* GetINodeMap() = 0;
};

class IVyConverterReleasable : public IVyConverter, public IVyReleasable {};

}  // namespace VyApi

#endif
