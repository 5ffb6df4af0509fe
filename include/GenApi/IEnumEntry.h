// IEnumEntry: one entry of an enumeration.
#ifndef GENAPI_IENUMENTRY_H
#define GENAPI_IENUMENTRY_H

#include <GenApi/IValue.h>

namespace GenApi_3_0 {

struct IEnumEntry : virtual public IValue {
  virtual int64_t GetValue() = 0;
  /// The entry's name without the "EnumEntry_<Enumeration>_" prefix.
  virtual gcstring GetSymbolic() const = 0;
  virtual double GetNumericValue() = 0;
  virtual bool IsSelfClearing() = 0;
};

}  // namespace GenApi_3_0

#endif
