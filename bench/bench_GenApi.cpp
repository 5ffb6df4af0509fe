// Node-map creation from the largest shared description, and feature access
// through a memory port; each beside its anchor (a copy of the description's
// bytes, a plain memcpy of the register) in the same run.
#include <benchmark/benchmark.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

#include <GenICam.h>

using namespace GenApi;

namespace {

const std::string& LargestDescription() {
  static const std::string text = [] {
    std::ifstream f(std::string(VY_SHARED_DIR) + "/genicam/devices/basler-a2a2600-20gmbas-gige.xml", std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  }();
  return text;
}

class CMemoryPort : public IPort {
public:
  CMemoryPort() : m(256, 0) {}
  EAccessMode GetAccessMode() const override { return RW; }
  void Read(void* p, int64_t a, int64_t n) override { memcpy(p, &m[static_cast<size_t>(a)], static_cast<size_t>(n)); }
  void Write(const void* p, int64_t a, int64_t n) override { memcpy(&m[static_cast<size_t>(a)], p, static_cast<size_t>(n)); }
  std::vector<uint8_t> m;
};

const char* kFeatures = R"(<?xml version="1.0" encoding="utf-8"?>
<RegisterDescription ModelName="B" VendorName="V" StandardNameSpace="None" SchemaMajorVersion="1" SchemaMinorVersion="1"
 SchemaSubMinorVersion="0" MajorVersion="1" MinorVersion="0" SubMinorVersion="0" ProductGuid="x" VersionGuid="y"
 xmlns="http://www.genicam.org/GenApi/Version_1_1">
<Integer Name="Width"><pValue>WidthReg</pValue><Min>16</Min><Max>4096</Max><Inc>4</Inc></Integer>
<IntReg Name="WidthReg"><Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
 <Endianess>LittleEndian</Endianess></IntReg>
<Float Name="Gain"><pValue>GainReg</pValue><Min>0</Min><Max>24</Max></Float>
<FloatReg Name="GainReg"><Address>8</Address><Length>8</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
 <Endianess>LittleEndian</Endianess></FloatReg>
<Enumeration Name="Mode"><EnumEntry Name="Off"><Value>0</Value></EnumEntry><EnumEntry Name="On"><Value>1</Value></EnumEntry>
 <pValue>ModeReg</pValue></Enumeration>
<IntReg Name="ModeReg"><Address>16</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
 <Endianess>LittleEndian</Endianess></IntReg>
<Port Name="Device"/>
</RegisterDescription>)";

struct SFixture {
  SFixture() {
    ref._LoadXMLFromString(kFeatures);
    ref._Connect(&port, "Device");
  }
  CMemoryPort port;
  CNodeMapRef ref;
};

void BM_Anchor_CopyDescription(benchmark::State& s) {
  const std::string& t = LargestDescription();
  for (auto _ : s) {
    std::string copy(t);
    benchmark::DoNotOptimize(copy.data());
  }
}
BENCHMARK(BM_Anchor_CopyDescription)->Unit(benchmark::kMillisecond);

void BM_CreateNodeMap(benchmark::State& s) {
  const std::string& t = LargestDescription();
  for (auto _ : s) {
    CNodeMapFactory f(ContentType_Xml, t.data(), t.size());
    INodeMap* p = f.CreateNodeMap();
    benchmark::DoNotOptimize(p);
    dynamic_cast<IDestroy*>(p)->Destroy();
  }
}
BENCHMARK(BM_CreateNodeMap)->Unit(benchmark::kMillisecond);

void BM_Anchor_Memcpy4(benchmark::State& s) {
  CMemoryPort port;
  uint32_t v = 0;
  for (auto _ : s) {
    port.Write(&v, 0, 4);
    port.Read(&v, 0, 4);
    ++v;
    benchmark::DoNotOptimize(v);
  }
}
BENCHMARK(BM_Anchor_Memcpy4);

void BM_IntegerSetGet(benchmark::State& s) {
  SFixture f;
  CIntegerPtr w = f.ref._GetNode("Width");
  int64_t v = 16;
  for (auto _ : s) {
    w->SetValue(v);
    benchmark::DoNotOptimize(w->GetValue());
    v = v == 4096 ? 16 : v + 4;
  }
}
BENCHMARK(BM_IntegerSetGet);

void BM_IntegerGetUncached(benchmark::State& s) {
  SFixture f;
  CIntegerPtr w = f.ref._GetNode("Width");
  for (auto _ : s) benchmark::DoNotOptimize(w->GetValue(false, true));
}
BENCHMARK(BM_IntegerGetUncached);

void BM_FloatSetGet(benchmark::State& s) {
  SFixture f;
  CFloatPtr g = f.ref._GetNode("Gain");
  double v = 0;
  for (auto _ : s) {
    g->SetValue(v);
    benchmark::DoNotOptimize(g->GetValue());
    v = v >= 24 ? 0 : v + 0.5;
  }
}
BENCHMARK(BM_FloatSetGet);

void BM_EnumerationSetGet(benchmark::State& s) {
  SFixture f;
  CEnumerationPtr e = f.ref._GetNode("Mode");
  bool on = false;
  for (auto _ : s) {
    *e = on ? "On" : "Off";
    benchmark::DoNotOptimize(e->GetIntValue());
    on = !on;
  }
}
BENCHMARK(BM_EnumerationSetGet);

}  // namespace

BENCHMARK_MAIN();
