#include "Node/BooleanNode.h"

#include <algorithm>

#include <Base/GCException.h>

#include "Description/ElementReader.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

void CBooleanNode::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  if (const SElement* e = r.Take("Value")) {
    std::string t = e->m_strText;
    if (t == "true" || t == "1") m_Value.SetLiteral(int64_t(1));
    else if (t == "false" || t == "0") m_Value.SetLiteral(int64_t(0));
    else r.Fail(e, "Value '" + t + "' is not a boolean");
  } else {
    r.IntProperty(nullptr, "pValue", m_Value, true);
  }
  r.Int("OnValue", m_nOnValue);
  r.Int("OffValue", m_nOffValue);
  if (!m_Value.IsPointer()) {
    // A literal holds true/false; map it onto On/Off.
    m_Value.SetLiteral(m_Value.GetInt() ? m_nOnValue : m_nOffValue);
  }
}

void CBooleanNode::mFinishLink() {
  if (m_Value.IsPointer() && !m_Value.GetNode()->mIsIntegerLike())
    throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): pValue '%s' is not an integer node", m_strName.c_str(),
                                     m_pDesc->m_nLine, m_Value.GetNode()->mName().c_str());
}

int64_t CBooleanNode::mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  if (Part == vpMin) return 0;
  if (Part == vpMax || Part == vpInc) return 1;
  int64_t v = m_Value.GetInt(Verify, IgnoreCache);
  if (v == m_nOnValue) return 1;
  if (v == m_nOffValue) return 0;
  throw LOGICAL_ERROR_EXCEPTION("Node '%s': the value %lld is neither OnValue %lld nor OffValue %lld",
                                m_strName.c_str(), static_cast<long long>(v), static_cast<long long>(m_nOnValue),
                                static_cast<long long>(m_nOffValue));
}

double CBooleanNode::mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  return static_cast<double>(mGetInt(Verify, IgnoreCache, Part));
}

void CBooleanNode::mSetInt(int64_t Value, bool Verify) {
  m_Value.SetInt(Value ? m_nOnValue : m_nOffValue, Verify);
  if (!m_Value.IsPointer()) mNotifyChanged();
}

void CBooleanNode::SetValue(bool Value, bool Verify) {
  AutoLock l(m_pMap->GetLock());
  mCheckWritable("SetValue");
  mSetInt(Value ? 1 : 0, Verify);
}

IBoolean& CBooleanNode::operator=(bool Value) {
  SetValue(Value);
  return *this;
}

bool CBooleanNode::GetValue(bool Verify, bool IgnoreCache) const {
  AutoLock l(m_pMap->GetLock());
  mCheckReadable("GetValue");
  return const_cast<CBooleanNode*>(this)->mGetInt(Verify, IgnoreCache) != 0;
}

std::string CBooleanNode::mToString(bool Verify, bool IgnoreCache) {
  return mGetInt(Verify, IgnoreCache) ? "1" : "0";
}

void CBooleanNode::mFromString(const std::string& Value, bool Verify) {
  std::string t = Value;
  std::transform(t.begin(), t.end(), t.begin(), ::tolower);
  if (t == "1" || t == "true") mSetInt(1, Verify);
  else if (t == "0" || t == "false") mSetInt(0, Verify);
  else throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is not a boolean", m_strName.c_str(), Value.c_str());
}

}  // namespace detail
}  // namespace GenApi_3_0
