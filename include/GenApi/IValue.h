// IValue: a node with a value that can be shown and set as text.
#ifndef GENAPI_IVALUE_H
#define GENAPI_IVALUE_H

#include <GenApi/INode.h>

namespace GenApi_3_0 {

struct IValue : virtual public IBase {
  virtual INode* GetNode() = 0;
  /// The value as text. Raises AccessException when not readable, and what
  /// the value's own read raises.
  virtual gcstring ToString(bool Verify = false, bool IgnoreCache = false) = 0;
  /// Sets the value from text. Raises InvalidArgumentException when the text
  /// does not parse, AccessException when not writable, OutOfRangeException
  /// when Verify finds the value out of range.
  virtual void FromString(const gcstring& ValueStr, bool Verify = true) = 0;
  /// True when a read would be served from the cache.
  virtual bool IsValueCacheValid() const = 0;
};

}  // namespace GenApi_3_0

#endif
