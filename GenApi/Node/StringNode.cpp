#include "Node/StringNode.h"

#include <limits>

#include <GenApi/IString.h>

#include "Description/ElementReader.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

void CStringNode::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  r.TextProperty("Value", "pValue", m_Value, true);
}

void CStringNode::mSetString(const std::string& Value, bool Verify) {
  m_Value.SetString(Value, Verify);
  if (!m_Value.IsPointer()) mNotifyChanged();
}

void CStringNode::SetValue(const gcstring& Value, bool Verify) {
  AutoLock l(m_pMap->GetLock());
  mCheckWritable("SetValue");
  mSetString(Value.str(), Verify);
}

IString& CStringNode::operator=(const gcstring& Value) {
  SetValue(Value);
  return *this;
}

gcstring CStringNode::GetValue(bool Verify, bool IgnoreCache) {
  AutoLock l(m_pMap->GetLock());
  mCheckReadable("GetValue");
  return mGetString(Verify, IgnoreCache);
}

int64_t CStringNode::GetMaxLength() {
  AutoLock l(m_pMap->GetLock());
  if (m_Value.IsPointer())
    if (auto* s = dynamic_cast<IString*>(m_Value.GetNode())) return s->GetMaxLength();
  return std::numeric_limits<int64_t>::max();
}

}  // namespace detail
}  // namespace GenApi_3_0
