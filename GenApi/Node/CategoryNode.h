// CCategoryNode: a named group of features.
#ifndef GENAPI_NODE_CATEGORYNODE_H
#define GENAPI_NODE_CATEGORYNODE_H

#include <GenApi/ICategory.h>

#include "Node/NodeBase.h"

namespace GenApi_3_0 {
namespace detail {

class CCategoryNode : public CNodeBase, public virtual ICategory {
public:
  using CNodeBase::CNodeBase;
  void mReadElements(CElementReader& Reader) override;
  EInterfaceType GetPrincipalInterfaceType() const override { return intfICategory; }
  void GetFeatures(FeatureList_t& Features) const override;
  const std::vector<CNodeBase*>& mFeatures() const { return m_vecFeatures; }

private:
  std::vector<CNodeBase*> m_vecFeatures;
};

}  // namespace detail
}  // namespace GenApi_3_0

#endif
