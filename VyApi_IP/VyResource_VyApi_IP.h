// Look-up of the register descriptions embedded in the library.
#ifndef VYAPI_IP_VYRESOURCE_VYAPI_IP_H
#define VYAPI_IP_VYRESOURCE_VYAPI_IP_H

#include <cstdint>

namespace VyApi {

/// Stateless; made on the stack for one look-up.
class CVyResource_VyApi_IP {
public:
  CVyResource_VyApi_IP() {}
  ~CVyResource_VyApi_IP() {}

  /// The text of description id (103 ... 119), starting with the UTF-8 mark
  /// and not terminated; null for any other id. Raises nothing.
  const char* getData(int id);
  /// The text's length in bytes; 0 for any other id. Raises nothing.
  int64_t getSize(int id);
};

}  // namespace VyApi

#endif
