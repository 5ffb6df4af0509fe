#include "Node/CategoryNode.h"

#include "Description/ElementReader.h"
#include "NodeMap/NodeMap.h"

namespace GenApi_3_0 {
namespace detail {

void CCategoryNode::mReadElements(CElementReader& r) {
  CNodeBase::mReadElements(r);
  r.PointerList("pFeature", m_vecFeatures, lkPlain);
}

void CCategoryNode::GetFeatures(FeatureList_t& Features) const {
  AutoLock l(m_pMap->GetLock());
  Features.clear();
  for (CNodeBase* p : m_vecFeatures) Features.push_back(p);
}

}  // namespace detail
}  // namespace GenApi_3_0
