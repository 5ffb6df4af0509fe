// genapi-tree FILE.xml: loads a register description, serves its ports from
// zero-filled memory and prints the category tree with each feature's type
// and current value. Exit code 2 for a file that is missing, unreadable or
// not a valid description.
#include <cstdio>
#include <unordered_map>
#include <vector>

#include <GenICam.h>

#include "FeatureTree.h"

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
  VyTools::PrintFeatureTree(*static_cast<INodeMap*>(map), stdout);
  return 0;
}
