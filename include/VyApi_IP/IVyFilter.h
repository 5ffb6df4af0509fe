// Filters change an image in place.
#ifndef VYAPI_IVYFILTER_H
#define VYAPI_IVYFILTER_H

#include <GenApi/INodeMap.h>
#include <VyApi_IP/IVyCallback.h>
#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/IVyModuleInfo.h>
#include <VyApi_IP/IVyReleasable.h>

namespace VyApi {

class IVyFilter : public IVyRegisterCallback {
public:
  /// The info object of the filter's type; owned by the library.
  virtual IVyFilterInfo* GetIVyFilterInfo() const = 0;
  /// Works on pImage in place and returns it.
  /// Raises RuntimeException "Not supported pixelformat %s" for a format the
  /// filter does not take (the image is left untouched), and what the filter's
  /// own interface documents.
  virtual IVyImage* Filter(IVyImage* pImage) = 0;
  /// The filter's node map, made on the first call and owned by the filter.
  /// The first call is not safe for two threads. Raises what the node-map
  /// engine raises while parsing, RuntimeException "Node map already created"
  /// when a second thread lost the race of the first call, and
  /// BadAllocException when no memory is left.
  virtual GenApi_3_0::INodeMap* GetINodeMap() = 0;
};

/// A filter as the factory gives it: Release() destroys it at once.
class IVyFilterReleasable : public IVyFilter, public IVyReleasable {};

}  // namespace VyApi

#endif
