// The kit's own exceptions, for failures of the operating system and of a
// GenTL producer. Each carries the error code and the name of the failing
// function beside the GenICam description, file and line.
#ifndef VYAPI_VYEXCEPTION_H
#define VYAPI_VYEXCEPTION_H

#include <cstdint>

#include <Base/GCException.h>
#include <Base/GCString.h>
#include <VyApi_IP/GenTL.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

class CVyGenTLLib;

/// A failed system call; the code is an errno value.
class CVyLinuxErrorException : public GenICam_3_0::GenericException {
public:
  CVyLinuxErrorException(int error, const char* functionName, const char* description, const char* sourceFile,
                         int sourceLine, const char* exceptionType);
  CVyLinuxErrorException(const CVyLinuxErrorException&) = default;
  CVyLinuxErrorException(CVyLinuxErrorException&&) = default;
  ~CVyLinuxErrorException() noexcept override;

  /// Name of the failing function. Raises nothing.
  virtual GenICam_3_0::gcstring GetFunctionName() const;
  /// The errno value. Raises nothing.
  virtual int32_t GetError() const;

private:
  GenICam_3_0::gcstring m_strFunctionName;
  int32_t m_nError;
};

/// A failed call of a GenTL producer; the code is the producer's result.
class CVyGenTLErrorException : public GenICam_3_0::GenericException {
public:
  CVyGenTLErrorException(GenTL::GC_ERROR error, const char* functionName, const char* description,
                         const char* sourceFile, int sourceLine, const char* exceptionType);
  CVyGenTLErrorException(const CVyGenTLErrorException&) = default;
  CVyGenTLErrorException(CVyGenTLErrorException&&) = default;
  ~CVyGenTLErrorException() noexcept override;

  /// Name of the failing producer function. Raises nothing.
  virtual GenICam_3_0::gcstring GetFunctionName() const;
  /// The producer's result code. Raises nothing.
  virtual GenTL::GC_ERROR GetError() const;

private:
  GenICam_3_0::gcstring m_strFunctionName;
  GenTL::GC_ERROR m_nError;
};

/// Builds CVyLinuxErrorException with the reporter's file, line and type.
class CVyLinuxErrorExceptionReporter {
public:
  CVyLinuxErrorExceptionReporter(const char* sourceFile, int sourceLine, const char* exceptionType);
  /// Formats the message (cut at 1024 bytes) and appends
  /// ` ErrorCode=0x%08x " "%s` with the code and strerror(errno) as errno
  /// stands at this moment. Raises nothing.
  CVyLinuxErrorException Report(int error, const char* functionName, const char* pFormat, ...) const
      __attribute__((format(printf, 4, 5)));

private:
  GenICam_3_0::gcstring m_strSourceFile;
  int m_nSourceLine;
  GenICam_3_0::gcstring m_strExceptionType;
};

/// Builds CVyGenTLErrorException with the reporter's file, line and type.
class CVyGenTLErrorExceptionReporter {
public:
  CVyGenTLErrorExceptionReporter(const char* sourceFile, int sourceLine, const char* exceptionType);
  /// Formats the message (cut at 1024 bytes); when pLib holds GCGetLastError
  /// and the producer still reports the same code, appends " " and the
  /// producer's own text. Raises nothing.
  CVyGenTLErrorException Report(CVyGenTLLib* pLib, GenTL::GC_ERROR error, const char* functionName,
                                const char* pFormat, ...) const __attribute__((format(printf, 5, 6)));

private:
  GenICam_3_0::gcstring m_strSourceFile;
  int m_nSourceLine;
  GenICam_3_0::gcstring m_strExceptionType;
};

}  // namespace VyApi

/// throw VY_LINUX_ERROR_EXCEPTION(err, "pthread_mutex_init", "0 != pthread_mutex_init(...) [Error=0x%x %s]", ...);
#define VY_LINUX_ERROR_EXCEPTION                                                                          \
  ::VyApi::CVyLinuxErrorExceptionReporter(::VyApi::detail::SourceName(__FILE__).c_str(), __LINE__, \
                                          "VyLinuxErrorException")                                        \
      .Report

/// throw VY_GENTL_ERROR_EXCEPTION(pLib, result, "GCReadPort", "%d = GCReadPort(...)", result, ...);
#define VY_GENTL_ERROR_EXCEPTION                                                                          \
  ::VyApi::CVyGenTLErrorExceptionReporter(::VyApi::detail::SourceName(__FILE__).c_str(), __LINE__, \
                                          "VyGenTLErrorException")                                        \
      .Report

#endif
