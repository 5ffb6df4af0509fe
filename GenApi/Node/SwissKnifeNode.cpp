#include "Node/SwissKnifeNode.h"

#include <cmath>
#include <limits>

namespace GenApi_3_0 {
namespace detail {

int64_t SaturatingRound(double d) {
  if (std::isnan(d)) return 0;
  if (d >= 9.2233720368547748e18) return std::numeric_limits<int64_t>::max();
  if (d <= -9.2233720368547758e18) return std::numeric_limits<int64_t>::min();
  return static_cast<int64_t>(std::llround(d));
}

void CSwissKnifeBase::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  m_Formulas.Read(r, false);
  const SElement* f = r.Take("Formula");
  if (!f) r.FailMissing("Formula");
  m_nFormula = m_Formulas.Add(r, *f);
  r.Text("Unit", m_strUnit);
  r.Representation("Representation", m_eRepresentation);
  r.DisplayNotation("DisplayNotation", m_eDisplayNotation);
  r.Int("DisplayPrecision", m_nDisplayPrecision);
}

double CSwissKnifeBase::mGetFloat(bool, bool, EValuePart_t Part) {
  switch (Part) {
    case vpMin: return -std::numeric_limits<double>::max();
    case vpMax: return std::numeric_limits<double>::max();
    case vpInc: return 0.0;
    case vpValue: break;
  }
  return m_Formulas.EvaluateFloat(m_nFormula);
}

int64_t CSwissKnifeBase::mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  return SaturatingRound(mGetFloat(Verify, IgnoreCache, Part));
}

}  // namespace detail
}  // namespace GenApi_3_0
