// INodeMap: the nodes of one description, connected to ports.
#ifndef GENAPI_INODEMAP_H
#define GENAPI_INODEMAP_H

#include <GenApi/INode.h>
#include <GenApi/IPort.h>
#include <GenApi/Synch.h>

namespace GenApi_3_0 {

struct INodeMap {
  /// All nodes of the map.
  virtual void GetNodes(NodeList_t& Nodes) const = 0;
  /// The node of that name, or null. Raises nothing.
  virtual INode* GetNode(const gcstring& Name) const = 0;
  /// Marks every cached value stale.
  virtual void InvalidateNodes() const = 0;
  /// Binds pPort to the Port node PortName; false when the map has no such
  /// port.
  virtual bool Connect(IPort* pPort, const gcstring& PortName) const = 0;
  /// Binds pPort to the Port node "Device", or to the map's only port.
  virtual bool Connect(IPort* pPort) const = 0;
  virtual gcstring GetDeviceName() = 0;
  /// Invalidates the nodes whose polling time has elapsed.
  virtual void Poll(int64_t ElapsedTime) = 0;
  /// The map's recursive lock, which every node operation takes.
  virtual CLock& GetLock() const = 0;
  virtual uint64_t GetNumNodes() const = 0;

  virtual ~INodeMap() = default;
};

}  // namespace GenApi_3_0

#endif
