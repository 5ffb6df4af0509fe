// CMaskedIntRegNode: a bit field (Bit, or LSB and MSB) of an integer
// register; also the node type of a StructReg's StructEntry.
#ifndef GENAPI_NODE_MASKEDINTREGNODE_H
#define GENAPI_NODE_MASKEDINTREGNODE_H

#include "Node/IntRegNode.h"

namespace GenApi_3_0 {
namespace detail {

class CMaskedIntRegBase : public CIntRegBase {
public:
  using CIntRegBase::CIntRegBase;
  void mReadElements(CElementReader& Reader) override;

protected:
  /// Bits are numbered from the least significant bit for little-endian
  /// registers, and from the most significant bit of the whole register for
  /// big-endian ones, as the descriptions write them.
  void mField(int64_t Length, int& Shift, int& Width) const override;

  int64_t m_nLSB = 0;
  int64_t m_nMSB = 0;
};

class CMaskedIntRegNode : public CIntegerInterface<CMaskedIntRegBase> {
public:
  using CIntegerInterface<CMaskedIntRegBase>::CIntegerInterface;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
