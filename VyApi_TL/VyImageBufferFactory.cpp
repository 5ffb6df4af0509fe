#include <new>

#include <VyApi_IP/VyApi_TL.h>

namespace VyApi {

IVyImageBufferReleasable* CreateIVyImageBuffer(IVyAllocator* pAllocator) {
  try {
    return new CVyImageBuffer(pAllocator);
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
}

}  // namespace VyApi
