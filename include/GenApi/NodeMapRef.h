// CNodeMapRef: a counted reference to a node map, destroying the map at the
// last release; and forwarding calls to it.
#ifndef GENAPI_NODEMAPREF_H
#define GENAPI_NODEMAPREF_H

#include <GenApi/IDestroy.h>
#include <GenApi/INodeMap.h>
#include <GenApi/NodeMapFactory.h>

namespace GenApi_3_0 {

class CNodeMapRef {
public:
  explicit CNodeMapRef(const gcstring& DeviceName = "Device");
  /// Shares rhs's map and its count.
  CNodeMapRef(const CNodeMapRef& rhs);
  CNodeMapRef& operator=(const CNodeMapRef& rhs);
  /// Releases the map; the last reference destroys it. Raises nothing.
  virtual ~CNodeMapRef();

  /// Releases the map held (if any).
  void _Destroy();
  /// Takes over pNodeMap, made by a factory, with the count pRefCount (which
  /// the reference increments and, at the last release, frees with delete).
  /// A null pRefCount starts a new count. A map held before is released.
  void _Attach(INodeMap* pNodeMap, const gcstring& DeviceName, int* pRefCount);
  /// Loads a description and attaches a new map of the reference's device
  /// name. Raise what CNodeMapFactory raises; LogicalErrorException when the
  /// reference already holds a map.
  void _LoadXMLFromFile(const gcstring& FileName);
  void _LoadXMLFromZIPFile(const gcstring& ZipFileName);
  void _LoadXMLFromString(const gcstring& XMLData);
  void _LoadXMLFromZIPData(const void* zipData, size_t zipSize);

  // Forwarding calls. With no map, all raise LogicalErrorException
  // "NULL pointer dereferenced".
  gcstring _GetDeviceName() const;
  void _Poll(int64_t ElapsedTime);
  void _GetNodes(NodeList_t& Nodes) const;
  /// The node of that name, or null when the map has none.
  INode* _GetNode(const gcstring& Name) const;
  void _InvalidateNodes() const;
  bool _Connect(IPort* pPort, const gcstring& PortName) const;
  bool _Connect(IPort* pPort) const;
  /// True when a map is attached.
  bool _IsConnected() const { return _Ptr != nullptr; }
  uint64_t _GetNumNodes() const;
  CLock& _GetLock() const;

  operator INodeMap*() const { return _Ptr; }

  /// The map held, or null.
  INodeMap* _Ptr;

private:
  void mRelease();
  void mLoad(const CNodeMapFactory& Factory);

  gcstring _DeviceName;
  int* _pRefCount;
};

}  // namespace GenApi_3_0

#endif
