#include "Node/NodeBase.h"

#include <algorithm>

#include <Base/GCException.h>
#include <GenApi/Pointer.h>

#include "Description/ElementReader.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

namespace {
const char* AccessText(EAccessMode m) {
  switch (m) {
    case NI: return "NI";
    case NA: return "NA";
    case WO: return "WO";
    case RO: return "RO";
    case RW: return "RW";
    default: return "undefined";
  }
}
}  // namespace

CNodeBase::CNodeBase(CNodeMap* pMap, const SNodeDesc& Desc)
    : m_pMap(pMap), m_pDesc(&Desc), m_strName(Desc.m_strName), m_bStandardNameSpace(Desc.m_bStandardNameSpace) {}

CNodeBase::~CNodeBase() {
  for (CNodeCallback* p : m_vecCallbacks) p->Destroy();
}

void CNodeBase::mReadElements(CElementReader& r) {
  r.Text("ToolTip", m_strToolTip);
  r.Text("Description", m_strDescription);
  r.Text("DisplayName", m_strDisplayName);
  r.Visibility("Visibility", m_eVisibility);
  r.Text("DocuURL", m_strDocuURL);
  r.YesNo("IsDeprecated", m_bDeprecated);
  r.Text("EventID", m_strEventID);
  r.Pointer("pIsImplemented", m_pIsImplemented, lkReads);
  r.Pointer("pIsAvailable", m_pIsAvailable, lkReads);
  r.Pointer("pIsLocked", m_pIsLocked, lkReads);
  r.Links("pBlockPolling", lkPlain);
  r.AccessMode("ImposedAccessMode", m_eImposedAccessMode);
  r.PointerList("pError", m_vecErrors, lkPlain);
  r.Pointer("pAlias", m_pAlias, lkPlain);
  r.Pointer("pCastAlias", m_pCastAlias, lkPlain);
  r.YesNo("Streamable", m_bStreamable);
  r.Links("pInvalidator", lkInvalidator);
  r.Links("pSelected", lkSelected);
  int64_t poll;
  if (r.Int("PollingTime", poll)) m_nPollingTime = poll;
}

// ---- access ----------------------------------------------------------------

bool CNodeBase::mTruth(CNodeBase* p) {
  if (!IsReadable(p->mGetAccessMode())) return false;
  return p->mGetInt(false, false) != 0;
}

EAccessMode CNodeBase::mGetAccessMode() const {
  if (m_bInAccessMode) return RW;  // a cycle through pIsAvailable & co.: neutral
  m_bInAccessMode = true;
  struct SReset {
    bool& b;
    ~SReset() { b = false; }
  } reset{m_bInAccessMode};
  if (m_pIsImplemented && !mTruth(m_pIsImplemented)) return NI;
  EAccessMode m = mNaturalAccessMode();
  if (m == NI) return NI;
  if (m_pIsAvailable && !mTruth(m_pIsAvailable)) return NA;
  m = Combine(m, m_eImposedAccessMode);
  if ((m == RW || m == WO) && m_pIsLocked && mTruth(m_pIsLocked)) m = (m == RW) ? RO : NA;
  return m;
}

EAccessMode CNodeBase::GetAccessMode() const {
  AutoLock l(m_pMap->GetLock());
  return mGetAccessMode();
}

void CNodeBase::mCheckReadable(const char* pOperation) const {
  EAccessMode m = mGetAccessMode();
  if (!IsReadable(m))
    throw ACCESS_EXCEPTION("Node '%s' is not readable (access mode %s) in %s", m_strName.c_str(), AccessText(m),
                           pOperation);
}

void CNodeBase::mCheckWritable(const char* pOperation) const {
  EAccessMode m = mGetAccessMode();
  if (!IsWritable(m))
    throw ACCESS_EXCEPTION("Node '%s' is not writable (access mode %s) in %s", m_strName.c_str(), AccessText(m),
                           pOperation);
}

void CNodeBase::ImposeAccessMode(EAccessMode Mode) {
  AutoLock l(m_pMap->GetLock());
  m_eImposedAccessMode = Combine(m_eImposedAccessMode, Mode);
}

void CNodeBase::ImposeVisibility(EVisibility Visibility) {
  AutoLock l(m_pMap->GetLock());
  if (Visibility > m_eVisibility) m_eVisibility = Visibility;
}

// ---- names and texts ---------------------------------------------------------

gcstring CNodeBase::GetName(bool FullQualified) const {
  if (!FullQualified) return m_strName;
  return (m_bStandardNameSpace ? "Std::" : "Cust::") + m_strName;
}

ENameSpace CNodeBase::GetNameSpace() const { return m_bStandardNameSpace ? Standard : Custom; }
EVisibility CNodeBase::GetVisibility() const { return m_eVisibility; }
gcstring CNodeBase::GetDisplayName() const { return m_strDisplayName.empty() ? m_strName : m_strDisplayName; }
gcstring CNodeBase::GetDeviceName() const { return m_pMap->GetDeviceName(); }
INodeMap* CNodeBase::GetNodeMap() const { return m_pMap; }

