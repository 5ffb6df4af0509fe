#include "Node/PortNode.h"

#include <algorithm>

#include <Base/GCException.h>

#include "Description/ElementReader.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

void CPortNode::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  std::string s;
  r.Text("ChunkID", s);
  r.Links("pChunkID", lkPlain);
  r.YesNo("SwapEndianess", m_bSwapEndianess);
  bool b;
  r.YesNo("CacheChunkData", b);
}

EAccessMode CPortNode::mNaturalAccessMode() const { return m_pPort ? m_pPort->GetAccessMode() : NA; }

void CPortNode::mRead(void* pBuffer, int64_t Address, int64_t Length) {
  if (!m_pPort) throw ACCESS_EXCEPTION("Port '%s' is not connected", m_strName.c_str());
  m_pPort->Read(pBuffer, Address, Length);
  if (m_bSwapEndianess) {
    // The port delivers 32-bit words in the other byte order.
    uint8_t* b = static_cast<uint8_t*>(pBuffer);
    for (int64_t i = 0; i + 4 <= Length; i += 4) std::reverse(b + i, b + i + 4);
  }
}

void CPortNode::mWrite(const void* pBuffer, int64_t Address, int64_t Length) {
  if (!m_pPort) throw ACCESS_EXCEPTION("Port '%s' is not connected", m_strName.c_str());
  if (m_bSwapEndianess) {
    std::vector<uint8_t> tmp(static_cast<const uint8_t*>(pBuffer), static_cast<const uint8_t*>(pBuffer) + Length);
    for (int64_t i = 0; i + 4 <= Length; i += 4) std::reverse(tmp.begin() + i, tmp.begin() + i + 4);
    m_pPort->Write(tmp.data(), Address, Length);
    return;
  }
  m_pPort->Write(pBuffer, Address, Length);
}

void CPortNode::Read(void* pBuffer, int64_t Address, int64_t Length) {
  AutoLock l(m_pMap->GetLock());
  mRead(pBuffer, Address, Length);
}

void CPortNode::Write(const void* pBuffer, int64_t Address, int64_t Length) {
  AutoLock l(m_pMap->GetLock());
  mWrite(pBuffer, Address, Length);
  mNotifyChanged();
}

}  // namespace detail
}  // namespace GenApi_3_0
