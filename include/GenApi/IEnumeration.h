// IEnumeration: a feature taking one of a list of named values.
#ifndef GENAPI_IENUMERATION_H
#define GENAPI_IENUMERATION_H

#include <GenApi/IEnumEntry.h>

namespace GenApi_3_0 {

struct IEnumeration : virtual public IValue {
  /// Symbolic names of the entries that are currently available.
  virtual void GetSymbolics(StringList_t& Symbolics) = 0;
  /// All entries, as nodes.
  virtual void GetEntries(NodeList_t& Entries) = 0;
  /// Sets the entry by symbolic name. Raises InvalidArgumentException for an
  /// unknown name, AccessException when the node or entry is not writable.
  virtual IEnumeration& operator=(const gcstring& ValueStr) = 0;
  virtual IEnumeration& operator=(const char* pValueStr) = 0;
  /// Sets the entry by value. Raises OutOfRangeException (Verify) for a value
  /// of no available entry, AccessException when not writable.
  virtual void SetIntValue(int64_t Value, bool Verify = true) = 0;
  virtual IEnumeration& operator=(int64_t Value) = 0;
  IEnumeration& operator=(int Value) { return operator=(static_cast<int64_t>(Value)); }
  /// The current entry's symbolic name.
  virtual gcstring operator*() = 0;
  virtual gcstring operator()() = 0;
  /// The current value. Raises AccessException when not readable.
  virtual int64_t GetIntValue(bool Verify = false, bool IgnoreCache = false) = 0;
  /// The entry of that symbolic name, or null.
  virtual IEnumEntry* GetEntryByName(const gcstring& Symbolic) = 0;
  /// The entry of that value, or null.
  virtual IEnumEntry* GetEntry(const int64_t IntValue) = 0;
  /// The entry of the current value. Raises AccessException when not
  /// readable and LogicalErrorException when the value matches no entry.
  virtual IEnumEntry* GetCurrentEntry(bool Verify = false, bool IgnoreCache = false) = 0;
};

}  // namespace GenApi_3_0

#endif
