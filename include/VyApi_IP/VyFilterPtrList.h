// CIVyFilterPtrArray: a chain of filters run one after the other on one image.
#ifndef VYAPI_VYFILTERPTRLIST_H
#define VYAPI_VYFILTERPTRLIST_H

#include <VyApi_IP/IVyFilter.h>
#include <VyApi_IP/VyAutoPtrArray.h>

namespace VyApi {

class CIVyFilterPtrArray : public CVyAutoPtrArray<IVyFilterReleasable, IVyFilter> {
public:
  CIVyFilterPtrArray() = default;
  /// Releases every filter, first to last, swallowing exceptions.
  ~CIVyFilterPtrArray() override;

  /// Runs every filter in order on the image and returns what the last one
  /// returned (pImage itself for an empty chain). An exception of a filter
  /// passes through and ends the chain: earlier filters have changed the image.
  IVyImage* Filter(IVyImage* pImage);

  /// Releases the filters first to last; the chain stays usable and empty.
  /// Raises what a filter's Release() raises.
  void Release();
};

}  // namespace VyApi

#endif
