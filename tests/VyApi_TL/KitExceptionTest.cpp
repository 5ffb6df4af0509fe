// The kit's two exceptions and their reporters: message composition, code,
// function name, source, and the producer's own text for GenTL errors.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>

#include <VyApi_IP/VyApi_TL.h>

#include "VyGenTLCommon/VyGenTLLib.h"

using namespace VyApi;

namespace {

bool EndsWith(const std::string& s, const std::string& tail) {
  return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

/// A producer table whose GCGetLastError the test controls.
class CScriptedGenTLLib : public CVyGenTLLib {
public:
  CScriptedGenTLLib() { GCGetLastError = &LastError; }

  static GenTL::GC_ERROR LastError(GenTL::GC_ERROR* piErrorCode, char* sErrText, size_t* piSize) {
    ++s_nCalls;
    if (s_nResult != GenTL::GC_ERR_SUCCESS) return s_nResult;
    *piErrorCode = s_nCode;
    const size_t need = std::strlen(s_pText) + 1;
    if (sErrText != nullptr) {
      if (*piSize < need) return GenTL::GC_ERR_BUFFER_TOO_SMALL;
      std::memcpy(sErrText, s_pText, need);
    }
    *piSize = need;
    return GenTL::GC_ERR_SUCCESS;
  }

  static GenTL::GC_ERROR s_nResult;
  static GenTL::GC_ERROR s_nCode;
  static const char* s_pText;
  static int s_nCalls;
};

GenTL::GC_ERROR CScriptedGenTLLib::s_nResult = 0;
GenTL::GC_ERROR CScriptedGenTLLib::s_nCode = 0;
const char* CScriptedGenTLLib::s_pText = "";
int CScriptedGenTLLib::s_nCalls = 0;

}  // namespace

TEST(LinuxErrorException, MessageEndsInCodeAndCurrentErrnoText) {
  errno = 2;
  const unsigned line = __LINE__ + 1;
  const CVyLinuxErrorException e = VY_LINUX_ERROR_EXCEPTION(2, "open", "open(%s) failed", "/nowhere");
  const std::string what = e.what();
  // what() adds file and line in GenICam's way; the description is ours.
  EXPECT_NE(what.find(" ErrorCode=0x00000002 \" \"No such file or directory"), std::string::npos) << what;
  EXPECT_TRUE(EndsWith(e.GetDescription(), "open(/nowhere) failed ErrorCode=0x00000002 \" \"No such file or directory"))
      << e.GetDescription();
  EXPECT_EQ(e.GetError(), 2);
  EXPECT_STREQ(e.GetFunctionName().c_str(), "open");
  EXPECT_STREQ(e.GetSourceFileName(), "tests/VyApi_TL/KitExceptionTest");
  EXPECT_STREQ(e.GetExceptionType(), "VyLinuxErrorException");
  EXPECT_EQ(e.GetSourceLine(), line);
}

TEST(LinuxErrorException, TheErrnoTextIsTakenWhenTheReportIsMade) {
  errno = 13;  // EACCES, though the code reported is another
  const CVyLinuxErrorException e =
      CVyLinuxErrorExceptionReporter("VySDKCommon/EventObject", 42, "VyLinuxErrorException")
          .Report(22, "pthread_mutex_init", "0 != pthread_mutex_init(&m_sem.mutex) [Error=0x%x %s]", 22, "x");
  EXPECT_STREQ(e.GetDescription(), (std::string("0 != pthread_mutex_init(&m_sem.mutex) [Error=0x16 x] ErrorCode=0x00000016 \" \"") +
                                    std::strerror(13)).c_str());
  EXPECT_EQ(e.GetSourceLine(), 42u);
  EXPECT_STREQ(e.GetSourceFileName(), "VySDKCommon/EventObject");
}

TEST(LinuxErrorException, LongMessagesAreCutAt1024Bytes) {
  const std::string longText(2000, 'x');
  const CVyLinuxErrorException e = VY_LINUX_ERROR_EXCEPTION(1, "f", "%s", longText.c_str());
  EXPECT_EQ(std::strlen(e.GetDescription()), 1023u);
  const CVyGenTLErrorException g = VY_GENTL_ERROR_EXCEPTION(nullptr, -1, "f", "%s", longText.c_str());
  EXPECT_EQ(std::strlen(g.GetDescription()), 1023u);
}

TEST(GenTLErrorException, WithoutALibraryTheMessageIsOnlyTheFormattedText) {
  const CVyGenTLErrorException e = VY_GENTL_ERROR_EXCEPTION(nullptr, -1010, "GCReadPort", "%d = GCReadPort(0x%p)", -1010,
                                                            static_cast<void*>(nullptr));
  EXPECT_STREQ(e.GetDescription(), "-1010 = GCReadPort(0x(nil))");
  EXPECT_EQ(e.GetError(), -1010);
  EXPECT_STREQ(e.GetFunctionName().c_str(), "GCReadPort");
  EXPECT_STREQ(e.GetExceptionType(), "VyGenTLErrorException");
}

TEST(GenTLErrorException, TheProducersTextIsAddedOnlyForTheSameError) {
  CScriptedGenTLLib lib;
  CScriptedGenTLLib::s_nResult = 0;
  CScriptedGenTLLib::s_nCode = -1011;
  CScriptedGenTLLib::s_pText = "timeout on the wire";
  CScriptedGenTLLib::s_nCalls = 0;
  CVyGenTLErrorException same = VY_GENTL_ERROR_EXCEPTION(&lib, -1011, "DSStartAcquisition", "%d = DSStartAcquisition()", -1011);
  EXPECT_STREQ(same.GetDescription(), "-1011 = DSStartAcquisition() timeout on the wire");
  EXPECT_EQ(CScriptedGenTLLib::s_nCalls, 2) << "once for the size, once for the text";

  CScriptedGenTLLib::s_nCode = -1001;
  CVyGenTLErrorException other = VY_GENTL_ERROR_EXCEPTION(&lib, -1011, "DSStartAcquisition", "%d = DSStartAcquisition()", -1011);
  EXPECT_STREQ(other.GetDescription(), "-1011 = DSStartAcquisition()");

  CScriptedGenTLLib::s_nCode = -1011;
  CScriptedGenTLLib::s_nResult = GenTL::GC_ERR_NOT_AVAILABLE;
  CVyGenTLErrorException failing = VY_GENTL_ERROR_EXCEPTION(&lib, -1011, "DSStartAcquisition", "%d = DSStartAcquisition()", -1011);
  EXPECT_STREQ(failing.GetDescription(), "-1011 = DSStartAcquisition()");
  CScriptedGenTLLib::s_nResult = 0;

  lib.GCGetLastError = nullptr;
  CVyGenTLErrorException none = VY_GENTL_ERROR_EXCEPTION(&lib, -1011, "DSStartAcquisition", "%d = DSStartAcquisition()", -1011);
  EXPECT_STREQ(none.GetDescription(), "-1011 = DSStartAcquisition()");
}
