#include <VyApi_IP/VyException.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <new>

#include "VyGenTLCommon/VyGenTLLib.h"

namespace VyApi {

namespace {

const size_t kMessageSize = 1024;

/// Formats into buf and returns the position where more text may follow.
size_t FormatInto(char (&buf)[kMessageSize], const char* pFormat, va_list args) {
  buf[0] = '\0';
  const int n = std::vsnprintf(buf, kMessageSize, pFormat != nullptr ? pFormat : "", args);
  if (n < 0) return 0;
  return static_cast<size_t>(n);
}

}  // namespace

CVyLinuxErrorException::CVyLinuxErrorException(int error, const char* functionName, const char* description,
                                               const char* sourceFile, int sourceLine, const char* exceptionType)
    : GenericException(description, sourceFile, static_cast<unsigned int>(sourceLine), exceptionType),
      m_strFunctionName(functionName),
      m_nError(error) {}

CVyLinuxErrorException::~CVyLinuxErrorException() noexcept = default;

GenICam_3_0::gcstring CVyLinuxErrorException::GetFunctionName() const { return m_strFunctionName; }

int32_t CVyLinuxErrorException::GetError() const { return m_nError; }

CVyGenTLErrorException::CVyGenTLErrorException(GenTL::GC_ERROR error, const char* functionName,
                                               const char* description, const char* sourceFile, int sourceLine,
                                               const char* exceptionType)
    : GenericException(description, sourceFile, static_cast<unsigned int>(sourceLine), exceptionType),
      m_strFunctionName(functionName),
      m_nError(error) {}

CVyGenTLErrorException::~CVyGenTLErrorException() noexcept = default;

GenICam_3_0::gcstring CVyGenTLErrorException::GetFunctionName() const { return m_strFunctionName; }

GenTL::GC_ERROR CVyGenTLErrorException::GetError() const { return m_nError; }

CVyLinuxErrorExceptionReporter::CVyLinuxErrorExceptionReporter(const char* sourceFile, int sourceLine,
                                                               const char* exceptionType)
    : m_strSourceFile(sourceFile), m_nSourceLine(sourceLine), m_strExceptionType(exceptionType) {}

CVyLinuxErrorException CVyLinuxErrorExceptionReporter::Report(int error, const char* functionName,
                                                              const char* pFormat, ...) const {
  char buf[kMessageSize];
  va_list args;
  va_start(args, pFormat);
  const size_t n = FormatInto(buf, pFormat, args);
  va_end(args);
  // errno as it stands now, not as it stood when `error` was taken.
  if (n < kMessageSize)
    std::snprintf(buf + n, kMessageSize - n, " ErrorCode=0x%08x \" \"%s", static_cast<unsigned int>(error),
                  std::strerror(errno));
  return CVyLinuxErrorException(error, functionName, buf, m_strSourceFile.c_str(), m_nSourceLine,
                                m_strExceptionType.c_str());
}

CVyGenTLErrorExceptionReporter::CVyGenTLErrorExceptionReporter(const char* sourceFile, int sourceLine,
                                                               const char* exceptionType)
    : m_strSourceFile(sourceFile), m_nSourceLine(sourceLine), m_strExceptionType(exceptionType) {}

CVyGenTLErrorException CVyGenTLErrorExceptionReporter::Report(CVyGenTLLib* pLib, GenTL::GC_ERROR error,
                                                              const char* functionName, const char* pFormat,
                                                              ...) const {
  char buf[kMessageSize];
  va_list args;
  va_start(args, pFormat);
  const size_t n = FormatInto(buf, pFormat, args);
  va_end(args);
  // The producer's own words, only while it still holds the same error.
  if (pLib != nullptr && pLib->GCGetLastError != nullptr && n < kMessageSize) {
    GenTL::GC_ERROR code = GenTL::GC_ERR_SUCCESS;
    size_t size = 0;
    if (pLib->GCGetLastError(&code, nullptr, &size) == GenTL::GC_ERR_SUCCESS && code == error) {
      char* pText = new (std::nothrow) char[size + 1];
      if (pText != nullptr) {
        pText[0] = '\0';
        pText[size] = '\0';
        size_t textSize = size + 1;
        if (pLib->GCGetLastError(&code, pText, &textSize) == GenTL::GC_ERR_SUCCESS && code == error)
          std::snprintf(buf + n, kMessageSize - n, " %s", pText);
        delete[] pText;
      }
    }
  }
  return CVyGenTLErrorException(error, functionName, buf, m_strSourceFile.c_str(), m_nSourceLine,
                                m_strExceptionType.c_str());
}

}  // namespace VyApi
