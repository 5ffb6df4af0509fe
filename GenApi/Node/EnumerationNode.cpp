#include "Node/EnumerationNode.h"

#include <Base/GCException.h>
#include <GenApi/Pointer.h>

#include "Description/ElementReader.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

void CEnumerationNode::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  r.IntProperty("Value", "pValue", m_Value, true);
  r.PointerList("EnumEntry", m_vecEntryNodes, lkPlain);
  if (m_vecEntryNodes.empty() && !r.Has("EnumEntry")) {
    bool any = false;
    for (const auto& e : r.Desc().m_vecElements) any = any || e.m_strName == "EnumEntry";
    if (!any) r.FailMissing("EnumEntry");
  }
}

void CEnumerationNode::mFinishLink() {
  for (CNodeBase* n : m_vecEntryNodes) {
    auto* e = dynamic_cast<CEnumEntryNode*>(n);
    if (!e)
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): entry '%s' is not an EnumEntry", m_strName.c_str(),
                                       m_pDesc->m_nLine, n->mName().c_str());
    m_vecEntries.push_back(e);
  }
  if (m_Value.IsPointer() && !m_Value.GetNode()->mIsIntegerLike())
    throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): pValue '%s' is not an integer node", m_strName.c_str(),
                                     m_pDesc->m_nLine, m_Value.GetNode()->mName().c_str());
}

CEnumEntryNode* CEnumerationNode::mFindValue(int64_t v) const {
  for (CEnumEntryNode* e : m_vecEntries)
    if (e->mValue() == v && IsImplemented(e->mGetAccessMode())) return e;
  return nullptr;
}

CEnumEntryNode* CEnumerationNode::mFindSymbolic(const std::string& s) const {
  for (CEnumEntryNode* e : m_vecEntries)
    if (e->mSymbolic() == s) return e;
  return nullptr;
}

CEnumEntryNode* CEnumerationNode::mCurrent(bool Verify, bool IgnoreCache) {
  int64_t v = m_Value.GetInt(Verify, IgnoreCache);
  CEnumEntryNode* e = mFindValue(v);
  if (!e)
    throw LOGICAL_ERROR_EXCEPTION("Node '%s': the value %lld matches no entry of the enumeration", m_strName.c_str(),
                                  static_cast<long long>(v));
  return e;
}

void CEnumerationNode::mSetEntry(CEnumEntryNode* e, bool Verify) {
  if (Verify && !IsAvailable(e->mGetAccessMode()))
    throw ACCESS_EXCEPTION("Node '%s': the entry '%s' is not available", m_strName.c_str(), e->mSymbolic().c_str());
  m_Value.SetInt(e->mValue(), Verify);
  if (!m_Value.IsPointer()) mNotifyChanged();
  if (e->IsSelfClearing() && m_Value.IsPointer()) {
    // The device clears the value again: the next read must reach it.
    m_Value.GetNode()->mInvalidateTerminals(m_pMap->mNextGeneration());
  }
}

int64_t CEnumerationNode::mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  if (Part != vpValue) {
    throw LOGICAL_ERROR_EXCEPTION("Node '%s': an enumeration has no minimum, maximum or increment", m_strName.c_str());
  }
  return mCurrent(Verify, IgnoreCache)->mValue();
}

double CEnumerationNode::mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  return static_cast<double>(mGetInt(Verify, IgnoreCache, Part));
}

void CEnumerationNode::mSetInt(int64_t Value, bool Verify) {
  CEnumEntryNode* e = mFindValue(Value);
  if (!e)
    throw OUT_OF_RANGE_EXCEPTION("Node '%s': %lld is the value of no entry", m_strName.c_str(),
                                 static_cast<long long>(Value));
  mSetEntry(e, Verify);
}

std::string CEnumerationNode::mToString(bool Verify, bool IgnoreCache) {
  return mCurrent(Verify, IgnoreCache)->mSymbolic();
}

void CEnumerationNode::mFromString(const std::string& Value, bool Verify) {
  CEnumEntryNode* e = mFindSymbolic(Value);
  if (!e || !IsImplemented(e->mGetAccessMode()))
    throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is not an entry of the enumeration", m_strName.c_str(),
                                     Value.c_str());
  mSetEntry(e, Verify);
}

void CEnumerationNode::GetSymbolics(StringList_t& Symbolics) {
  AutoLock l(m_pMap->GetLock());
  Symbolics.clear();
  for (CEnumEntryNode* e : m_vecEntries)
    if (IsAvailable(e->mGetAccessMode())) Symbolics.push_back(e->mSymbolic());
}

void CEnumerationNode::GetEntries(NodeList_t& Entries) {
  AutoLock l(m_pMap->GetLock());
  Entries.assign(m_vecEntries.begin(), m_vecEntries.end());
}

IEnumeration& CEnumerationNode::operator=(const gcstring& ValueStr) {
  FromString(ValueStr, true);
  return *this;
}

IEnumeration& CEnumerationNode::operator=(const char* pValueStr) {
  FromString(gcstring(pValueStr), true);
  return *this;
}

void CEnumerationNode::SetIntValue(int64_t Value, bool Verify) {
  AutoLock l(m_pMap->GetLock());
  mCheckWritable("SetIntValue");
  mSetInt(Value, Verify);
}

IEnumeration& CEnumerationNode::operator=(int64_t Value) {
  SetIntValue(Value, true);
  return *this;
}

gcstring CEnumerationNode::operator*() { return ToString(); }

int64_t CEnumerationNode::GetIntValue(bool Verify, bool IgnoreCache) {
  AutoLock l(m_pMap->GetLock());
  mCheckReadable("GetIntValue");
  return mGetInt(Verify, IgnoreCache);
}

IEnumEntry* CEnumerationNode::GetEntryByName(const gcstring& Symbolic) {
  AutoLock l(m_pMap->GetLock());
  return mFindSymbolic(Symbolic.str());
}

IEnumEntry* CEnumerationNode::GetEntry(const int64_t IntValue) {
  AutoLock l(m_pMap->GetLock());
  for (CEnumEntryNode* e : m_vecEntries)
    if (e->mValue() == IntValue) return e;
  return nullptr;
}

IEnumEntry* CEnumerationNode::GetCurrentEntry(bool Verify, bool IgnoreCache) {
  AutoLock l(m_pMap->GetLock());
  mCheckReadable("GetCurrentEntry");
  return mCurrent(Verify, IgnoreCache);
}

}  // namespace detail
}  // namespace GenApi_3_0
