// gcstring_vector: the list of strings of the GenICam interfaces.
#ifndef GENICAM_GCSTRINGVECTOR_H
#define GENICAM_GCSTRINGVECTOR_H

#include <vector>

#include <Base/GCString.h>

namespace GenICam_3_0 {

class gcstring_vector : public std::vector<gcstring> {
public:
  using std::vector<gcstring>::vector;
  gcstring_vector() = default;
};

}  // namespace GenICam_3_0

#endif
