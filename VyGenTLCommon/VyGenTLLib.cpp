#include "VyGenTLCommon/VyGenTLLib.h"

#include <dlfcn.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <new>
#include <string>

#include <VyApi_IP/VyException.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

CVyGenTLLib::CVyGenTLLib() : m_hLibrary(nullptr) { mClearTable(); }

CVyGenTLLib::CVyGenTLLib(GenICam_3_0::gcstring strFileName) : m_hLibrary(nullptr) {
  mClearTable();
  try {
    m_strFileName = strFileName;
    m_strFullPath = GetFullPathName();
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
  LoadLib();
}

CVyGenTLLib::~CVyGenTLLib() { UnloadLib(); }

void CVyGenTLLib::mClearTable() {
#define VY_GENTL_CLEAR(name) name = nullptr;
  VY_GENTL_FUNCTIONS(VY_GENTL_CLEAR)
#undef VY_GENTL_CLEAR
}

GenICam_3_0::gcstring CVyGenTLLib::GetFullPathName() {
  const char* pPath = std::getenv("GENICAM_GENTL64_PATH");
  if (pPath != nullptr && *pPath != '\0') {
    const std::string path(pPath);
    size_t start = 0;
    while (start <= path.size()) {
      size_t end = path.find(':', start);
      if (end == std::string::npos) end = path.size();
      const std::string candidate = path.substr(start, end - start) + "/" + m_strFileName.c_str();
      if (access(candidate.c_str(), R_OK) == 0) return GenICam_3_0::gcstring(candidate);
      start = end + 1;
    }
  }
  throw VY_RUNTIME_EXCEPTION("File %s not found.", m_strFileName.c_str());
}

void CVyGenTLLib::LoadLib() {
  // A copy already in the process is picked up first.
  m_hLibrary = dlopen(m_strFullPath.c_str(), RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
  if (m_hLibrary == nullptr) {
    m_hLibrary = dlopen(m_strFullPath.c_str(), RTLD_LAZY | RTLD_NODELETE);
    if (m_hLibrary == nullptr) {
      const int error = errno;
      const char* pText = dlerror();
      throw VY_LINUX_ERROR_EXCEPTION(error, "dlopen", "NULL == dlopen(%s) [%s]", m_strFullPath.c_str(),
                                     pText != nullptr ? pText : "");
    }
  }

#define VY_GENTL_LOOKUP(name) name = reinterpret_cast<GenTL::P##name>(dlsym(m_hLibrary, #name));
  VY_GENTL_FUNCTIONS(VY_GENTL_LOOKUP)
#undef VY_GENTL_LOOKUP

  const GenTL::GC_ERROR result = GCInitLib != nullptr ? GCInitLib() : GenTL::GC_ERR_NOT_IMPLEMENTED;
  if (result != GenTL::GC_ERR_SUCCESS) {
    // Built while the table still stands, so that the producer's own text can be added.
    CVyGenTLErrorException e = VY_GENTL_ERROR_EXCEPTION(this, result, "GCInitLib", "%d = GCInitLib()", result);
    mClearTable();
    dlclose(m_hLibrary);
    m_hLibrary = nullptr;
    throw e;
  }
}

void CVyGenTLLib::UnloadLib() {
  if (m_hLibrary == nullptr) return;
  if (GCCloseLib != nullptr) GCCloseLib();
  mClearTable();
  dlclose(m_hLibrary);
  m_hLibrary = nullptr;
}

}  // namespace VyApi
