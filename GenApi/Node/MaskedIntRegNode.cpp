#include "Node/MaskedIntRegNode.h"

namespace GenApi_3_0 {
namespace detail {

void CMaskedIntRegBase::mReadElements(CElementReader& r) {
  int64_t bit;
  bool hasBit = r.Int("Bit", bit);
  bool hasLsb = r.Int("LSB", m_nLSB);
  bool hasMsb = r.Int("MSB", m_nMSB);
  if (hasBit) {
    if (hasLsb || hasMsb) r.Fail(nullptr, "Bit and LSB/MSB are given together");
    m_nLSB = m_nMSB = bit;
  } else if (!hasLsb || !hasMsb) {
    r.FailMissing("Bit or LSB and MSB");
  }
  CIntRegBase::mReadElements(r);
  if (m_Length.IsPointer()) r.Fail(nullptr, "a bit field needs a fixed Length");
  int shift, width;
  mField(m_Length.GetInt(), shift, width);
  if (width < 1 || shift < 0 || shift + width > m_Length.GetInt() * 8)
    r.Fail(nullptr, "LSB " + std::to_string(m_nLSB) + " and MSB " + std::to_string(m_nMSB) +
                        " do not lie inside the register");
}

void CMaskedIntRegBase::mField(int64_t Length, int& Shift, int& Width) const {
  int64_t lsb = m_nLSB, msb = m_nMSB;
  if (m_eEndianess == BigEndian) {
    lsb = Length * 8 - 1 - m_nLSB;
    msb = Length * 8 - 1 - m_nMSB;
  }
  Shift = static_cast<int>(lsb);
  Width = static_cast<int>(msb - lsb + 1);
}

}  // namespace detail
}  // namespace GenApi_3_0
