// IString: a text feature.
#ifndef GENAPI_ISTRING_H
#define GENAPI_ISTRING_H

#include <GenApi/IValue.h>

namespace GenApi_3_0 {

struct IString : virtual public IValue {
  /// Sets the text. Raises AccessException when not writable and
  /// OutOfRangeException when it is longer than GetMaxLength().
  virtual void SetValue(const gcstring& Value, bool Verify = true) = 0;
  virtual IString& operator=(const gcstring& Value) = 0;
  /// The text. Raises AccessException when not readable.
  virtual gcstring GetValue(bool Verify = false, bool IgnoreCache = false) = 0;
  virtual gcstring operator()() = 0;
  virtual gcstring operator*() = 0;
  virtual int64_t GetMaxLength() = 0;
};

}  // namespace GenApi_3_0

#endif
