#include "Node/CommandNode.h"

#include <Base/GCException.h>
#include <GenApi/Pointer.h>

#include "Description/ElementReader.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

void CCommandNode::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  r.IntProperty("Value", "pValue", m_Value, true);
  r.IntProperty("CommandValue", "pCommandValue", m_CommandValue, true);
}

void CCommandNode::Execute(bool Verify) {
  AutoLock l(m_pMap->GetLock());
  mCheckWritable("Execute");
  m_Value.SetInt(m_CommandValue.GetInt(), Verify);
  if (!m_Value.IsPointer()) mNotifyChanged();
}

bool CCommandNode::mIsDone() {
  if (!m_Value.IsPointer() || !IsReadable(mGetAccessMode())) return true;
  if (m_Value.IsPointer()) m_Value.GetNode()->mInvalidateTerminals(m_pMap->mNextGeneration());
  return m_Value.GetInt() != m_CommandValue.GetInt();
}

bool CCommandNode::IsDone(bool) {
  AutoLock l(m_pMap->GetLock());
  bool done = mIsDone();
  if (done && m_Value.IsPointer()) mNotifyChanged();
  return done;
}

std::string CCommandNode::mToString(bool, bool) { return mIsDone() ? "0" : "1"; }

void CCommandNode::mFromString(const std::string& Value, bool Verify) {
  if (Value == "1" || Value == "true" || Value == "True") {
    m_Value.SetInt(m_CommandValue.GetInt(), Verify);
    if (!m_Value.IsPointer()) mNotifyChanged();
  } else if (Value != "0" && Value != "false" && Value != "False") {
    throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' does not execute a command", m_strName.c_str(), Value.c_str());
  }
}

}  // namespace detail
}  // namespace GenApi_3_0