void CNodeBase::GetPropertyNames(GenICam_3_0::gcstring_vector& Names) const {
  Names.clear();
  for (const auto& e : m_pDesc->m_vecElements)
    if (std::find(Names.begin(), Names.end(), gcstring(e.m_strName)) == Names.end()) Names.push_back(e.m_strName);
}

bool CNodeBase::GetProperty(const gcstring& PropertyName, gcstring& ValueStr, gcstring& AttributeStr) {
  bool found = false;
  std::string value, attrs;
  for (const auto& e : m_pDesc->m_vecElements) {
    if (e.m_strName != PropertyName.str()) continue;
    if (found) value += '\t';
    value += e.m_strText;
    for (const auto& a : e.m_vecAttributes) {
      if (!attrs.empty()) attrs += '\t';
      attrs += a.first + "=" + a.second;
    }
    found = true;
  }
  ValueStr = value;
  AttributeStr = attrs;
  return found;
}

// ---- caching and graph ---------------------------------------------------------

bool CNodeBase::IsCachable() const {
  AutoLock l(m_pMap->GetLock());
  return GetCachingMode() != NoCache;
}

ECachingMode CNodeBase::GetCachingMode() const {
  // A node caches as well as the weakest register below it.
  ECachingMode mode = WriteThrough;
  for (CNodeBase* c : m_vecReadingChildren) {
    ECachingMode m = c->GetCachingMode();
    if (m == NoCache) return NoCache;
    if (m == WriteAround) mode = WriteAround;
  }
  return mode;
}

bool CNodeBase::IsValueCacheValid() const {
  AutoLock l(m_pMap->GetLock());
  if (!mOwnCacheValid()) return false;
  for (CNodeBase* c : m_vecReadingChildren)
    if (!c->IsValueCacheValid()) return false;
  return true;
}

void CNodeBase::mAddDependent(CNodeBase* p) {
  if (p != this) m_vecDependents.push_back(p);
}

void CNodeBase::mAddReadingChild(CNodeBase* p) {
  m_vecReadingChildren.push_back(p);
  p->m_vecParents.push_back(this);
}

void CNodeBase::mSortOutGraph() {
  auto uniq = [](std::vector<CNodeBase*>& v) {
    std::vector<CNodeBase*> out;
    out.reserve(v.size());
    for (CNodeBase* p : v)
      if (std::find(out.begin(), out.end(), p) == out.end()) out.push_back(p);
    v.swap(out);
  };
  uniq(m_vecDependents);
  uniq(m_vecReadingChildren);
  uniq(m_vecParents);
}

void CNodeBase::GetChildren(NodeList_t& Children, ELinkType LinkType) const {
  AutoLock l(m_pMap->GetLock());
  Children.clear();
  switch (LinkType) {
    case ctReadingChildren:
    case ctWritingChildren:
    case ctValueChangingChildren:
      Children.assign(m_vecReadingChildren.begin(), m_vecReadingChildren.end());
      break;
    case ctInvalidatingChildren:
      Children.assign(m_vecInvalidators.begin(), m_vecInvalidators.end());
      break;
    case ctDependingNodes:
      Children.assign(m_vecDependents.begin(), m_vecDependents.end());
      break;
    case ctParentNodes:
      Children.assign(m_vecParents.begin(), m_vecParents.end());
      break;
    case ctTerminalNodes: {
      std::vector<const CNodeBase*> stack{this};
      std::vector<const CNodeBase*> seen;
      while (!stack.empty()) {
        const CNodeBase* n = stack.back();
        stack.pop_back();
        if (std::find(seen.begin(), seen.end(), n) != seen.end()) continue;
        seen.push_back(n);
        if (n->mHasCache()) Children.push_back(const_cast<CNodeBase*>(n));
        for (CNodeBase* c : n->m_vecReadingChildren) stack.push_back(c);
      }
      break;
    }
  }
}

void CNodeBase::GetParents(NodeList_t& Parents) const {
  AutoLock l(m_pMap->GetLock());
  Parents.assign(m_vecParents.begin(), m_vecParents.end());
}

void CNodeBase::GetSelectedFeatures(FeatureList_t& Features) const {
  AutoLock l(m_pMap->GetLock());
  Features.clear();
  for (CNodeBase* p : m_vecSelected) Features.push_back(p);
}

void CNodeBase::GetSelectingFeatures(FeatureList_t& Features) const {
  AutoLock l(m_pMap->GetLock());
  Features.clear();
  for (CNodeBase* p : m_vecSelecting) Features.push_back(p);
}

