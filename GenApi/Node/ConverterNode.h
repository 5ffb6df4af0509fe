// CConverterNode and CIntConverterNode: a feature that maps its value to
// another node's value with FormulaTo (variable FROM) and back with
// FormulaFrom (variable TO).
#ifndef GENAPI_NODE_CONVERTERNODE_H
#define GENAPI_NODE_CONVERTERNODE_H

#include "Node/FloatInterface.h"
#include "Node/FormulaBinding.h"
#include "Node/IntegerInterface.h"
#include "Node/ValueProperty.h"

namespace GenApi_3_0 {
namespace detail {

/// The shared part; IntegerMode chooses the arithmetic of both formulas.
class CConverterBase : public CNodeBase {
public:
  CConverterBase(CNodeMap* pMap, const SNodeDesc& Desc, bool IntegerMode)
      : CNodeBase(pMap, Desc), m_bIntegerMode(IntegerMode) {}
  void mReadElements(CElementReader& Reader) override;
  void mFinishLink() override;
  bool mIsNumber() const override { return true; }
  bool mIsIntegerLike() const override { return m_bIntegerMode; }
  EAccessMode mNaturalAccessMode() const override { return m_Value.GetAccessMode(); }
  double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  void mSetFloat(double Value, bool Verify) override;
  void mSetInt(int64_t Value, bool Verify) override;
  bool mHasFloatInc() const { return false; }

protected:
  double mFrom(double To) const;
  bool m_bIntegerMode;
  CFormulaBinding m_Formulas;
  size_t m_nTo = 0, m_nFrom = 0;
  CValueProperty m_Value;
  ESlope m_eSlope = Automatic;
  bool m_bIsLinear = false;
  ERepresentation m_eRepresentation = PureNumber;
  std::string m_strUnit;
  EDisplayNotation m_eDisplayNotation = fnAutomatic;
  int64_t m_nDisplayPrecision = 6;
};

class CFloatConverterBase : public CConverterBase {
public:
  CFloatConverterBase(CNodeMap* pMap, const SNodeDesc& Desc) : CConverterBase(pMap, Desc, false) {}
};

class CIntConverterBase : public CConverterBase {
public:
  CIntConverterBase(CNodeMap* pMap, const SNodeDesc& Desc) : CConverterBase(pMap, Desc, true) {}
};

class CConverterNode : public CFloatInterface<CFloatConverterBase> {
public:
  using CFloatInterface<CFloatConverterBase>::CFloatInterface;
};

class CIntConverterNode : public CIntegerInterface<CIntConverterBase> {
public:
  using CIntegerInterface<CIntConverterBase>::CIntegerInterface;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
