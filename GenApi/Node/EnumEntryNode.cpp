#include "Node/EnumEntryNode.h"

#include "Description/ElementReader.h"

namespace GenApi_3_0 {
namespace detail {

void CEnumEntryNode::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  m_strSymbolic = r.Desc().m_strSymbolic;
  if (!r.Int("Value", m_nValue)) r.FailMissing("Value");
  m_bHasNumeric = r.Float("NumericValue", m_dblNumericValue);
  std::string symbolic;
  if (r.Text("Symbolic", symbolic)) m_strSymbolic = symbolic;
  r.YesNo("IsSelfClearing", m_bSelfClearing);
}

}  // namespace detail
}  // namespace GenApi_3_0
