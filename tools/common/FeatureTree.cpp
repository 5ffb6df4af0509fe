#include "FeatureTree.h"

#include <set>
#include <string>

using namespace GenApi;

namespace VyTools {

const char* InterfaceTypeName(EInterfaceType eType) {
  switch (eType) {
    case intfIInteger: return "Integer";
    case intfIFloat: return "Float";
    case intfIBoolean: return "Boolean";
    case intfICommand: return "Command";
    case intfIString: return "String";
    case intfIRegister: return "Register";
    case intfICategory: return "Category";
    case intfIEnumeration: return "Enumeration";
    case intfIEnumEntry: return "EnumEntry";
    case intfIPort: return "Port";
    default: return "Node";
  }
}

namespace {

void PrintNode(INode* pNode, int nDepth, std::set<INode*>& seen, FILE* out) {
  const std::string indent(static_cast<size_t>(nDepth) * 2, ' ');
  CCategoryPtr category(pNode);
  if (category.IsValid()) {
    std::fprintf(out, "%s%s/\n", indent.c_str(), pNode->GetName().c_str());
    if (!seen.insert(pNode).second) return;  // a category listed twice is shown once
    FeatureList_t features;
    category->GetFeatures(features);
    for (IValue* pFeature : features) PrintNode(pFeature->GetNode(), nDepth + 1, seen, out);
    return;
  }
  std::string value;
  try {
    CValuePtr pValue(pNode);
    if (pNode->GetPrincipalInterfaceType() == intfICommand)
      value = IsWritable(pNode) ? "(command)" : "(not writable)";
    else if (pValue.IsValid() && IsReadable(pValue))
      value = pValue->ToString().c_str();
    else
      value = "(not readable)";
  } catch (const GenICam::GenericException& e) {
    value = std::string("(error: ") + e.GetDescription() + ")";
  }
  std::fprintf(out, "%s%s [%s] = %s\n", indent.c_str(), pNode->GetName().c_str(),
               InterfaceTypeName(pNode->GetPrincipalInterfaceType()), value.c_str());
}

}  // namespace

void PrintFeatureTree(INodeMap& map, FILE* out) {
  std::set<INode*> seen;
  if (INode* pRoot = map.GetNode("Root")) {
    PrintNode(pRoot, 0, seen, out);
    return;
  }
  NodeList_t nodes;
  map.GetNodes(nodes);
  for (INode* pNode : nodes)
    if (CCategoryPtr(pNode).IsValid()) PrintNode(pNode, 0, seen, out);
}

}  // namespace VyTools
