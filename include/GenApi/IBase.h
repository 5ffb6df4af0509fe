// IBase: the root of every GenApi interface.
#ifndef GENAPI_IBASE_H
#define GENAPI_IBASE_H

#include <GenApi/Types.h>

namespace GenApi_3_0 {

struct IBase {
  /// The current access mode. Nodes may read other nodes (pIsImplemented,
  /// pIsAvailable, pIsLocked) to find it and raise what those reads raise.
  virtual EAccessMode GetAccessMode() const = 0;
  virtual ~IBase() = default;
};

}  // namespace GenApi_3_0

#endif
