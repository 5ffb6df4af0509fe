// The GenICam exception family, the reporter that builds its members with a
// printf-style message, and the reporter macros of the reference headers.
#ifndef GENICAM_GCEXCEPTION_H
#define GENICAM_GCEXCEPTION_H

#include <cstdarg>
#include <exception>
#include <string>

#include <Base/GCString.h>

namespace GenICam_3_0 {

class GenericException : public std::exception {
public:
  GenericException(const char* pDescription, const char* pSourceFileName, unsigned int SourceLine);
  GenericException(const char* pDescription, const char* pSourceFileName, unsigned int SourceLine,
                   const char* pExceptionType);
  GenericException(const GenericException&) = default;
  GenericException& operator=(const GenericException&) = default;

  virtual const char* GetDescription() const noexcept;
  virtual const char* GetSourceFileName() const noexcept;
  virtual unsigned int GetSourceLine() const noexcept;
  const char* what() const noexcept override;
  ~GenericException() noexcept override;

  /// The type name given by the reporter, such as "RuntimeException".
  const char* GetExceptionType() const noexcept { return m_ExceptionType.c_str(); }

private:
  void AssembleMessage();

  std::string m_Description;
  std::string m_SourceFileName;
  unsigned int m_SourceLine;
  std::string m_ExceptionType;
  std::string m_What;
};

#define GENICAM_DECLARE_EXCEPTION(name)                                                                  \
  class name : public GenericException {                                                                \
  public:                                                                                               \
    name(const char* pDescription, const char* pSourceFileName, unsigned int SourceLine)               \
        : GenericException(pDescription, pSourceFileName, SourceLine, #name) {}                         \
    name(const char* pDescription, const char* pSourceFileName, unsigned int SourceLine,               \
         const char* pExceptionType)                                                                    \
        : GenericException(pDescription, pSourceFileName, SourceLine, pExceptionType) {}                \
  }

GENICAM_DECLARE_EXCEPTION(BadAllocException);
GENICAM_DECLARE_EXCEPTION(InvalidArgumentException);
GENICAM_DECLARE_EXCEPTION(OutOfRangeException);
GENICAM_DECLARE_EXCEPTION(PropertyException);
GENICAM_DECLARE_EXCEPTION(RuntimeException);
GENICAM_DECLARE_EXCEPTION(LogicalErrorException);
GENICAM_DECLARE_EXCEPTION(AccessException);
GENICAM_DECLARE_EXCEPTION(TimeoutException);
GENICAM_DECLARE_EXCEPTION(DynamicCastException);


/// Builds an exception of type E carrying the reporter's source, line and
/// type name. Raises nothing itself; the message is cut at 1024 bytes.
template <typename E>
class ExceptionReporter {
public:
  ExceptionReporter(const char* pSourceFileName, unsigned int SourceLine, const char* pExceptionType)
      : m_SourceFileName(pSourceFileName ? pSourceFileName : ""),
        m_SourceLine(SourceLine),
        m_ExceptionType(pExceptionType ? pExceptionType : "") {}

  E Report(const char* pFormat, ...) const __attribute__((format(printf, 2, 3)));
  E Report() const { return E("", m_SourceFileName.c_str(), m_SourceLine, m_ExceptionType.c_str()); }
  E Report(const gcstring& s) const { return E(s.c_str(), m_SourceFileName.c_str(), m_SourceLine, m_ExceptionType.c_str()); }

private:
  std::string m_SourceFileName;
  unsigned int m_SourceLine;
  std::string m_ExceptionType;
};

/// Formats a printf-style message, cut at 1024 bytes.
std::string FormatMessageV(const char* pFormat, va_list args);

template <typename E>
E ExceptionReporter<E>::Report(const char* pFormat, ...) const {
  va_list args;
  va_start(args, pFormat);
  std::string msg = FormatMessageV(pFormat, args);
  va_end(args);
  return E(msg.c_str(), m_SourceFileName.c_str(), m_SourceLine, m_ExceptionType.c_str());
}

}  // namespace GenICam_3_0

#define GENICAM_EXCEPTION_REPORTER(type) \
  GenICam_3_0::ExceptionReporter<GenICam_3_0::type>(__FILE__, __LINE__, #type).Report

#define GENERIC_EXCEPTION GENICAM_EXCEPTION_REPORTER(GenericException)
#define BAD_ALLOC_EXCEPTION GENICAM_EXCEPTION_REPORTER(BadAllocException)
#define INVALID_ARGUMENT_EXCEPTION GENICAM_EXCEPTION_REPORTER(InvalidArgumentException)
#define OUT_OF_RANGE_EXCEPTION GENICAM_EXCEPTION_REPORTER(OutOfRangeException)
#define PROPERTY_EXCEPTION GENICAM_EXCEPTION_REPORTER(PropertyException)
#define RUNTIME_EXCEPTION GENICAM_EXCEPTION_REPORTER(RuntimeException)
#define LOGICAL_ERROR_EXCEPTION GENICAM_EXCEPTION_REPORTER(LogicalErrorException)
#define ACCESS_EXCEPTION GENICAM_EXCEPTION_REPORTER(AccessException)
#define TIMEOUT_EXCEPTION GENICAM_EXCEPTION_REPORTER(TimeoutException)
#define DYNAMICCAST_EXCEPTION GENICAM_EXCEPTION_REPORTER(DynamicCastException)

#endif
