// Reporter macros of the library. Every exception the library raises names
// the source file it comes from as a path relative to the top of the tree,
// without extension ("VyApi_IP/VyGammaCorrectionFilter"), and the class name
// as its type. The build maps the source directory away from __FILE__.
#ifndef VYAPI_VYREPORTER_H
#define VYAPI_VYREPORTER_H

#include <cstdio>
#include <cstdlib>
#include <string>

#include <Base/GCException.h>

namespace VyApi {
namespace detail {

/// "VyApi_IP/VyGammaCorrectionFilter.cpp" -> "VyApi_IP/VyGammaCorrectionFilter".
inline std::string SourceName(const char* file) {
  std::string s(file ? file : "");
  // A compiler cache may hand the compiler paths relative to the build
  // directory; the name is the same whichever way the source was reached.
  for (;;) {
    if (s.compare(0, 3, "../") == 0) s.erase(0, 3);
    else if (s.compare(0, 2, "./") == 0) s.erase(0, 2);
    else break;
  }
  const size_t slash = s.find_last_of('/');
  const size_t dot = s.find_last_of('.');
  if (dot != std::string::npos && (slash == std::string::npos || dot > slash)) s.erase(dot);
  return s;
}

/// Prints the failed assertion and stops the process; stays on in release builds.
[[noreturn]] inline void AssertionFailed(const char* text, const char* file, int line) {
  std::fprintf(stderr, "Assertion failed: %s (%s, line %d)\n", text, SourceName(file).c_str(), line);
  std::fflush(stderr);
  std::abort();
}

}  // namespace detail

/// Source name of the factories and the owners, whose code in public headers
/// is compiled inside the application.
constexpr const char c_szVyApiIPSource[] = "VyApi_IP/VyApi_IP";

}  // namespace VyApi

#define VY_REPORTER(type) \
  GenICam_3_0::ExceptionReporter<GenICam_3_0::type>(::VyApi::detail::SourceName(__FILE__).c_str(), __LINE__, #type).Report

/// For code in public headers, which is compiled inside the application: the
/// source name is given, since __FILE__ there depends on where the headers
/// were installed.
#define VY_REPORTER_FROM(source, type) \
  GenICam_3_0::ExceptionReporter<GenICam_3_0::type>(source, __LINE__, #type).Report

#define VY_RUNTIME_EXCEPTION VY_REPORTER(RuntimeException)
#define VY_OUT_OF_RANGE_EXCEPTION VY_REPORTER(OutOfRangeException)
#define VY_INVALID_ARGUMENT_EXCEPTION VY_REPORTER(InvalidArgumentException)
#define VY_LOGICAL_ERROR_EXCEPTION VY_REPORTER(LogicalErrorException)
#define VY_BAD_ALLOC_EXCEPTION VY_REPORTER(BadAllocException)
#define VY_ACCESS_EXCEPTION VY_REPORTER(AccessException)
#define VY_TIMEOUT_EXCEPTION VY_REPORTER(TimeoutException)

/// Internal consistency check, independent of NDEBUG. The printed text is the
/// expression in parentheses, as in "(pSrcIVyImageInside) != NULL".
#define VY_ASSERT(expr) \
  ((expr) ? static_cast<void>(0) : ::VyApi::detail::AssertionFailed(#expr, __FILE__, __LINE__))

/// Asserts that a pointer is not null, printing "(p) != NULL".
#define VY_ASSERT_NOT_NULL(p) \
  (((p) != nullptr) ? static_cast<void>(0) : ::VyApi::detail::AssertionFailed("(" #p ") != NULL", __FILE__, __LINE__))

#endif
