// CIntegerNode: an integer feature whose value is a literal, another node
// (pValue, with pValueCopy), or one of several chosen by pIndex.
#ifndef GENAPI_NODE_INTEGERNODE_H
#define GENAPI_NODE_INTEGERNODE_H

#include <vector>

#include "Node/IntegerInterface.h"
#include "Node/IndexedValue.h"

namespace GenApi_3_0 {
namespace detail {

class CIntegerBase : public CNodeBase {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  void mFinishLink() override;
  bool mIsIntegerLike() const override { return true; }
  EAccessMode mNaturalAccessMode() const override;
  int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  void mSetInt(int64_t Value, bool Verify) override;
  void mSetFloat(double Value, bool Verify) override;

protected:
  CIndexedValue m_Value;
  std::vector<CNodeBase*> m_vecValueCopies;
  CValueProperty m_Min, m_Max, m_Inc;
  EAccessMode m_eAccessMode = RW;
  ERepresentation m_eRepresentation = PureNumber;
  std::string m_strUnit;
};

class CIntegerNode : public CIntegerInterface<CIntegerBase> {
public:
  using CIntegerInterface<CIntegerBase>::CIntegerInterface;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
