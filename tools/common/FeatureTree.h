// Printing a node map as a tree of categories and features with their values.
#ifndef VYAPI_TOOLS_FEATURETREE_H
#define VYAPI_TOOLS_FEATURETREE_H

#include <cstdio>

#include <GenICam.h>

namespace VyTools {

/// Prints the tree below the category "Root" (or every category when the map
/// has none) to out: categories end in "/", features show "[Type] = value",
/// "(not readable)" or "(error: ...)". Raises nothing.
void PrintFeatureTree(GenApi::INodeMap& map, FILE* out);

/// The interface name of a node type ("Integer", "Float", ...). Raises nothing.
const char* InterfaceTypeName(GenApi::EInterfaceType eType);

}  // namespace VyTools

#endif
