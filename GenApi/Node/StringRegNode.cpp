#include "Node/StringRegNode.h"

#include <cstring>
#include <vector>

#include <Base/GCException.h>

#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

std::string CStringRegNode::mGetString(bool, bool IgnoreCache) {
  int64_t n = mLength();
  if (n <= 0) return std::string();
  std::vector<uint8_t> buf(static_cast<size_t>(n));
  mReadBytes(buf.data(), n, IgnoreCache);
  size_t len = strnlen(reinterpret_cast<const char*>(buf.data()), buf.size());
  return std::string(reinterpret_cast<const char*>(buf.data()), len);
}

void CStringRegNode::mSetString(const std::string& Value, bool) {
  int64_t n = mLength();
  if (static_cast<int64_t>(Value.size()) > n)
    throw OUT_OF_RANGE_EXCEPTION("Node '%s': the text has %zu characters, the register holds %lld", m_strName.c_str(),
                                 Value.size(), static_cast<long long>(n));
  std::vector<uint8_t> buf(static_cast<size_t>(n), 0);
  if (!Value.empty()) memcpy(buf.data(), Value.data(), Value.size());
  mWriteBytes(buf.data(), n);
}

void CStringRegNode::SetValue(const gcstring& Value, bool Verify) {
  AutoLock l(m_pMap->GetLock());
  mCheckWritable("SetValue");
  mSetString(Value.str(), Verify);
}

IString& CStringRegNode::operator=(const gcstring& Value) {
  SetValue(Value);
  return *this;
}

gcstring CStringRegNode::GetValue(bool Verify, bool IgnoreCache) {
  AutoLock l(m_pMap->GetLock());
  mCheckReadable("GetValue");
  return mGetString(Verify, IgnoreCache);
}

int64_t CStringRegNode::GetMaxLength() {
  AutoLock l(m_pMap->GetLock());
  return mLength();
}

}  // namespace detail
}  // namespace GenApi_3_0
