#include "VyResource_VyApi_IP.h"

#include "VyEmbeddedDescriptions.h"

namespace VyApi {

#define VY_DESCRIPTION_LIST(X)      \
  X(103, FILTER_SN_MEASUREMENT)       \
  X(104, FILTER_EDGE_ENHANCEMENT)     \
  X(105, FILTER_GAMMA_CORRECTION)     \
  X(108, FILTER_BALANCE_RATIO)        \
  X(109, CONVERTER_PIXEL_FORMAT)      \
  X(110, CONVERTER_REVERSE)           \
  X(111, FILTER_COLOR_TRANSFORMATION) \
  X(112, FILTER_NOISE_REDUCTION)      \
  X(113, FILTER_FIELD_FLAT_CORRECTION) \
  X(114, FILTER_CHROMA_SUPPRESSION)   \
  X(117, FILER_STILL_IMAGE)           \
  X(119, FILER_VIDEO)

const char* CVyResource_VyApi_IP::getData(int id) {
  switch (id) {
#define VY_CASE(nId, NAME) \
  case nId:                \
    return VY_DESCRIPTION_DATA_##NAME;
    VY_DESCRIPTION_LIST(VY_CASE)
#undef VY_CASE
    default:
      return nullptr;
  }
}

int64_t CVyResource_VyApi_IP::getSize(int id) {
  switch (id) {
#define VY_CASE(nId, NAME) \
  case nId:                \
    return VY_DESCRIPTION_SIZE_##NAME;
    VY_DESCRIPTION_LIST(VY_CASE)
#undef VY_CASE
    default:
      return 0;
  }
}

}  // namespace VyApi
