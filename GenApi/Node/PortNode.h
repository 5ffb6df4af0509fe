// CPortNode: the Port node, forwarding register accesses to the IPort that
// the application connected under the port's name.
#ifndef GENAPI_NODE_PORTNODE_H
#define GENAPI_NODE_PORTNODE_H

#include <GenApi/IPort.h>

#include "Node/NodeBase.h"

namespace GenApi_3_0 {
namespace detail {

class CPortNode : public CNodeBase, public virtual IPort {
public:
  using CNodeBase::CNodeBase;

  void mReadElements(CElementReader& Reader) override;
  EAccessMode mNaturalAccessMode() const override;
  EInterfaceType GetPrincipalInterfaceType() const override { return intfIPort; }

  /// Raises AccessException when no port is connected, and what the
  /// connected port raises.
  void Read(void* pBuffer, int64_t Address, int64_t Length) override;
  void Write(const void* pBuffer, int64_t Address, int64_t Length) override;

  void mRead(void* pBuffer, int64_t Address, int64_t Length);
  void mWrite(const void* pBuffer, int64_t Address, int64_t Length);
  void mSetPort(IPort* pPort) { m_pPort = pPort; }
  bool mIsConnected() const { return m_pPort != nullptr; }

private:
  IPort* m_pPort = nullptr;
  bool m_bSwapEndianess = false;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
