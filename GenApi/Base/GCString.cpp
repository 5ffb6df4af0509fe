#include <Base/GCString.h>

#include <istream>
#include <ostream>

namespace GenICam_3_0 {

std::ostream& operator<<(std::ostream& os, const gcstring& s) { return os << s.str(); }

std::istream& operator>>(std::istream& is, gcstring& s) {
  std::string tmp;
  is >> tmp;
  s = tmp;
  return is;
}

}  // namespace GenICam_3_0
