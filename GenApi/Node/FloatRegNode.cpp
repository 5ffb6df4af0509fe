#include "Node/FloatRegNode.h"

#include <cmath>
#include <cstring>
#include <limits>

#include "Node/IntRegNode.h"

namespace GenApi_3_0 {
namespace detail {

void CFloatRegBase::mReadElements(CElementReader& r) {
  CRegisterBase::mReadElements(r);
  r.Endianess("Endianess", m_eEndianess);
  r.Text("Unit", m_strUnit);
  r.Representation("Representation", m_eRepresentation);
  r.DisplayNotation("DisplayNotation", m_eDisplayNotation);
  r.Int("DisplayPrecision", m_nDisplayPrecision);
  ESign ignored;
  r.Sign("Sign", ignored);  // some descriptions give floats a sign; it has no meaning for IEEE numbers
  if (!m_Length.IsPointer() && m_Length.GetInt() != 4 && m_Length.GetInt() != 8)
    r.Fail(nullptr, "a float register has 4 or 8 bytes, not " + std::to_string(m_Length.GetInt()));
}

double CFloatRegBase::mGetFloat(bool, bool IgnoreCache, EValuePart_t Part) {
  int64_t n = mLength();
  switch (Part) {
    case vpMin: return -std::numeric_limits<double>::max();
    case vpMax: return std::numeric_limits<double>::max();
    case vpInc: return 0.0;
    case vpValue: break;
  }
  if (n != 4 && n != 8)
    throw OUT_OF_RANGE_EXCEPTION("Node '%s': a float register has 4 or 8 bytes, not %lld", m_strName.c_str(),
                                 static_cast<long long>(n));
  uint8_t buf[8];
  mReadBytes(buf, n, IgnoreCache);
  uint64_t raw = BytesToUnsigned(buf, n, m_eEndianess);
  if (n == 4) {
    uint32_t r32 = static_cast<uint32_t>(raw);
    float f;
    memcpy(&f, &r32, 4);
    return f;
  }
  double d;
  memcpy(&d, &raw, 8);
  return d;
}

int64_t CFloatRegBase::mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part) {
  double d = mGetFloat(Verify, IgnoreCache, Part);
  if (!std::isfinite(d)) return d > 0 ? std::numeric_limits<int64_t>::max() : std::numeric_limits<int64_t>::min();
  return static_cast<int64_t>(std::llround(d));
}

void CFloatRegBase::mSetFloat(double Value, bool) {
  int64_t n = mLength();
  if (n != 4 && n != 8)
    throw OUT_OF_RANGE_EXCEPTION("Node '%s': a float register has 4 or 8 bytes, not %lld", m_strName.c_str(),
                                 static_cast<long long>(n));
  uint64_t raw;
  if (n == 4) {
    float f = static_cast<float>(Value);
    uint32_t r32;
    memcpy(&r32, &f, 4);
    raw = r32;
  } else {
    memcpy(&raw, &Value, 8);
  }
  uint8_t buf[8];
  UnsignedToBytes(raw, buf, n, m_eEndianess);
  mWriteBytes(buf, n);
}

}  // namespace detail
}  // namespace GenApi_3_0
