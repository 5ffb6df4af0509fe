#include "Description/Linker.h"

#include <Base/GCException.h>

#include "Node/NodeBase.h"

namespace GenApi_3_0 {
namespace detail {

void CLinker::Add(CNodeBase* pOwner, const std::string& Element, int Line, const std::string& Target, ELink_t Link,
                  std::function<void(CNodeBase*)> Bind) {
  m_vecPending.push_back(SPending{pOwner, Element, Line, Target, Link, std::move(Bind)});
}

CNodeBase* CLinker::Find(const std::string& Name) const {
  auto it = m_Index.find(Name);
  return it == m_Index.end() ? nullptr : it->second;
}

void CLinker::Resolve() {
  for (auto& p : m_vecPending) {
    CNodeBase* pTarget = Find(p.m_strTarget);
    if (!pTarget)
      throw INVALID_ARGUMENT_EXCEPTION("Node '%s' (line %d): %s refers to '%s', which is not a node of the description",
                                       p.m_pOwner->mName().c_str(), p.m_nLine, p.m_strElement.c_str(),
                                       p.m_strTarget.c_str());
    switch (p.m_eLink) {
      case lkReads:
        pTarget->mAddDependent(p.m_pOwner);
        p.m_pOwner->mAddReadingChild(pTarget);
        break;
      case lkInvalidator:
        pTarget->mAddDependent(p.m_pOwner);
        p.m_pOwner->mAddInvalidator(pTarget);
        break;
      case lkSelected:
        p.m_pOwner->mAddDependent(pTarget);
        p.m_pOwner->mAddSelected(pTarget);
        pTarget->mAddSelecting(p.m_pOwner);
        break;
      case lkPlain:
        break;
    }
    if (p.m_Bind) p.m_Bind(pTarget);
  }
  m_vecPending.clear();
}

}  // namespace detail
}  // namespace GenApi_3_0
