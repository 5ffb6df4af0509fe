// INode: what every node of a node map offers.
#ifndef GENAPI_INODE_H
#define GENAPI_INODE_H

#include <cstdint>

#include <GenApi/Container.h>
#include <GenApi/IBase.h>

namespace GenApi_3_0 {

struct INodeMap;
class CNodeCallback;
typedef intptr_t CallbackHandleType;

struct INode : virtual public IBase {
  /// The node's name; FullQualified prefixes it with its name space
  /// ("Std::" or "Cust::").
  virtual gcstring GetName(bool FullQualified = false) const = 0;
  virtual ENameSpace GetNameSpace() const = 0;
  virtual EVisibility GetVisibility() const = 0;
  /// Marks the node's cached value stale, and with it every node whose value
  /// depends on this one. Raises nothing.
  virtual void InvalidateNode() = 0;
  /// True when the node's value may be cached (no NoCache register below).
  virtual bool IsCachable() const = 0;
  virtual EYesNo IsAccessModeCacheable() const = 0;
  virtual ECachingMode GetCachingMode() const = 0;
  /// The polling time in ms, or -1 when the node is not polled.
  virtual int64_t GetPollingTime() const = 0;
  virtual gcstring GetToolTip() const = 0;
  virtual gcstring GetDescription() const = 0;
  /// The display name, or the name when the description gives none.
  virtual gcstring GetDisplayName() const = 0;
  virtual gcstring GetDeviceName() const = 0;
  /// Nodes this node refers to, of the given kind of link.
  virtual void GetChildren(NodeList_t& Children, ELinkType LinkType = ctReadingChildren) const = 0;
  /// Nodes that refer to this node.
  virtual void GetParents(NodeList_t& Parents) const = 0;
  /// Registers a callback run after the node changed or was invalidated;
  /// the node takes ownership. Raises InvalidArgumentException for null.
  virtual CallbackHandleType RegisterCallback(CNodeCallback* pCallback) = 0;
  /// Removes and destroys a callback; false if the handle is unknown.
  virtual bool DeregisterCallback(CallbackHandleType hCallback) = 0;
  virtual INodeMap* GetNodeMap() const = 0;
  virtual gcstring GetEventID() const = 0;
  virtual bool IsStreamable() const = 0;
  /// Names of the elements the description gave this node.
  virtual void GetPropertyNames(GenICam_3_0::gcstring_vector& PropertyNames) const = 0;
  /// The text of a named element (a list joined by tabs) and its attributes;
  /// false when the node has no such element.
  virtual bool GetProperty(const gcstring& PropertyName, gcstring& ValueStr, gcstring& AttributeStr) = 0;
  /// Restricts the access mode further (RO, WO, NA...).
  virtual void ImposeAccessMode(EAccessMode ImposedAccessMode) = 0;
  virtual void ImposeVisibility(EVisibility ImposedVisibility) = 0;
  virtual INode* GetAlias() const = 0;
  virtual INode* GetCastAlias() const = 0;
  virtual gcstring GetDocuURL() const = 0;
  virtual bool IsDeprecated() const = 0;
  virtual EInterfaceType GetPrincipalInterfaceType() const = 0;
  /// True when the node is reachable from the category Root.
  virtual bool IsFeature() const = 0;
};

}  // namespace GenApi_3_0

#endif
