// CLinker: resolves the node names that elements refer to, once every node
// of a map exists, and records the dependency each reference implies.
#ifndef GENAPI_DESCRIPTION_LINKER_H
#define GENAPI_DESCRIPTION_LINKER_H

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

namespace GenApi_3_0 {
namespace detail {

class CNodeBase;

/// What a reference means for invalidation.
enum ELink_t {
  lkReads,        ///< the owner reads the target: the owner depends on it
  lkInvalidator,  ///< pInvalidator: the owner is invalidated when the target changes
  lkSelected,     ///< pSelected: the target depends on the owner
  lkPlain         ///< no dependency (pFeature, pPort, pAlias)
};

class CLinker {
public:
  explicit CLinker(const std::unordered_map<std::string, CNodeBase*>& Index) : m_Index(Index) {}

  /// Queues a reference from pOwner's element (at Line) to the node Target;
  /// Bind receives the node once resolved.
  void Add(CNodeBase* pOwner, const std::string& Element, int Line, const std::string& Target, ELink_t Link,
           std::function<void(CNodeBase*)> Bind);
  /// Resolves all references. Raises InvalidArgumentException naming the
  /// node, the element, the line and the missing name for a dangling one.
  void Resolve();
  /// The node of that name, or null.
  CNodeBase* Find(const std::string& Name) const;

private:
  struct SPending {
    CNodeBase* m_pOwner;
    std::string m_strElement;
    int m_nLine;
    std::string m_strTarget;
    ELink_t m_eLink;
    std::function<void(CNodeBase*)> m_Bind;
  };
  const std::unordered_map<std::string, CNodeBase*>& m_Index;
  std::vector<SPending> m_vecPending;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
