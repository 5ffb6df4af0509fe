#include "Node/RegisterNode.h"

#include <cstdio>
#include <vector>

#include <Base/GCException.h>

#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

void CRegisterNode::mCheckLength(int64_t Length) {
  int64_t n = mLength();
  if (Length != n)
    throw OUT_OF_RANGE_EXCEPTION("Node '%s': the buffer has %lld bytes, the register %lld", m_strName.c_str(),
                                 static_cast<long long>(Length), static_cast<long long>(n));
}

void CRegisterNode::Set(const uint8_t* pBuffer, int64_t Length, bool) {
  AutoLock l(m_pMap->GetLock());
  mCheckWritable("Set");
  mCheckLength(Length);
  mWriteBytes(pBuffer, Length);
}

void CRegisterNode::Get(uint8_t* pBuffer, int64_t Length, bool, bool IgnoreCache) {
  AutoLock l(m_pMap->GetLock());
  mCheckReadable("Get");
  mCheckLength(Length);
  mReadBytes(pBuffer, Length, IgnoreCache);
}

int64_t CRegisterNode::GetLength() {
  AutoLock l(m_pMap->GetLock());
  return mLength();
}

int64_t CRegisterNode::GetAddress() {
  AutoLock l(m_pMap->GetLock());
  return mAddress();
}

std::string CRegisterNode::mToString(bool, bool IgnoreCache) {
  int64_t n = mLength();
  std::vector<uint8_t> buf(static_cast<size_t>(n));
  mReadBytes(buf.data(), n, IgnoreCache);
  std::string s = "0x";
  char h[3];
  for (uint8_t b : buf) {
    snprintf(h, sizeof h, "%02x", b);
    s += h;
  }
  return s;
}

void CRegisterNode::mFromString(const std::string& Value, bool) {
  int64_t n = mLength();
  std::string hex = Value;
  if (hex.size() >= 2 && hex[0] == '0' && (hex[1] == 'x' || hex[1] == 'X')) hex = hex.substr(2);
  if (static_cast<int64_t>(hex.size()) != 2 * n)
    throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is not %lld hexadecimal bytes", m_strName.c_str(), Value.c_str(),
                                     static_cast<long long>(n));
  std::vector<uint8_t> buf(static_cast<size_t>(n));
  for (int64_t i = 0; i < n; ++i) {
    unsigned b;
    if (sscanf(hex.c_str() + 2 * i, "%2x", &b) != 1)
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s': '%s' is not hexadecimal", m_strName.c_str(), Value.c_str());
    buf[static_cast<size_t>(i)] = static_cast<uint8_t>(b);
  }
  mWriteBytes(buf.data(), n);
}

}  // namespace detail
}  // namespace GenApi_3_0
