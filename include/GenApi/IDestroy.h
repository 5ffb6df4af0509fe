// IDestroy: objects made by the engine that the caller ends explicitly.
#ifndef GENAPI_IDESTROY_H
#define GENAPI_IDESTROY_H

#include <Base/GCNamespace.h>

namespace GenApi_3_0 {

struct IDestroy {
  /// Destroys the object; it must not be used afterwards. Raises nothing.
  virtual void Destroy() = 0;
  virtual ~IDestroy() = default;
};

}  // namespace GenApi_3_0

#endif
