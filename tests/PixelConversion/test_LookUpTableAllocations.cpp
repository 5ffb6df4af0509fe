// Counts heap allocations to show that a steady stream of frames with the same
// depths and settings takes the cached table without allocating.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

// The replaced global allocation functions below pair operator new with
// malloc and operator delete with free, which is exactly what the standard
// allows; GCC's mismatched-new-delete check cannot see that the pair is
// replaced as a whole and reports the free inside operator delete.
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"

#include "PixelConversion/SharedTableHolder.h"
#include "PixelConversion/VyLookUpTableManager.h"

namespace {
std::atomic<long> g_nAllocations{0};
}

void* operator new(std::size_t n) {
  ++g_nAllocations;
  if (void* p = std::malloc(n ? n : 1)) return p;
  throw std::bad_alloc();
}
void* operator new[](std::size_t n) {
  ++g_nAllocations;
  if (void* p = std::malloc(n ? n : 1)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }

TEST(LookUpTableCache, SteadyStreamAllocatesNothingAfterTheFirstFrame) {
  VyApi::CVyLookUpTableManager m;
  m.m_dGammaValue = 2.2;
  { VyApi::PixelConversion::CSharedTableHolder first(m, 12, 8); }
  const long nBefore = g_nAllocations.load();
  for (int i = 0; i < 1000; ++i) {
    VyApi::PixelConversion::CSharedTableHolder t(m, 12, 8);
    ASSERT_NE(t.Get(), nullptr);
  }
  EXPECT_EQ(g_nAllocations.load(), nBefore);
  // A new key builds once: one holder and one array.
  { VyApi::PixelConversion::CSharedTableHolder other(m, 10, 8); }
  EXPECT_EQ(g_nAllocations.load(), nBefore + 2);
}
