// ICategory: a group of features.
#ifndef GENAPI_ICATEGORY_H
#define GENAPI_ICATEGORY_H

#include <GenApi/IValue.h>

namespace GenApi_3_0 {

struct ICategory : virtual public IValue {
  /// The features of the category, in the description's order.
  virtual void GetFeatures(FeatureList_t& Features) const = 0;
};

}  // namespace GenApi_3_0

#endif
