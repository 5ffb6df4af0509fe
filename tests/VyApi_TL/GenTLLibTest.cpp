// The GenTL producer loader, against the producer stand-ins built beside the
// tests: search path, reuse of a loaded copy, the function table, and the
// failures of each step.
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

#include <VyApi_IP/VyApi_TL.h>

#include "VyGenTLCommon/VyGenTLLib.h"

using namespace VyApi;
namespace fs = std::filesystem;

namespace {

const std::string kProducerDir = std::string(VY_BINARY_DIR) + "/tests/gentl";

/// Sets GENICAM_GENTL64_PATH for one test and puts it back afterwards.
class GenTLLoader : public ::testing::Test {
protected:
  void SetUp() override {
    const char* p = getenv("GENICAM_GENTL64_PATH");
    m_bHadPath = p != nullptr;
    if (p != nullptr) m_strOldPath = p;
    char tmpl[] = "/tmp/vygentlXXXXXX";
    ASSERT_NE(mkdtemp(tmpl), nullptr);
    m_Dir = tmpl;
  }
  void TearDown() override {
    if (m_bHadPath) setenv("GENICAM_GENTL64_PATH", m_strOldPath.c_str(), 1);
    else unsetenv("GENICAM_GENTL64_PATH");
    std::error_code ec;
    fs::remove_all(m_Dir, ec);
  }
  /// A private copy of a producer under a sub-directory of the test's folder.
  std::string Copy(const std::string& producer, const std::string& sub, const std::string& as) {
    fs::create_directories(m_Dir / sub);
    fs::copy_file(kProducerDir + "/" + producer, m_Dir / sub / as, fs::copy_options::overwrite_existing);
    return (m_Dir / sub).string();
  }

  bool m_bHadPath = false;
  std::string m_strOldPath;
  fs::path m_Dir;
};

template <typename T>
T Symbol(void* h, const char* name) {
  return reinterpret_cast<T>(dlsym(h, name));
}

}  // namespace

TEST_F(GenTLLoader, FileNotOnThePath) {
  unsetenv("GENICAM_GENTL64_PATH");
  try {
    CVyGenTLLib lib("Missing.cti");
    FAIL() << "no exception";
  } catch (const GenICam_3_0::RuntimeException& e) {
    EXPECT_STREQ(e.GetDescription(), "File Missing.cti not found.");
    EXPECT_STREQ(e.GetSourceFileName(), "VyGenTLCommon/VyGenTLLib");
  }
  setenv("GENICAM_GENTL64_PATH", "", 1);
  EXPECT_THROW(CVyGenTLLib("Missing.cti"), GenICam_3_0::RuntimeException);
  setenv("GENICAM_GENTL64_PATH", (m_Dir.string() + ":/nonexistent").c_str(), 1);
  EXPECT_THROW(CVyGenTLLib("Missing.cti"), GenICam_3_0::RuntimeException);
}

TEST_F(GenTLLoader, TakesTheFirstDirectoryAndFillsTheTable) {
  const std::string first = Copy("VyFakeProducer.cti", "first", "Fake.cti");
  const std::string second = Copy("VyFakeProducer.cti", "second", "Fake.cti");
  setenv("GENICAM_GENTL64_PATH", ("/nonexistent:" + first + ":" + second).c_str(), 1);

  // Open the same file first, to watch the loader through the producer's own state.
  void* h = dlopen((first + "/Fake.cti").c_str(), RTLD_NOW);
  ASSERT_NE(h, nullptr) << dlerror();
  auto initCalls = Symbol<int (*)()>(h, "FakeProducer_InitCalls");
  auto closeCalls = Symbol<int (*)()>(h, "FakeProducer_CloseCalls");
  const int inits = initCalls(), closes = closeCalls();
  {
    CVyGenTLLib lib("Fake.cti");
    EXPECT_STREQ(lib.GetFullPath().c_str(), (first + "/Fake.cti").c_str());
    EXPECT_TRUE(lib.IsLoaded());
    EXPECT_EQ(initCalls(), inits + 1) << "the copy already in the process was used";
    EXPECT_NE(lib.GCGetLastError, nullptr);
    ASSERT_NE(lib.TLOpen, nullptr);
    EXPECT_EQ(lib.GCReadPort, nullptr) << "functions the producer lacks stay null";
    GenTL::TL_HANDLE hTL = nullptr;
    EXPECT_EQ(lib.TLOpen(&hTL), GenTL::GC_ERR_SUCCESS);
    EXPECT_NE(hTL, nullptr);
    lib.UnloadLib();
    EXPECT_EQ(closeCalls(), closes + 1);
    EXPECT_FALSE(lib.IsLoaded());
    EXPECT_EQ(lib.TLOpen, nullptr);
  }
  EXPECT_EQ(closeCalls(), closes + 1) << "a second unload does nothing";
  dlclose(h);
}

TEST_F(GenTLLoader, AProducerWithoutGCGetLastErrorLoads) {
  setenv("GENICAM_GENTL64_PATH", Copy("VyFakeProducerNoLastError.cti", "p", "NoLast.cti").c_str(), 1);
  CVyGenTLLib lib("NoLast.cti");
  EXPECT_TRUE(lib.IsLoaded());
  EXPECT_EQ(lib.GCGetLastError, nullptr);
  EXPECT_NE(lib.GCInitLib, nullptr);
}

TEST_F(GenTLLoader, AFailingGCInitLibRaisesWithTheProducersText) {
  const std::string dir = Copy("VyFakeProducer.cti", "p", "Failing.cti");
  setenv("GENICAM_GENTL64_PATH", dir.c_str(), 1);
  void* h = dlopen((dir + "/Failing.cti").c_str(), RTLD_NOW);
  ASSERT_NE(h, nullptr) << dlerror();
  Symbol<void (*)(int32_t)>(h, "FakeProducer_SetInitResult")(GenTL::GC_ERR_RESOURCE_IN_USE);
  Symbol<void (*)(int32_t, const char*)>(h, "FakeProducer_SetLastError")(GenTL::GC_ERR_RESOURCE_IN_USE, "in use");
  try {
    CVyGenTLLib lib("Failing.cti");
    FAIL() << "no exception";
  } catch (const CVyGenTLErrorException& e) {
    EXPECT_STREQ(e.GetDescription(), "-1004 = GCInitLib() in use");
    EXPECT_EQ(e.GetError(), GenTL::GC_ERR_RESOURCE_IN_USE);
    EXPECT_STREQ(e.GetFunctionName().c_str(), "GCInitLib");
  }
  dlclose(h);
}

TEST_F(GenTLLoader, AFileThatIsNoLibraryRaisesTheLoadersText) {
  fs::create_directories(m_Dir / "p");
  std::ofstream((m_Dir / "p" / "Text.cti").string()) << "not a library";
  setenv("GENICAM_GENTL64_PATH", (m_Dir / "p").string().c_str(), 1);
  try {
    CVyGenTLLib lib("Text.cti");
    FAIL() << "no exception";
  } catch (const CVyLinuxErrorException& e) {
    EXPECT_STREQ(e.GetFunctionName().c_str(), "dlopen");
    EXPECT_NE(std::string(e.GetDescription()).find("Text.cti"), std::string::npos) << e.GetDescription();
    EXPECT_NE(std::string(e.GetDescription()).find("ErrorCode=0x"), std::string::npos);
  }
}
