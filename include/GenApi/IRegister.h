// IRegister: a block of bytes in the port's address space.
#ifndef GENAPI_IREGISTER_H
#define GENAPI_IREGISTER_H

#include <GenApi/IValue.h>

namespace GenApi_3_0 {

struct IRegister : virtual public IValue {
  /// Writes Length bytes. Raises AccessException when not writable and
  /// OutOfRangeException when Length differs from the register's length.
  virtual void Set(const uint8_t* pBuffer, int64_t Length, bool Verify = true) = 0;
  /// Reads Length bytes. Raises AccessException when not readable and
  /// OutOfRangeException when Length differs from the register's length.
  virtual void Get(uint8_t* pBuffer, int64_t Length, bool Verify = false, bool IgnoreCache = false) = 0;
  virtual int64_t GetLength() = 0;
  virtual int64_t GetAddress() = 0;
};

}  // namespace GenApi_3_0

#endif
