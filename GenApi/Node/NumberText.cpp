// Text forms of integers and floats shared by the number node types.
#include <cinttypes>
#include <cstdio>
#include <sstream>

#include "Node/FloatInterface.h"
#include "Node/IntegerInterface.h"

namespace GenApi_3_0 {
namespace detail {

std::string IntegerToString(int64_t v, ERepresentation r) {
  char buf[64];
  uint64_t u = static_cast<uint64_t>(v);
  switch (r) {
    case HexNumber:
      snprintf(buf, sizeof buf, "0x%" PRIx64, u);
      break;
    case IPV4Address:
      snprintf(buf, sizeof buf, "%u.%u.%u.%u", unsigned(u >> 24 & 0xff), unsigned(u >> 16 & 0xff),
               unsigned(u >> 8 & 0xff), unsigned(u & 0xff));
      break;
    case MACAddress:
      snprintf(buf, sizeof buf, "%02x:%02x:%02x:%02x:%02x:%02x", unsigned(u >> 40 & 0xff), unsigned(u >> 32 & 0xff),
               unsigned(u >> 24 & 0xff), unsigned(u >> 16 & 0xff), unsigned(u >> 8 & 0xff), unsigned(u & 0xff));
      break;
    default:
      snprintf(buf, sizeof buf, "%" PRId64, v);
      break;
  }
  return buf;
}

bool IntegerFromString(const std::string& t, int64_t& v) {
  if (CElementReader::ParseInt(t, v)) return true;
  unsigned a[6];
  char tail;
  if (sscanf(t.c_str(), "%u.%u.%u.%u%c", &a[0], &a[1], &a[2], &a[3], &tail) == 4) {
    for (int i = 0; i < 4; ++i)
      if (a[i] > 255) return false;
    v = (int64_t(a[0]) << 24) | (int64_t(a[1]) << 16) | (int64_t(a[2]) << 8) | int64_t(a[3]);
    return true;
  }
  if (sscanf(t.c_str(), "%x:%x:%x:%x:%x:%x%c", &a[0], &a[1], &a[2], &a[3], &a[4], &a[5], &tail) == 6) {
    v = 0;
    for (int i = 0; i < 6; ++i) {
      if (a[i] > 255) return false;
      v = (v << 8) | a[i];
    }
    return true;
  }
  return false;
}

std::string FloatToString(double v, EDisplayNotation n, int64_t precision) {
  std::ostringstream os;
  if (n == fnFixed) os << std::fixed;
  else if (n == fnScientific) os << std::scientific;
  os.precision(static_cast<int>(precision < 0 ? 6 : precision));
  os << v;
  return os.str();
}

}  // namespace detail
}  // namespace GenApi_3_0
