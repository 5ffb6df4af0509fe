// IBoolean: an on/off feature.
#ifndef GENAPI_IBOOLEAN_H
#define GENAPI_IBOOLEAN_H

#include <GenApi/IValue.h>

namespace GenApi_3_0 {

struct IBoolean : virtual public IValue {
  /// Writes OnValue or OffValue. Raises AccessException when not writable.
  virtual void SetValue(bool Value, bool Verify = true) = 0;
  virtual IBoolean& operator=(bool Value) = 0;
  /// Reads the value. Raises AccessException when not readable and
  /// LogicalErrorException when the value is neither OnValue nor OffValue.
  virtual bool GetValue(bool Verify = false, bool IgnoreCache = false) const = 0;
  virtual bool operator()() const = 0;
  virtual bool operator*() const = 0;
};

}  // namespace GenApi_3_0

#endif
