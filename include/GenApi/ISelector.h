// ISelector: a feature that selects which element other features address.
#ifndef GENAPI_ISELECTOR_H
#define GENAPI_ISELECTOR_H

#include <GenApi/IBase.h>
#include <GenApi/Container.h>

namespace GenApi_3_0 {

struct ISelector : virtual public IBase {
  /// True when the node selects other features (has pSelected entries).
  virtual bool IsSelector() const = 0;
  /// The features this node selects.
  virtual void GetSelectedFeatures(FeatureList_t& Features) const = 0;
  /// The features that select this node.
  virtual void GetSelectingFeatures(FeatureList_t& Features) const = 0;
};

}  // namespace GenApi_3_0

#endif
