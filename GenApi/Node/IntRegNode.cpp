#include "Node/IntRegNode.h"

#include <cmath>
#include <limits>

namespace GenApi_3_0 {
namespace detail {

uint64_t BytesToUnsigned(const uint8_t* p, int64_t n, EEndianess e) {
  uint64_t v = 0;
  if (e == BigEndian) {
    for (int64_t i = 0; i < n; ++i) v = (v << 8) | p[i];
  } else {
    for (int64_t i = n - 1; i >= 0; --i) v = (v << 8) | p[i];
  }
  return v;
}

void UnsignedToBytes(uint64_t v, uint8_t* p, int64_t n, EEndianess e) {
  for (int64_t i = 0; i < n; ++i) {
    uint8_t b = static_cast<uint8_t>(v >> (8 * i));
    if (e == BigEndian) p[n - 1 - i] = b;
    else p[i] = b;
  }
}

void CIntRegBase::mReadElements(CElementReader& r) {
  CRegisterBase::mReadElements(r);
  r.Sign("Sign", m_eSign);
  r.Endianess("Endianess", m_eEndianess);
  r.Text("Unit", m_strUnit);
  r.Representation("Representation", m_eRepresentation);
  if (!m_Length.IsPointer() && m_Length.GetInt() > 8)
    r.Fail(nullptr, "an integer register has 1 to 8 bytes, not " + std::to_string(m_Length.GetInt()));
}

void CIntRegBase::mField(int64_t Length, int& Shift, int& Width) const {
  Shift = 0;
  Width = static_cast<int>(Length * 8);
}

uint64_t CIntRegBase::mReadRaw(bool IgnoreCache) {
  int64_t n = mLength();
  if (n < 1 || n > 8)
    throw OUT_OF_RANGE_EXCEPTION("Node '%s': an integer register has 1 to 8 bytes, not %lld", m_strName.c_str(),
                                 static_cast<long long>(n));
  uint8_t buf[8];
  mReadBytes(buf, n, IgnoreCache);
  return BytesToUnsigned(buf, n, m_eEndianess);
}

int64_t CIntRegBase::mGetInt(bool, bool IgnoreCache, EValuePart_t Part) {
  int shift, width;
  mField(mLength(), shift, width);
  switch (Part) {
    case vpMin:
      if (m_eSign == Unsigned) return 0;
      return width >= 64 ? std::numeric_limits<int64_t>::min() : -(int64_t(1) << (width - 1));
    case vpMax:
      if (m_eSign == Unsigned)
        return width >= 63 ? std::numeric_limits<int64_t>::max() : (int64_t(1) << width) - 1;
      return width >= 64 ? std::numeric_limits<int64_t>::max() : (int64_t(1) << (width - 1)) - 1;
    case vpInc:
      return 1;
    case vpValue:
      break;
  }
  uint64_t raw = mReadRaw(IgnoreCache);
  uint64_t v = width >= 64 ? raw >> shift : (raw >> shift) & ((uint64_t(1) << width) - 1);
  if (m_eSign == Signed && width < 64 && (v >> (width - 1)) & 1) v |= ~((uint64_t(1) << width) - 1);
  return static_cast<int64_t>(v);
}

double CIntRegBase::mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  return static_cast<double>(mGetInt(Verify, IgnoreCache, Part));
}

void CIntRegBase::mSetInt(int64_t Value, bool Verify) {
  int64_t n = mLength();
  if (n < 1 || n > 8)
    throw OUT_OF_RANGE_EXCEPTION("Node '%s': an integer register has 1 to 8 bytes, not %lld", m_strName.c_str(),
                                 static_cast<long long>(n));
  int shift, width;
  mField(n, shift, width);
  if (Verify) {
    int64_t mn = mGetInt(false, false, vpMin), mx = mGetInt(false, false, vpMax);
    if (Value < mn)
      throw OUT_OF_RANGE_EXCEPTION("%s = %lld must be equal or greater than Min = %lld", m_strName.c_str(),
                                   static_cast<long long>(Value), static_cast<long long>(mn));
    if (Value > mx)
      throw OUT_OF_RANGE_EXCEPTION("%s = %lld must be equal or smaller than Max = %lld", m_strName.c_str(),
                                   static_cast<long long>(Value), static_cast<long long>(mx));
  }
  uint64_t raw;
  if (width >= static_cast<int>(n * 8)) {
    raw = static_cast<uint64_t>(Value);
  } else {
    // A bit field: the other bits keep the register's current contents.
    uint64_t mask = (width >= 64 ? ~uint64_t(0) : ((uint64_t(1) << width) - 1)) << shift;
    raw = (mReadRaw(false) & ~mask) | ((static_cast<uint64_t>(Value) << shift) & mask);
  }
  uint8_t buf[8];
  UnsignedToBytes(raw, buf, n, m_eEndianess);
  mWriteBytes(buf, n);
}

void CIntRegBase::mSetFloat(double Value, bool Verify) { mSetInt(static_cast<int64_t>(std::llround(Value)), Verify); }

}  // namespace detail
}  // namespace GenApi_3_0
