#include "ColorInterpolation/BayerLineStore.h"

#include <VyApi_IP/VyReporter.h>

namespace VyApi {
namespace {

template <typename Sample, size_t N>
void StoreLinePortable(Sample* __restrict pDest, const Sample* const pPlane[3], size_t nWidth) {
  const Sample* __restrict p0 = pPlane[0];
  const Sample* __restrict p1 = pPlane[1];
  const Sample* __restrict p2 = pPlane[2];
  for (size_t i = 0; i < nWidth; ++i) {
    pDest[N * i] = p0[i];
    pDest[N * i + 1] = p1[i];
    pDest[N * i + 2] = p2[i];
  }
}

// The same loop built for AVX2: x86-64's baseline SSE2 has no byte shuffle,
// so the compiler leaves the three-way interleave scalar there; with AVX2 it
// vectorises it. GCC/Clang target attribute, selected at run time below.
template <typename Sample, size_t N>
__attribute__((target("avx2"))) void StoreLineAvx2(Sample* __restrict pDest, const Sample* const pPlane[3],
                                                   size_t nWidth) {
  const Sample* __restrict p0 = pPlane[0];
  const Sample* __restrict p1 = pPlane[1];
  const Sample* __restrict p2 = pPlane[2];
  for (size_t i = 0; i < nWidth; ++i) {
    pDest[N * i] = p0[i];
    pDest[N * i + 1] = p1[i];
    pDest[N * i + 2] = p2[i];
  }
}

bool DetectAvx2() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx2") != 0;
}

}  // namespace

bool CBayerLineStore::UsesAvx2() {
  static const bool s_bAvx2 = DetectAvx2();
  return s_bAvx2;
}

template <typename Sample>
CBayerLineStore::PFStore<Sample> CBayerLineStore::Select(size_t nComponents) {
  VY_ASSERT(nComponents == 3 || nComponents == 4);
  if (UsesAvx2()) return nComponents == 3 ? &StoreLineAvx2<Sample, 3> : &StoreLineAvx2<Sample, 4>;
  return nComponents == 3 ? &StoreLinePortable<Sample, 3> : &StoreLinePortable<Sample, 4>;
}

template CBayerLineStore::PFStore<uint8_t> CBayerLineStore::Select<uint8_t>(size_t);
template CBayerLineStore::PFStore<uint16_t> CBayerLineStore::Select<uint16_t>(size_t);

}  // namespace VyApi
