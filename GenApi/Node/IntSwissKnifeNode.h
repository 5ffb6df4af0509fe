// CIntSwissKnifeNode: a read-only integer computed by a formula in 64-bit
// integer arithmetic.
#ifndef GENAPI_NODE_INTSWISSKNIFENODE_H
#define GENAPI_NODE_INTSWISSKNIFENODE_H

#include "Node/FormulaBinding.h"
#include "Node/IntegerInterface.h"

namespace GenApi_3_0 {
namespace detail {

class CIntSwissKnifeBase : public CNodeBase {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  void mFinishLink() override { m_Formulas.Link(this); }
  bool mIsIntegerLike() const override { return true; }
  EAccessMode mNaturalAccessMode() const override { return RO; }
  int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;

protected:
  CFormulaBinding m_Formulas;
  size_t m_nFormula = 0;
  ERepresentation m_eRepresentation = PureNumber;
  std::string m_strUnit;
};

class CIntSwissKnifeNode : public CIntegerInterface<CIntSwissKnifeBase> {
public:
  using CIntegerInterface<CIntSwissKnifeBase>::CIntegerInterface;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