void CNodeBase::mRunCallbacks() {
  // A callback may deregister itself; run over a copy.
  if (m_vecCallbacks.empty()) return;
  std::vector<CNodeCallback*> copy = m_vecCallbacks;
  for (CNodeCallback* p : copy)
    if (std::find(m_vecCallbacks.begin(), m_vecCallbacks.end(), p) != m_vecCallbacks.end()) (*p)(p->GetCallbackType());
}

void CNodeBase::mInvalidate(uint64_t Generation) {
  if (m_nGeneration == Generation) return;
  m_nGeneration = Generation;
  mClearCache();
  mRunCallbacks();
  for (CNodeBase* d : m_vecDependents) d->mInvalidate(Generation);
}

void CNodeBase::mNotifyChanged() {
  uint64_t g = m_pMap->mNextGeneration();
  m_nGeneration = g;
  mRunCallbacks();
  for (CNodeBase* d : m_vecDependents) d->mInvalidate(g);
}

void CNodeBase::InvalidateNode() {
  AutoLock l(m_pMap->GetLock());
  uint64_t g = m_pMap->mNextGeneration();
  m_nGeneration = g;
  mClearCache();
  mRunCallbacks();
  for (CNodeBase* d : m_vecDependents) d->mInvalidate(g);
}

void CNodeBase::mInvalidateTerminals(uint64_t Generation) {
  if (m_nGeneration == Generation) return;
  m_nGeneration = Generation;
  mClearCache();
  for (CNodeBase* c : m_vecReadingChildren) c->mInvalidateTerminals(Generation);
}

void CNodeBase::mPoll(int64_t ElapsedTime) {
  if (m_nPollingTime <= 0) return;
  m_nPollElapsed += ElapsedTime;
  if (m_nPollElapsed >= m_nPollingTime) {
    m_nPollElapsed = 0;
    InvalidateNode();
  }
}

CallbackHandleType CNodeBase::RegisterCallback(CNodeCallback* pCallback) {
  if (!pCallback) throw INVALID_ARGUMENT_EXCEPTION("Node '%s': the callback is null", m_strName.c_str());
  AutoLock l(m_pMap->GetLock());
  m_vecCallbacks.push_back(pCallback);
  return reinterpret_cast<CallbackHandleType>(pCallback);
}

bool CNodeBase::DeregisterCallback(CallbackHandleType h) {
  AutoLock l(m_pMap->GetLock());
  auto it = std::find(m_vecCallbacks.begin(), m_vecCallbacks.end(), reinterpret_cast<CNodeCallback*>(h));
  if (it == m_vecCallbacks.end()) return false;
  CNodeCallback* p = *it;
  m_vecCallbacks.erase(it);
  p->Destroy();
  return true;
}

// ---- values ----------------------------------------------------------------------

gcstring CNodeBase::ToString(bool Verify, bool IgnoreCache) {
  AutoLock l(m_pMap->GetLock());
  mCheckReadable("ToString");
  return mToString(Verify, IgnoreCache);
}

void CNodeBase::FromString(const gcstring& ValueStr, bool Verify) {
  AutoLock l(m_pMap->GetLock());
  mCheckWritable("FromString");
  mFromString(ValueStr.str(), Verify);
}

std::string CNodeBase::mToString(bool, bool) { return std::string(); }

void CNodeBase::mFromString(const std::string&, bool) {
  throw LOGICAL_ERROR_EXCEPTION("Node '%s' (%s) has no value to set from text", m_strName.c_str(),
                                m_pDesc->m_strType.c_str());
}

int64_t CNodeBase::mGetInt(bool, bool, EValuePart_t) {
  throw LOGICAL_ERROR_EXCEPTION("Node '%s' (%s) has no integer value", m_strName.c_str(), m_pDesc->m_strType.c_str());
}
double CNodeBase::mGetFloat(bool, bool, EValuePart_t) {
  throw LOGICAL_ERROR_EXCEPTION("Node '%s' (%s) has no numeric value", m_strName.c_str(), m_pDesc->m_strType.c_str());
}
void CNodeBase::mSetInt(int64_t, bool) {
  throw LOGICAL_ERROR_EXCEPTION("Node '%s' (%s) cannot take an integer value", m_strName.c_str(),
                                m_pDesc->m_strType.c_str());
}
void CNodeBase::mSetFloat(double, bool) {
  throw LOGICAL_ERROR_EXCEPTION("Node '%s' (%s) cannot take a numeric value", m_strName.c_str(),
                                m_pDesc->m_strType.c_str());
}
std::string CNodeBase::mGetString(bool, bool) {
  throw LOGICAL_ERROR_EXCEPTION("Node '%s' (%s) has no text value", m_strName.c_str(), m_pDesc->m_strType.c_str());
}
void CNodeBase::mSetString(const std::string&, bool) {
  throw LOGICAL_ERROR_EXCEPTION("Node '%s' (%s) cannot take a text value", m_strName.c_str(),
                                m_pDesc->m_strType.c_str());
}

}  // namespace detail
}  // namespace GenApi_3_0
