// genapi-tree FILE.xml: loads a register description, serves its ports from
// zero-filled memory and prints the category tree with each feature's type
// and current value. Exit code 2 for a file that is missing, unreadable or
// not a valid description.
#include <cstdio>
#include <set>
#include <unordered_map>
#include <vector>

#include <GenICam.h>

using namespace GenApi;

namespace {

class CMemoryPort : public IPort {
public:
  EAccessMode GetAccessMode() const override { return RW; }
  void Read(void* p, int64_t a, int64_t n) override {
    uint8_t* out = static_cast<uint8_t*>(p);
    for (int64_t i = 0; i < n; ++i) {
      auto it = m_Bytes.find(a + i);
      out[i] = it == m_Bytes.end() ? 0 : it->second;
    }
  }
  void Write(const void* p, int64_t a, int64_t n) override {
    for (int64_t i = 0; i < n; ++i) m_Bytes[a + i] = static_cast<const uint8_t*>(p)[i];
  }

private:
  std::unordered_map<int64_t, uint8_t> m_Bytes;
};

const char* TypeName(EInterfaceType t) {
  switch (t) {
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

void Print(INode* n, int depth, std::set<INode*>& seen) {
  std::string indent(static_cast<size_t>(depth) * 2, ' ');
  CCategoryPtr cat(n);
  if (cat.IsValid()) {
    printf("%s%s/\n", indent.c_str(), n->GetName().c_str());
    if (!seen.insert(n).second) return;  // a category listed twice is shown once
    FeatureList_t features;
    cat->GetFeatures(features);
    for (IValue* f : features) Print(f->GetNode(), depth + 1, seen);
    return;
  }
  std::string value;
  try {
    CValuePtr v(n);
    if (n->GetPrincipalInterfaceType() == intfICommand) value = IsWritable(n) ? "(command)" : "(not writable)";
    else if (v.IsValid() && IsReadable(v)) value = v->ToString().c_str();
    else value = "(not readable)";
  } catch (const GenICam::GenericException& e) {
    value = std::string("(error: ") + e.GetDescription() + ")";
  }
  printf("%s%s [%s] = %s\n", indent.c_str(), n->GetName().c_str(), TypeName(n->GetPrincipalInterfaceType()),
         value.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    fprintf(stderr, "usage: genapi-tree FILE.xml\n");
    return 2;
  }
  CNodeMapRef map;
  CMemoryPort port;
  try {
    CNodeMapFactory f(ContentType_Auto, gcstring(argv[1]));
    map._Attach(f.CreateNodeMap(), "Device", nullptr);
    NodeList_t nodes;
    map._GetNodes(nodes);
    for (INode* n : nodes)
      if (n->GetPrincipalInterfaceType() == intfIPort) map._Connect(&port, n->GetName());
  } catch (const GenICam::GenericException& e) {
    fprintf(stderr, "genapi-tree: cannot load '%s': %s\n", argv[1], e.GetDescription());
    return 2;
  }
  INode* root = map._GetNode("Root");
  std::set<INode*> seen;
  if (root) {
    Print(root, 0, seen);
  } else {
    NodeList_t nodes;
    map._GetNodes(nodes);
    for (INode* n : nodes)
      if (CCategoryPtr(n).IsValid()) Print(n, 0, seen);
  }
  return 0;
}
