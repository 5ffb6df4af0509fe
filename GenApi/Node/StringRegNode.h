// CStringRegNode: a zero-padded text held in a register.
#ifndef GENAPI_NODE_STRINGREGNODE_H
#define GENAPI_NODE_STRINGREGNODE_H

#include <GenApi/IString.h>

#include "Node/RegisterBase.h"

namespace GenApi_3_0 {
namespace detail {

class CStringRegNode : public CRegisterBase, public virtual IString {
public:
  using CRegisterBase::CRegisterBase;

  /// Raises OutOfRangeException for a text longer than the register.
  void SetValue(const gcstring& Value, bool Verify = true) override;
  IString& operator=(const gcstring& Value) override;
  gcstring GetValue(bool Verify = false, bool IgnoreCache = false) override;
  gcstring operator()() override { return GetValue(); }
  gcstring operator*() override { return GetValue(); }
  int64_t GetMaxLength() override;
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIString; }

  std::string mGetString(bool Verify, bool IgnoreCache) override;
  void mSetString(const std::string& Value, bool Verify) override;
  std::string mToString(bool Verify, bool IgnoreCache) override { return mGetString(Verify, IgnoreCache); }
  void mFromString(const std::string& Value, bool Verify) override { mSetString(Value, Verify); }
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
