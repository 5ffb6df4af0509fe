// CNodeMap: the nodes made from one description, their name index, the
// ports, and the recursive lock that every node operation takes.
#ifndef GENAPI_NODEMAP_NODEMAP_H
#define GENAPI_NODEMAP_NODEMAP_H

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <GenApi/IDestroy.h>
#include <GenApi/INodeMap.h>

#include "Description/Description.h"

namespace GenApi_3_0 {
namespace detail {

class CNodeBase;
class CPortNode;

class CNodeMap : public INodeMap, public IDestroy {
public:
  /// Builds every node of the description and links them. Raises
  /// InvalidArgumentException / RuntimeException for a bad description.
  CNodeMap(std::shared_ptr<const CDescription> pDescription, const std::string& DeviceName);
  ~CNodeMap() override;

  // INodeMap
  void GetNodes(NodeList_t& Nodes) const override;
  INode* GetNode(const gcstring& Name) const override;
  void InvalidateNodes() const override;
  bool Connect(IPort* pPort, const gcstring& PortName) const override;
  bool Connect(IPort* pPort) const override;
  gcstring GetDeviceName() override { return m_strDeviceName; }
  void Poll(int64_t ElapsedTime) override;
  CLock& GetLock() const override { return m_Lock; }
  uint64_t GetNumNodes() const override { return m_vecNodes.size(); }
  // IDestroy
  void Destroy() override { delete this; }

  /// The next invalidation wave's number (the lock is held).
  uint64_t mNextGeneration() { return ++m_nGeneration; }
  CNodeBase* mFind(const std::string& Name) const;

private:
  void mBuild();
  void mMarkFeatures();

  std::shared_ptr<const CDescription> m_pDescription;
  std::string m_strDeviceName;
  std::vector<std::unique_ptr<CNodeBase>> m_vecNodes;
  std::unordered_map<std::string, CNodeBase*> m_mapIndex;
  std::vector<CPortNode*> m_vecPorts;
  mutable CLock m_Lock;
  uint64_t m_nGeneration = 0;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
