#include <VyApi_IP/VyFileSystem.h>

#include <cstdlib>
#include <new>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

#include <VyApi_IP/VyReporter.h>

namespace VyApi {

void MakePath(const GenICam_3_0::gcstring& strPath, bool bIsFileName) {
  std::string strDir;
  try {
    strDir.assign(strPath.c_str(), strPath.size());
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
  if (bIsFileName) {
    // The search starts at 1, so a lone leading "/" never cuts the path down
    // to nothing.
    size_t nLast = std::string::npos;
    for (size_t n = strDir.find('/', 1); n != std::string::npos; n = strDir.find('/', n + 1)) nLast = n;
    if (nLast != std::string::npos) strDir.erase(nLast);
  }
  // An existing directory or a missing parent is not an error here: the open
  // that follows reports what matters.
  (void)::mkdir(strDir.c_str(), 0775);
}

FILE* openTempFile(const char* szName) {
  const char* szDir = "/tmp";
  // TMPDIR is trusted only when the process is not running set-user-id.
  const uid_t nReal = ::getuid();
  if (static_cast<int>(nReal) >= 0 && nReal == ::geteuid()) {
    const char* szEnv = std::getenv("TMPDIR");
    if (szEnv) szDir = szEnv;
  }
  char szPath[255];
  std::snprintf(szPath, sizeof szPath, "%s/%s.XXXXXX", szDir, szName);
  const int fd = ::mkstemp(szPath);
  if (fd < 0) return nullptr;
  ::unlink(szPath);
  FILE* pFile = ::fdopen(fd, "wb");
  if (!pFile) ::close(fd);
  return pFile;
}

}  // namespace VyApi
