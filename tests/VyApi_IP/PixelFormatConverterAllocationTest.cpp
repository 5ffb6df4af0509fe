// A steady stream of equal frames allocates nothing after the first frame.
// Global operator new of this test binary counts what the calling thread
// allocates while counting is switched on; the library's allocations reach it
// as well, since the executable's definition takes precedence.
#include "TestSupport.h"

#include <cstdlib>
#include <functional>
#include <new>

// The replaced global allocation functions below pair operator new with
// malloc and operator delete with free, which is exactly what the standard
// allows; GCC's mismatched-new-delete check cannot see that the pair is
// replaced as a whole and reports the free inside operator delete.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

using namespace VyApi;
using namespace VyApiTest;

namespace {
thread_local bool t_bCounting = false;
thread_local long t_nAllocations = 0;

void* CountedAlloc(std::size_t n) {
  if (t_bCounting) ++t_nAllocations;
  if (void* p = std::malloc(n ? n : 1)) return p;
  throw std::bad_alloc();
}
}  // namespace

void* operator new(std::size_t n) { return CountedAlloc(n); }
void* operator new[](std::size_t n) { return CountedAlloc(n); }
// The nothrow forms too, so that every block freed by the deletes below came from malloc.
void* operator new(std::size_t n, const std::nothrow_t&) noexcept {
  if (t_bCounting) ++t_nAllocations;
  return std::malloc(n ? n : 1);
}
void* operator new[](std::size_t n, const std::nothrow_t& t) noexcept { return operator new(n, t); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { std::free(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { std::free(p); }

namespace {

long AllocationsOf(const std::function<void()>& f) {
  t_nAllocations = 0;
  t_bCounting = true;
  f();
  t_bCounting = false;
  return t_nAllocations;
}

class ConverterAllocationTest : public KitTest {};

}  // namespace

TEST_F(ConverterAllocationTest, RoutesReuseTheirBuffersAndTables) {
  CVyAutoPtr<IVyConverterReleasable, IVyPixelFormatConverter> conv(CreateIVyConverter(VyConverterType_PixelFormat));
  Image src(64, 48, VyPixelFormat_Mono12p);
  Image dest(1, 1, VyPixelFormat_Mono8);
  for (auto pair : {std::make_pair(VyPixelFormat_Mono12p, VyPixelFormat_BGR8),
                    std::make_pair(VyPixelFormat_Mono12p, VyPixelFormat_RGB8_Planar)}) {
    conv->SetDestinationPixelFormat(pair.second);
    // The first frame makes the temporary buffers, the destination and the table.
    EXPECT_GT(AllocationsOf([&] { conv->Convert(src.img(), dest.buffer.Get()); }), 0);
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(AllocationsOf([&] { conv->Convert(src.img(), dest.buffer.Get()); }), 0) << i;
  }
  conv->SetReverseY(true);
  EXPECT_EQ(AllocationsOf([&] { conv->Convert(src.img(), dest.buffer.Get()); }), 0);
  // The counter sees allocations at all.
  EXPECT_EQ(AllocationsOf([] { delete new int(1); }), 1);
}
