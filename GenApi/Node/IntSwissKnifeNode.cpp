#include "Node/IntSwissKnifeNode.h"

#include <limits>

namespace GenApi_3_0 {
namespace detail {

void CIntSwissKnifeBase::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  m_Formulas.Read(r, true);
  const SElement* f = r.Take("Formula");
  if (!f) r.FailMissing("Formula");
  m_nFormula = m_Formulas.Add(r, *f);
  r.Text("Unit", m_strUnit);
  r.Representation("Representation", m_eRepresentation);
}

int64_t CIntSwissKnifeBase::mGetInt(bool, bool, EValuePart_t Part) {
  switch (Part) {
    case vpMin: return std::numeric_limits<int64_t>::min();
    case vpMax: return std::numeric_limits<int64_t>::max();
    case vpInc: return 1;
    case vpValue: break;
  }
  return m_Formulas.EvaluateInt(m_nFormula);
}

double CIntSwissKnifeBase::mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  return static_cast<double>(mGetInt(Verify, IgnoreCache, Part));
}

}  // namespace detail
}  // namespace GenApi_3_0
