// CBooleanNode: on/off over an integer value with OnValue and OffValue.
#ifndef GENAPI_NODE_BOOLEANNODE_H
#define GENAPI_NODE_BOOLEANNODE_H

#include <GenApi/IBoolean.h>

#include "Node/ValueProperty.h"

namespace GenApi_3_0 {
namespace detail {

class CBooleanNode : public CNodeBase, public virtual IBoolean {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  void mFinishLink() override;
  bool mIsIntegerLike() const override { return true; }
  EAccessMode mNaturalAccessMode() const override { return m_Value.GetAccessMode(); }
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIBoolean; }

  void SetValue(bool Value, bool Verify = true) override;
  IBoolean& operator=(bool Value) override;
  bool GetValue(bool Verify = false, bool IgnoreCache = false) const override;
  bool operator()() const override { return GetValue(); }
  bool operator*() const override { return GetValue(); }

  /// 1 or 0; raises LogicalErrorException for a value that is neither
  /// OnValue nor OffValue.
  int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  void mSetInt(int64_t Value, bool Verify) override;
  std::string mToString(bool Verify, bool IgnoreCache) override;
  void mFromString(const std::string& Value, bool Verify) override;

private:
  CValueProperty m_Value;
  int64_t m_nOnValue = 1;
  int64_t m_nOffValue = 0;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
