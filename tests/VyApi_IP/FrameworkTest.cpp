// The module frame: port walk, node map, setter/node consistency, buffer pool,
// callback registry, factories, owners and the filter chain.
#include "TestSupport.h"

#include <fstream>
#include <iterator>
#include <thread>

#include <VyApi_IP/VyCallbackManager.h>

#include "VyApi_IP/VyGammaCorrectionFilter.h"
#include "VyApi_IP/VyResource_VyApi_IP.h"

using namespace VyApi;
using namespace VyApiTest;

namespace {

// The gamma filter with the frame's protected pool opened for inspection.
class PoolProbe : public CVyGammaCorrectionFilter {
public:
  using CVyGammaCorrectionFilter::GetTempolaryBuffer;
  using CVyGammaCorrectionFilter::ReleaseTempolaryBuffer;
};

using FrameworkTest = KitTest;

TEST_F(FrameworkTest, PortWalkServesSizeTSizeAndSkipsToTheNextWordOnARefusal) {
  CVyAutoPtr<IVyFilterReleasable, IVyGammaCorrectionFilter> f(CreateIVyFilter(VyFilterType_GammaCorrection));
  auto* port = dynamic_cast<GenApi::IPort*>(static_cast<IVyFilterReleasable*>(f.Get()));
  ASSERT_NE(port, nullptr);
  EXPECT_EQ(port->GetAccessMode(), GenApi::RW);
  uint8_t buf[4] = {0xAA, 0xBB, 0xCC, 0xDD};
  port->Read(buf, 0, 4);
  EXPECT_EQ(buf[0], 8);
  EXPECT_EQ(buf[1], 0xBB);
  EXPECT_EQ(buf[2], 0xCC);
  EXPECT_EQ(buf[3], 0xDD);

  // (A refusal on a multiple of four repeats for ever, so the free 0x18..0x1F
  // is never read here.)
  double d = -1;
  port->Read(&d, 0x10, 8);
  EXPECT_EQ(d, 1.0);
  double limits[2];
  port->Read(limits, 0x20, 16);
  EXPECT_EQ(limits[0], 0.0);
  EXPECT_EQ(limits[1], 4.0);

  // Nothing is done for a non-positive length.
  port->Read(buf, 0, 0);
  double g = 2.5;
  port->Write(&g, 0x10, 8);
  EXPECT_EQ(f->GetGammaValue(), 2.5);
}

TEST_F(FrameworkTest, NodeMapIsMadeOncePerModuleAndConnectsItsPort) {
  CVyAutoPtr<IVyFilterReleasable, IVyGammaCorrectionFilter> a(CreateIVyFilter(VyFilterType_GammaCorrection));
  CVyAutoPtr<IVyFilterReleasable, IVyGammaCorrectionFilter> b(CreateIVyFilter(VyFilterType_GammaCorrection));
  GenApi::INodeMap* ma = a->GetINodeMap();
  ASSERT_NE(ma, nullptr);
  EXPECT_EQ(ma, a->GetINodeMap());
  EXPECT_NE(ma, b->GetINodeMap());
  GenApi::CFloatPtr gamma = ma->GetNode("Gamma");
  ASSERT_TRUE(gamma.IsValid());
  EXPECT_EQ(gamma->GetValue(), 1.0);
  EXPECT_EQ(gamma->GetMin(), 0.0);
  EXPECT_EQ(gamma->GetMax(), 4.0);
  // Two maps of one type are independent.
  gamma->SetValue(2.2);
  EXPECT_EQ(a->GetGammaValue(), 2.2);
  EXPECT_EQ(b->GetGammaValue(), 1.0);
  EXPECT_EQ(GenApi::CFloatPtr(b->GetINodeMap()->GetNode("Gamma"))->GetValue(), 1.0);
}

TEST_F(FrameworkTest, SetterAndNodeMapStayConsistent) {
  CVyAutoPtr<IVyFilterReleasable, IVyGammaCorrectionFilter> f(CreateIVyFilter(VyFilterType_GammaCorrection));
  // A setter before the node map exists does no XML work and raises nothing.
  f->SetGammaValue(3.0);
  GenApi::CFloatPtr gamma = f->GetINodeMap()->GetNode("Gamma");
  EXPECT_EQ(gamma->GetValue(), 3.0);

  // The node checks the range before anything reaches the module.
  EXPECT_THROW(gamma->SetValue(4.5), GenICam::OutOfRangeException);
  EXPECT_EQ(f->GetGammaValue(), 3.0);

  // A write that bypasses the node leaves the node's cache stale...
  auto* port = dynamic_cast<GenApi::IPort*>(static_cast<IVyFilterReleasable*>(f.Get()));
  double g = 0.5;
  port->Write(&g, 0x10, 8);
  EXPECT_EQ(gamma->GetValue(), 3.0);
  // ...and setting the value the module already has invalidates nothing...
  f->SetGammaValue(0.5);
  EXPECT_EQ(gamma->GetValue(), 3.0);
  // ...while a real change invalidates the register node.
  f->SetGammaValue(1.5);
  EXPECT_EQ(gamma->GetValue(), 1.5);
}

TEST_F(FrameworkTest, TemporaryBuffersComeBackOldestFirstAndAreReleasedOnce) {
  PoolProbe probe;
  IVyImageBufferReleasable* a = probe.GetTempolaryBuffer();
  probe.ReleaseTempolaryBuffer(a);
  EXPECT_EQ(probe.GetTempolaryBuffer(), a);
  IVyImageBufferReleasable* b = probe.GetTempolaryBuffer();
  EXPECT_NE(a, b);
  probe.ReleaseTempolaryBuffer(b);
  probe.ReleaseTempolaryBuffer(a);
  EXPECT_EQ(probe.GetTempolaryBuffer(), b);
  EXPECT_EQ(probe.GetTempolaryBuffer(), a);
  // Both stay lent out; the module's destruction releases them (checked by
  // the sanitizer builds for leaks and double frees).
}

class CountingCallback : public IVyCallback {
public:
  CountingCallback(int& calls, int& releases, bool bThrow) : m_calls(calls), m_releases(releases), m_bThrow(bThrow) {}
  void OnCallback(IVyCallbackParamBase*) override {
    ++m_calls;
    if (m_bThrow) throw std::runtime_error("callback failure");
  }
  void Release() override {
    ++m_releases;
    delete this;
  }

private:
  int& m_calls;
  int& m_releases;
  bool m_bThrow;
};

class Param : public CVyCallbackParamBase<IVyCallbackParamBase, 6> {};

TEST_F(FrameworkTest, CallbackRegistryRunsAllReleasesEachOnceAndRefusesUnknownHandles) {
  int calls = 0, releases = 0;
  {
    CVyCallbackManager manager;
    Param param;
    EXPECT_EQ(param.GetCallbackType(), 6);
    manager.RunCallback(&param);  // nothing registered: nothing happens
    void* h1 = manager.RegisterCallback(new CountingCallback(calls, releases, true));
    manager.RegisterCallback(new CountingCallback(calls, releases, false));
    manager.RegisterCallback(new CountingCallback(calls, releases, true));
    EXPECT_NO_THROW(manager.RunCallback(&param));
    EXPECT_EQ(calls, 3);
    manager.DeregisterCallback(h1);
    EXPECT_EQ(releases, 1);
    EXPECT_EQ(MessageOf([&] { manager.DeregisterCallback(h1); }), "hCallback is invalid.");
    EXPECT_THROW(manager.DeregisterCallback(h1), GenICam::InvalidArgumentException);
    manager.RunCallback(&param);
    EXPECT_EQ(calls, 5);
  }
  EXPECT_EQ(releases, 3);

  // Modules forward to their registry.
  CVyAutoPtr<IVyFilterReleasable, IVyFilter> f(CreateIVyFilter(VyFilterType_GammaCorrection));
  void* h = f->RegisterCallback(new CountingCallback(calls, releases, false));
  f->DeregisterCallback(h);
  EXPECT_EQ(releases, 4);
}

TEST_F(FrameworkTest, FactoriesCheckTheTypeRangeWithTheirOwnNames) {
  EXPECT_EQ(MessageOf([] { CreateIVyFilter(static_cast<EVyFilterType_t>(8)); }),
            "CreateIVyFilter = 8 must be smaller than Max = 8");
  EXPECT_EQ(MessageOf([] { CreateIVyConverter(static_cast<EVyConverterType_t>(2)); }),
            "CreateIVyConverter = 2 must be smaller than Max = 2");
  EXPECT_EQ(MessageOf([] { CreateIVyFiler(static_cast<EVyFilerType_t>(-1)); }),
            "CreateIVyFiler = -1 must be smaller than Max = 2");
  EXPECT_EQ(MessageOf([] { GetIVyFilterInfo(static_cast<EVyFilterType_t>(9)); }),
            "CreateIVyFilter = 9 must be smaller than Max = 8");
  EXPECT_THROW(CreateIVyFilter(static_cast<EVyFilterType_t>(8)), GenICam::OutOfRangeException);
  try {
    CreateIVyFilter(static_cast<EVyFilterType_t>(8));
  } catch (const GenICam::GenericException& e) {
    EXPECT_STREQ(e.GetSourceFileName(), "VyApi_IP/VyApi_IP");
  }

  IVyFilterInfo* info = GetIVyFilterInfo(VyFilterType_GammaCorrection);
  EXPECT_EQ(info->GetFilterType(), VyFilterType_GammaCorrection);
  EXPECT_EQ(info->GetFilterName(), "Gamma Correction");
  EXPECT_TRUE(info->IsSupported(VyPixelFormat_Mono8));
  EXPECT_FALSE(info->IsSupported(VyPixelFormat_Mono10p));
}

TEST(FactoryWithoutKit, RaisesUntilTheKitIsInitialised) {
  EXPECT_THROW(CreateIVyFilter(VyFilterType_GammaCorrection), GenICam::RuntimeException);
  EXPECT_THROW(GetIVyFilterInfo(VyFilterType_GammaCorrection), GenICam::RuntimeException);
}

TEST_F(FrameworkTest, AutoPointerRaisesWhenEmpty) {
  CVyAutoPtr<IVyFilterReleasable, IVyGammaCorrectionFilter> empty;
  EXPECT_EQ(MessageOf([&] { empty->GetGammaValue(); }), "NULL pointer dereferenced");
  EXPECT_THROW(static_cast<IVyGammaCorrectionFilter*>(empty), GenICam::LogicalErrorException);
  // Owner code is compiled in the application, yet reports the library's source name.
  try {
    empty->GetGammaValue();
  } catch (const GenICam::GenericException& e) {
    EXPECT_STREQ(e.GetSourceFileName(), "VyApi_IP/VyApi_IP");
  }
  CIVyFilterPtrArray chain;
  try {
    chain[0];
    ADD_FAILURE() << "no exception";
  } catch (const GenICam::OutOfRangeException& e) {
    EXPECT_STREQ(e.GetSourceFileName(), "VyApi_IP/VyApi_IP");
  }
  EXPECT_EQ(GetModuleHandleIP(), nullptr);
}

class MarkFilter : public IVyFilterReleasable {
public:
  MarkFilter(std::vector<int>& log, int id, int& released) : m_log(log), m_id(id), m_released(released) {}
  void* RegisterCallback(IVyCallback*) override { return nullptr; }
  void DeregisterCallback(void*) override {}
  IVyFilterInfo* GetIVyFilterInfo() const override { return nullptr; }
  IVyImage* Filter(IVyImage* p) override {
    m_log.push_back(m_id);
    if (m_id < 0) throw VY_RUNTIME_EXCEPTION("failing filter");
    return p;
  }
  GenApi::INodeMap* GetINodeMap() override { return nullptr; }
  void Release() override {
    ++m_released;
    delete this;
  }

private:
  std::vector<int>& m_log;
  int m_id;
  int& m_released;
};

TEST_F(FrameworkTest, ChainRunsInOrderStopsAtAnExceptionAndStaysUsableAfterRelease) {
  std::vector<int> log;
  int released = 0;
  Image image(4, 2, VyPixelFormat_Mono8);
  CIVyFilterPtrArray chain;
  EXPECT_EQ(chain.Filter(image.img()), image.img());
  EXPECT_EQ(chain.Register(new MarkFilter(log, 1, released)), 0u);
  EXPECT_EQ(chain.Register(new MarkFilter(log, -2, released)), 1u);
  EXPECT_EQ(chain.Register(new MarkFilter(log, 3, released)), 2u);
  EXPECT_THROW(chain.Filter(image.img()), GenICam::RuntimeException);
  EXPECT_EQ(log, (std::vector<int>{1, -2}));

  IVyFilterReleasable* old1 = chain.Deregister(1);
  EXPECT_EQ(chain.GetSize(), 2u);
  EXPECT_EQ(released, 0);
  old1->Release();
  log.clear();
  EXPECT_EQ(chain.Filter(image.img()), image.img());
  EXPECT_EQ(log, (std::vector<int>{1, 3}));

  EXPECT_EQ(MessageOf([&] { chain[2]; }), "nIndex = 2 must be smaller than Max = 2");
  EXPECT_EQ(MessageOf([&] { chain.Deregister(static_cast<size_t>(-1)); }),
            "nIndex = -1 must be equal or greater than Min = 0");

  chain.Release();
  EXPECT_EQ(chain.GetSize(), 0u);
  EXPECT_EQ(released, 3);
  chain.Register(CreateIVyFilter(VyFilterType_GammaCorrection));
  EXPECT_EQ(chain.GetSize(), 1u);
}

TEST(Resources, EmbeddedDescriptionsMatchTheirFilesAndUnknownIdsAreEmpty) {
  CVyResource_VyApi_IP resource;
  EXPECT_EQ(resource.getSize(106), 0);
  EXPECT_EQ(resource.getData(106), nullptr);
  std::ifstream file(std::string(VY_SOURCE_DIR) + "/xml/FilterGammaCorrection.xml", std::ios::binary);
  const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  ASSERT_EQ(resource.getSize(105), static_cast<int64_t>(text.size()));
  EXPECT_EQ(std::string(resource.getData(105), text.size()), text);
  EXPECT_EQ(text.substr(0, 3), "\xEF\xBB\xBF");
}

TEST(Resources, EveryDescriptionValidatesAgainstTheSchema) {
  const std::string cmd = "xmllint --noout --schema '" + std::string(VY_SHARED_DIR) +
                          "/genicam/GenApiSchema_Version_1_1.xsd' '" + VY_SOURCE_DIR + "'/xml/*.xml 2>&1";
  FILE* pipe = popen(cmd.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string out;
  char buf[512];
  while (fgets(buf, sizeof buf, pipe)) out += buf;
  EXPECT_EQ(pclose(pipe), 0) << out;
}

}  // namespace
