#include <Base/GCException.h>

#include <cstdio>

namespace GenICam_3_0 {

GenericException::GenericException(const char* pDescription, const char* pSourceFileName, unsigned int SourceLine)
    : GenericException(pDescription, pSourceFileName, SourceLine, "GenericException") {}

GenericException::GenericException(const char* pDescription, const char* pSourceFileName, unsigned int SourceLine,
                                   const char* pExceptionType)
    : m_Description(pDescription ? pDescription : ""),
      m_SourceFileName(pSourceFileName ? pSourceFileName : ""),
      m_SourceLine(SourceLine),
      m_ExceptionType(pExceptionType ? pExceptionType : "") {
  AssembleMessage();
}

GenericException::~GenericException() noexcept = default;

void GenericException::AssembleMessage() {
  // "<description> : <type> thrown (file '<file>', line <line>)" keeps the
  // description first, so callers that print what() read the cause at once.
  m_What = m_Description;
  if (!m_ExceptionType.empty() || !m_SourceFileName.empty()) {
    m_What += " : ";
    m_What += m_ExceptionType.empty() ? std::string("GenericException") : m_ExceptionType;
    m_What += " thrown (file '";
    m_What += m_SourceFileName;
    m_What += "', line ";
    m_What += std::to_string(m_SourceLine);
    m_What += ")";
  }
}

const char* GenericException::GetDescription() const noexcept { return m_Description.c_str(); }
const char* GenericException::GetSourceFileName() const noexcept { return m_SourceFileName.c_str(); }
unsigned int GenericException::GetSourceLine() const noexcept { return m_SourceLine; }
const char* GenericException::what() const noexcept { return m_What.c_str(); }

std::string FormatMessageV(const char* pFormat, va_list args) {
  if (!pFormat) return std::string();
  char buffer[1024];
  int n = std::vsnprintf(buffer, sizeof(buffer), pFormat, args);
  if (n < 0) return std::string();
  return std::string(buffer);
}

}  // namespace GenICam_3_0
