// The memory policy of an image buffer.
#ifndef VYAPI_IVYALLOCATOR_H
#define VYAPI_IVYALLOCATOR_H

#include <cstddef>

namespace VyApi {

class IVyAllocator {
public:
  /// Stores the address of a new block of `size` bytes into *ppBuffer, null on
  /// failure, and may store a context into *ppContext. Expected to raise nothing.
  virtual void Allocate(void** ppBuffer, size_t size, void** ppContext) = 0;
  /// Gives back a block with the three values Allocate produced. Expected to raise nothing.
  virtual void Deallocate(void* pBuffer, size_t size, void* pContext) = 0;
  /// The buffer won't call this allocator any more; called once from the
  /// buffer's destructor, unless the allocator is the buffer itself.
  virtual void OnDeregister() = 0;

protected:
  virtual ~IVyAllocator() = default;
};

}  // namespace VyApi

#endif
