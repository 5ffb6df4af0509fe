// IInteger: a 64-bit integer feature.
#ifndef GENAPI_IINTEGER_H
#define GENAPI_IINTEGER_H

#include <GenApi/IValue.h>

namespace GenApi_3_0 {

struct IInteger : virtual public IValue {
  /// Sets the value. Raises AccessException when not writable; with Verify,
  /// OutOfRangeException below Min, above Max or off the Inc grid.
  virtual void SetValue(int64_t Value, bool Verify = true) = 0;
  /// SetValue(Value, true).
  virtual IInteger& operator=(int64_t Value) = 0;
  /// The value. Raises AccessException when not readable; with Verify,
  /// OutOfRangeException when the device's value is out of range.
  virtual int64_t GetValue(bool Verify = false, bool IgnoreCache = false) = 0;
  virtual int64_t operator()() = 0;
  virtual int64_t operator*() = 0;
  virtual int64_t GetMin() = 0;
  virtual int64_t GetMax() = 0;
  virtual EIncMode GetIncMode() = 0;
  /// The increment, 1 when the description gives none.
  virtual int64_t GetInc() = 0;
  virtual int64_autovector_t GetListOfValidValues(bool bounded = true) = 0;
  virtual ERepresentation GetRepresentation() = 0;
  virtual gcstring GetUnit() const = 0;
  virtual void ImposeMin(int64_t Value) = 0;
  virtual void ImposeMax(int64_t Value) = 0;
};

}  // namespace GenApi_3_0

#endif
