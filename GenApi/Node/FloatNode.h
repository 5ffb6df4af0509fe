// CFloatNode: a float feature whose value is a literal, another node, or one
// of several chosen by pIndex.
#ifndef GENAPI_NODE_FLOATNODE_H
#define GENAPI_NODE_FLOATNODE_H

#include "Node/FloatInterface.h"
#include "Node/IndexedValue.h"

namespace GenApi_3_0 {
namespace detail {

class CFloatBase : public CNodeBase {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  void mFinishLink() override;
  bool mIsNumber() const override { return true; }
  EAccessMode mNaturalAccessMode() const override;
  double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  void mSetFloat(double Value, bool Verify) override;
  void mSetInt(int64_t Value, bool Verify) override { mSetFloat(static_cast<double>(Value), Verify); }
  bool mHasFloatInc() const { return m_Inc.IsSet(); }

protected:
  CIndexedValue m_Value;
  CValueProperty m_Min, m_Max, m_Inc;
  ERepresentation m_eRepresentation = PureNumber;
  std::string m_strUnit;
  EDisplayNotation m_eDisplayNotation = fnAutomatic;
  int64_t m_nDisplayPrecision = 6;
};

class CFloatNode : public CFloatInterface<CFloatBase> {
public:
  using CFloatInterface<CFloatBase>::CFloatInterface;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
