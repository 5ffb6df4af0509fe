// Lists of nodes, values and strings used by the GenApi interfaces.
#ifndef GENAPI_CONTAINER_H
#define GENAPI_CONTAINER_H

#include <cstdint>
#include <vector>

#include <GenApi/Types.h>

namespace GenApi_3_0 {

struct INode;
struct IValue;

/// A list of nodes, as GetNodes() and GetChildren() fill it.
class node_vector : public std::vector<INode*> {
public:
  using std::vector<INode*>::vector;
  node_vector() = default;
};

/// A list of features, as ICategory::GetFeatures() fills it.
class value_vector : public std::vector<IValue*> {
public:
  using std::vector<IValue*>::vector;
  value_vector() = default;
};

typedef node_vector NodeList_t;
typedef value_vector FeatureList_t;
typedef GenICam_3_0::gcstring_vector StringList_t;
typedef std::vector<int64_t> int64_autovector_t;
typedef std::vector<double> double_autovector_t;

}  // namespace GenApi_3_0

#endif
