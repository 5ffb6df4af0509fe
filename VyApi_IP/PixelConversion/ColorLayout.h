// Compile-time colour layouts for the interleaved kernels.
//
// An interleaved colour pixel has 3 or 4 cells (the fourth being alpha, never
// written); component 1 is green, and components 0 and 2 swap when source and
// destination orders (IsBGROrder) differ. The kernels are templates over the
// cell counts and the swap so that strides and offsets are constants and the
// loops vectorise; the choice is made once per call, never per pixel.
#ifndef VYAPI_PIXELCONVERSION_COLORLAYOUT_H
#define VYAPI_PIXELCONVERSION_COLORLAYOUT_H

#include <cstddef>
#include <type_traits>

#include <VyApi_IP/VyReporter.h>

namespace VyApi {
namespace PixelConversion {

template <int N>
using IntC = std::integral_constant<int, N>;
template <bool B>
using BoolC = std::integral_constant<bool, B>;

/// Calls f(IntC<3 or 4>) for a component count; other counts are a
/// programming error of the caller.
template <typename F>
inline void WithComponentCount(size_t nCount, F&& f) {
  VY_ASSERT(nCount == 3 || nCount == 4);
  if (nCount == 3) {
    f(IntC<3>());
  } else {
    f(IntC<4>());
  }
}

/// Calls f(BoolC<b>) for a run-time flag.
template <typename F>
inline void WithFlag(bool b, F&& f) {
  if (b) {
    f(BoolC<true>());
  } else {
    f(BoolC<false>());
  }
}

}  // namespace PixelConversion
}  // namespace VyApi

#endif
