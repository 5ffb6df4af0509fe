// IPort: the register space a node map reads and writes.
#ifndef GENAPI_IPORT_H
#define GENAPI_IPORT_H

#include <cstdint>

#include <GenApi/IBase.h>

namespace GenApi_3_0 {

struct IPort : virtual public IBase {
  /// Reads Length bytes at Address into pBuffer. Implementations raise what
  /// their transport raises.
  virtual void Read(void* pBuffer, int64_t Address, int64_t Length) = 0;
  /// Writes Length bytes from pBuffer to Address.
  virtual void Write(const void* pBuffer, int64_t Address, int64_t Length) = 0;
};

}  // namespace GenApi_3_0

#endif
