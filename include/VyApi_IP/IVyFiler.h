// Filers write files.
#ifndef VYAPI_IVYFILER_H
#define VYAPI_IVYFILER_H

#include <GenApi/INodeMap.h>
#include <VyApi_IP/IVyCallback.h>
#include <VyApi_IP/IVyModuleInfo.h>
#include <VyApi_IP/IVyReleasable.h>

namespace VyApi {

class IVyFiler : public IVyRegisterCallback {
public:
  /// The info object of the filer's type; owned by the library.
  virtual IVyFilerInfo* GetIVyFilerInfo() const = 0;
  /// The filer's node map; see IVyFilter::GetINodeMap for what it raises.
  virtual GenApi_3_0::INodeMap* GetINodeMap() = 0;
};

class IVyFilerReleasable : public IVyFiler, public IVyReleasable {};

}  // namespace VyApi

#endif
