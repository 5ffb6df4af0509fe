#include "Node/FloatNode.h"

#include <cmath>
#include <limits>

namespace GenApi_3_0 {
namespace detail {

void CFloatBase::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  m_Value.Read(r, true);
  r.FloatProperty("Min", "pMin", m_Min);
  r.FloatProperty("Max", "pMax", m_Max);
  r.FloatProperty("Inc", "pInc", m_Inc);
  r.Text("Unit", m_strUnit);
  r.Representation("Representation", m_eRepresentation);
  r.DisplayNotation("DisplayNotation", m_eDisplayNotation);
  r.Int("DisplayPrecision", m_nDisplayPrecision);
}

void CFloatBase::mFinishLink() {
  for (CNodeBase* n : m_Value.Nodes())
    if (!n->mIsNumber())
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): its value node '%s' is not a number", m_strName.c_str(),
                                       m_pDesc->m_nLine, n->mName().c_str());
}

EAccessMode CFloatBase::mNaturalAccessMode() const {
  return const_cast<CIndexedValue&>(m_Value).Current().GetAccessMode();
}

double CFloatBase::mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  CValueProperty& v = m_Value.Current();
  switch (Part) {
    case vpValue:
      return v.GetFloat(Verify, IgnoreCache);
    case vpMin:
      if (m_Min.IsSet()) return m_Min.GetFloat();
      if (v.IsPointer()) return v.GetNode()->mGetFloat(false, false, vpMin);
      return -std::numeric_limits<double>::max();
    case vpMax:
      if (m_Max.IsSet()) return m_Max.GetFloat();
      if (v.IsPointer()) return v.GetNode()->mGetFloat(false, false, vpMax);
      return std::numeric_limits<double>::max();
    case vpInc:
      return m_Inc.IsSet() ? m_Inc.GetFloat() : 0.0;
  }
  return 0.0;
}

int64_t CFloatBase::mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  double d = mGetFloat(Verify, IgnoreCache, Part);
  if (!std::isfinite(d) || std::fabs(d) >= 9.2e18)
    return d > 0 ? std::numeric_limits<int64_t>::max() : std::numeric_limits<int64_t>::min();
  return static_cast<int64_t>(std::llround(d));
}

void CFloatBase::mSetFloat(double Value, bool Verify) {
  CValueProperty& v = m_Value.Current();
  v.SetFloat(Value, Verify);
  if (!v.IsPointer()) mNotifyChanged();
}

}  // namespace detail
}  // namespace GenApi_3_0
