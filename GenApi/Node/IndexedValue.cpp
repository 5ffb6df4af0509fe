#include "Node/IndexedValue.h"

#include <Base/GCException.h>

namespace GenApi_3_0 {
namespace detail {

void CIndexedValue::Read(CElementReader& r, bool Float) {
  bool plain = Float ? r.FloatProperty("Value", "pValue", m_Value) : r.IntProperty("Value", "pValue", m_Value);
  m_bIndexed = r.Pointer("pIndex", m_pIndex, lkReads);
  if (plain && m_bIndexed) r.Fail(nullptr, "Value|pValue and pIndex are given together");
  if (!plain && !m_bIndexed) r.FailMissing("Value, pValue or pIndex");
  if (!m_bIndexed) return;
  // Collect first so that the properties no longer move when references bind.
  std::vector<std::pair<const SElement*, bool>> entries;
  for (const SElement& e : r.Desc().m_vecElements)
    if (e.m_strName == "ValueIndexed" || e.m_strName == "pValueIndexed") entries.emplace_back(&e, e.m_strName[0] == 'p');
  r.TakeAll("ValueIndexed");
  r.TakeAll("pValueIndexed");
  m_vecIndexed.resize(entries.size());
  for (size_t i = 0; i < entries.size(); ++i) {
    const SElement& e = *entries[i].first;
    const std::string* idx = e.FindAttribute("Index");
    int64_t k;
    if (!idx || !CElementReader::ParseInt(*idx, k)) r.Fail(&e, e.m_strName + " needs an integer Index attribute");
    m_vecIndexed[i].first = k;
    CValueProperty* p = &m_vecIndexed[i].second;
    if (entries[i].second) {
      r.Reference(e, e.m_strName, e.m_strText, lkReads, [p](CNodeBase* n) { p->SetPointer(n); });
    } else if (Float) {
      double v;
      if (!CElementReader::ParseFloat(e.m_strText, v)) r.Fail(&e, "ValueIndexed '" + e.m_strText + "' is not a number");
      p->SetLiteral(v);
    } else {
      int64_t v;
      if (!CElementReader::ParseInt(e.m_strText, v)) r.Fail(&e, "ValueIndexed '" + e.m_strText + "' is not an integer");
      p->SetLiteral(v);
    }
  }
  bool def = Float ? r.FloatProperty("ValueDefault", "pValueDefault", m_Default)
                   : r.IntProperty("ValueDefault", "pValueDefault", m_Default);
  if (!def) r.FailMissing("ValueDefault or pValueDefault");
}

CValueProperty& CIndexedValue::Current() {
  if (!m_pIndex) return m_Value;
  int64_t k = m_pIndex->mGetInt(false, false);
  for (auto& e : m_vecIndexed)
    if (e.first == k) return e.second;
  return m_Default;
}

std::vector<CNodeBase*> CIndexedValue::Nodes() const {
  std::vector<CNodeBase*> v;
  if (m_Value.IsPointer()) v.push_back(m_Value.GetNode());
  for (const auto& e : m_vecIndexed)
    if (e.second.IsPointer()) v.push_back(e.second.GetNode());
  if (m_Default.IsPointer()) v.push_back(m_Default.GetNode());
  return v;
}

}  // namespace detail
}  // namespace GenApi_3_0
