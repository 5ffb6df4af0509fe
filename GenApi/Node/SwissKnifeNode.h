// CSwissKnifeNode: a read-only float computed by a formula in double
// arithmetic, with functions and the constants PI and E.
#ifndef GENAPI_NODE_SWISSKNIFENODE_H
#define GENAPI_NODE_SWISSKNIFENODE_H

#include "Node/FloatInterface.h"
#include "Node/FormulaBinding.h"

namespace GenApi_3_0 {
namespace detail {

class CSwissKnifeBase : public CNodeBase {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  void mFinishLink() override { m_Formulas.Link(this); }
  bool mIsNumber() const override { return true; }
  EAccessMode mNaturalAccessMode() const override { return RO; }
  double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  bool mHasFloatInc() const { return false; }

protected:
  CFormulaBinding m_Formulas;
  size_t m_nFormula = 0;
  ERepresentation m_eRepresentation = PureNumber;
  std::string m_strUnit;
  EDisplayNotation m_eDisplayNotation = fnAutomatic;
  int64_t m_nDisplayPrecision = 6;
};

class CSwissKnifeNode : public CFloatInterface<CSwissKnifeBase> {
public:
  using CFloatInterface<CSwissKnifeBase>::CFloatInterface;
};

/// Rounds a double to int64, saturating, NaN to 0.
int64_t SaturatingRound(double Value);

}  // namespace detail
}  // namespace GenApi_3_0

#endif
