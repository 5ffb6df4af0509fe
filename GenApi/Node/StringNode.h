// CStringNode: a text feature, literal or through another string node.
#ifndef GENAPI_NODE_STRINGNODE_H
#define GENAPI_NODE_STRINGNODE_H

#include <GenApi/IString.h>

#include "Node/ValueProperty.h"

namespace GenApi_3_0 {
namespace detail {

class CStringNode : public CNodeBase, public virtual IString {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  EAccessMode mNaturalAccessMode() const override { return m_Value.GetAccessMode(); }
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIString; }

  void SetValue(const gcstring& Value, bool Verify = true) override;
  IString& operator=(const gcstring& Value) override;
  gcstring GetValue(bool Verify = false, bool IgnoreCache = false) override;
  gcstring operator()() override { return GetValue(); }
  gcstring operator*() override { return GetValue(); }
  int64_t GetMaxLength() override;

  std::string mGetString(bool Verify, bool IgnoreCache) override { return m_Value.GetString(Verify, IgnoreCache); }
  void mSetString(const std::string& Value, bool Verify) override;
  std::string mToString(bool Verify, bool IgnoreCache) override { return mGetString(Verify, IgnoreCache); }
  void mFromString(const std::string& Value, bool Verify) override { mSetString(Value, Verify); }

private:
  CValueProperty m_Value;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
