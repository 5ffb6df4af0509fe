// CIntRegNode: an integer register of 1 to 8 bytes, signed or unsigned,
// little or big endian. CMaskedIntRegNode derives from it for bit fields.
#ifndef GENAPI_NODE_INTREGNODE_H
#define GENAPI_NODE_INTREGNODE_H

#include "Node/IntegerInterface.h"
#include "Node/RegisterBase.h"

namespace GenApi_3_0 {
namespace detail {

/// Reads Length (1..8) bytes as an unsigned number of the given byte order.
uint64_t BytesToUnsigned(const uint8_t* p, int64_t Length, EEndianess Endianess);
/// Writes the low Length bytes of v in the given byte order.
void UnsignedToBytes(uint64_t v, uint8_t* p, int64_t Length, EEndianess Endianess);

class CIntRegBase : public CRegisterBase {
public:
  using CRegisterBase::CRegisterBase;
  void mReadElements(CElementReader& Reader) override;
  bool mIsIntegerLike() const override { return true; }
  int64_t mGetInt(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  double mGetFloat(bool Verify, bool IgnoreCache, EValuePart_t Part = vpValue) override;
  void mSetInt(int64_t Value, bool Verify) override;
  void mSetFloat(double Value, bool Verify) override;

protected:
  /// The register's raw bytes as an unsigned number.
  uint64_t mReadRaw(bool IgnoreCache);
  /// The number of value bits and their shift inside the register.
  virtual void mField(int64_t Length, int& Shift, int& Width) const;

  ESign m_eSign = Unsigned;
  EEndianess m_eEndianess = LittleEndian;
  ERepresentation m_eRepresentation = PureNumber;
  std::string m_strUnit;
};

class CIntRegNode : public CIntegerInterface<CIntRegBase> {
public:
  using CIntegerInterface<CIntRegBase>::CIntegerInterface;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
