// Helpers of the node-map tests: a port over plain memory and a loader for
// descriptions written inline.
#ifndef TESTS_GENAPI_TESTHELPERS_H
#define TESTS_GENAPI_TESTHELPERS_H

#include <cstring>
#include <string>
#include <vector>

#include <GenICam.h>

namespace GenApiTest {

/// A port over a byte array; counts reads and writes so tests can see
/// whether the cache answered.
class CMemoryPort : public GenApi::IPort {
public:
  explicit CMemoryPort(size_t Size = 0x10000, uint8_t Fill = 0) : m_Memory(Size, Fill) {}
  GenApi::EAccessMode GetAccessMode() const override { return m_eMode; }
  void Read(void* p, int64_t a, int64_t n) override {
    ++m_nReads;
    check(a, n);
    memcpy(p, &m_Memory[static_cast<size_t>(a)], static_cast<size_t>(n));
  }
  void Write(const void* p, int64_t a, int64_t n) override {
    ++m_nWrites;
    check(a, n);
    memcpy(&m_Memory[static_cast<size_t>(a)], p, static_cast<size_t>(n));
  }
  std::vector<uint8_t> m_Memory;
  GenApi::EAccessMode m_eMode = GenApi::RW;
  int m_nReads = 0;
  int m_nWrites = 0;

private:
  void check(int64_t a, int64_t n) {
    if (a < 0 || n < 0 || static_cast<size_t>(a + n) > m_Memory.size())
      throw RUNTIME_EXCEPTION("address 0x%llx length %lld outside the memory", (long long)a, (long long)n);
  }
};

/// Wraps node elements into a schema-1.1 description with a port "Device".
inline std::string Describe(const std::string& Nodes, const std::string& Ns = "Version_1_1") {
  return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
         "<RegisterDescription ModelName=\"T\" VendorName=\"V\" StandardNameSpace=\"None\" SchemaMajorVersion=\"1\" "
         "SchemaMinorVersion=\"" + std::string(Ns == "Version_1_0" ? "0" : "1") + "\" SchemaSubMinorVersion=\"0\" "
         "MajorVersion=\"1\" MinorVersion=\"0\" SubMinorVersion=\"0\" ProductGuid=\"x\" VersionGuid=\"y\" "
         "xmlns=\"http://www.genicam.org/GenApi/" + Ns + "\">\n" +
         Nodes + "\n<Port Name=\"Device\"/>\n</RegisterDescription>\n";
}

/// A node map from inline XML, connected to a memory port.
struct SMap {
  explicit SMap(const std::string& Nodes, size_t MemSize = 0x10000) : Port(MemSize) {
    Ref._LoadXMLFromString(Describe(Nodes).c_str());
    Ref._Connect(&Port, "Device");
  }
  GenApi::INode* operator[](const char* name) const { return Ref._GetNode(name); }
  CMemoryPort Port;
  GenApi::CNodeMapRef Ref;
};

}  // namespace GenApiTest

#endif
