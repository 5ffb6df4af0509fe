#include "Node/RegisterBase.h"

#include <cstring>

#include <Base/GCException.h>
#include <GenApi/Pointer.h>

#include "Description/ElementReader.h"
#include "Node/PortNode.h"

namespace GenApi_3_0 {
namespace detail {

void CRegisterBase::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  for (const SElement* e : r.TakeAll("Address")) {
    int64_t v;
    if (!CElementReader::ParseInt(e->m_strText, v)) r.Fail(e, "Address '" + e->m_strText + "' is not an integer");
    m_vecAddresses.push_back(v);
  }
  const bool hasAddressNode = r.Has("pAddress");
  r.PointerList("pAddress", m_vecAddressNodes, lkReads);
  m_vecIndices.resize(r.TakeAll("pIndex").size());
  // The indices are bound in a second pass, once the vector no longer moves.
  size_t k = 0;
  for (const SElement& e : r.Desc().m_vecElements) {
    if (e.m_strName != "pIndex") continue;
    SIndex* pIdx = &m_vecIndices[k++];
    r.Reference(e, "pIndex", e.m_strText, lkReads, [pIdx](CNodeBase* n) { pIdx->m_pIndex = n; });
    if (const std::string* off = e.FindAttribute("Offset")) {
      int64_t v;
      if (!CElementReader::ParseInt(*off, v)) r.Fail(&e, "pIndex Offset '" + *off + "' is not an integer");
      pIdx->m_Offset.SetLiteral(v);
      pIdx->m_bHasOffset = true;
    } else if (const std::string* poff = e.FindAttribute("pOffset")) {
      CValueProperty* p = &pIdx->m_Offset;
      r.Reference(e, "pIndex pOffset", *poff, lkReads, [p](CNodeBase* n) { p->SetPointer(n); });
      pIdx->m_bHasOffset = true;
    }
  }
  if (m_vecAddresses.empty() && !hasAddressNode && m_vecIndices.empty())
    r.FailMissing("Address, pAddress or pIndex");
  r.IntProperty("Length", "pLength", m_Length, true);
  // Chunk registers of some devices declare Length 0 (the chunk sets it).
  if (!m_Length.IsPointer() && (m_Length.GetInt() < 0)) r.Fail(nullptr, "Length must not be negative");
  r.AccessMode("AccessMode", m_eAccessMode);
  if (!r.Pointer("pPort", m_pPortNode, lkPlain)) r.FailMissing("pPort");
  r.CachingMode("Cachable", m_eCachingMode);
}

void CRegisterBase::mFinishLink() {
  m_pPort = dynamic_cast<CPortNode*>(m_pPortNode);
  if (!m_pPort)
    throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): pPort '%s' is not a Port", m_strName.c_str(),
                                     m_pDesc->m_nLine, m_pPortNode->mName().c_str());
  for (CNodeBase* n : m_vecAddressNodes)
    if (!n->mIsIntegerLike())
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): pAddress '%s' is not an integer node", m_strName.c_str(),
                                       m_pDesc->m_nLine, n->mName().c_str());
}

EAccessMode CRegisterBase::mNaturalAccessMode() const { return Combine(m_eAccessMode, m_pPort->mGetAccessMode()); }

int64_t CRegisterBase::mAddress() {
  int64_t a = 0;
  for (int64_t v : m_vecAddresses) a += v;
  for (CNodeBase* n : m_vecAddressNodes) a += n->mGetInt(false, false);
  for (const SIndex& i : m_vecIndices) {
    int64_t off = i.m_bHasOffset ? i.m_Offset.GetInt() : mLength();
    a += i.m_pIndex->mGetInt(false, false) * off;
  }
  return a;
}

int64_t CRegisterBase::mLength() { return m_Length.GetInt(); }

void CRegisterBase::mReadBytes(uint8_t* p, int64_t Length, bool IgnoreCache) {
  int64_t addr = mAddress();
  if (!IgnoreCache && m_bCacheValid && m_eCachingMode != NoCache && m_nCacheAddress == addr &&
      static_cast<int64_t>(m_vecCache.size()) == Length) {
    if (Length > 0) memcpy(p, m_vecCache.data(), static_cast<size_t>(Length));
    return;
  }
  m_pPort->mRead(p, addr, Length);
  if (m_eCachingMode != NoCache) {
    m_vecCache.assign(p, p + Length);
    m_nCacheAddress = addr;
    m_bCacheValid = true;
  }
}

void CRegisterBase::mWriteBytes(const uint8_t* p, int64_t Length) {
  int64_t addr = mAddress();
  m_pPort->mWrite(p, addr, Length);
  if (m_eCachingMode == WriteThrough) {
    m_vecCache.assign(p, p + Length);
    m_nCacheAddress = addr;
    m_bCacheValid = true;
  } else {
    m_bCacheValid = false;
  }
  mNotifyChanged();
}

}  // namespace detail
}  // namespace GenApi_3_0
