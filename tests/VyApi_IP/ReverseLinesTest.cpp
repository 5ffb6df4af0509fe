// The mirror line movers against a straightforward loop, for every pixel
// width the reverse converter serves and every instruction set's form:
// widths on both sides of the 64-byte step, destinations at every kind of
// offset in a cache line (the movers align their stores), the alpha cell and
// the bytes around the line left as they were.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "Kernels/ReverseKernel.h"
#include "PixelConversion/SimdLineKernels.h"

using namespace VyApi;

namespace {

constexpr uint8_t kOld = 0x5A;

template <size_t P, size_t M>
void CheckMirror() {
  std::mt19937 gen(5);
  for (auto cap : {PixelConversion::SimdCap_All, PixelConversion::SimdCap_None})
    for (size_t w : {1, 2, 3, 15, 16, 17, 31, 32, 33, 63, 64, 65, 100, 130, 257})
      for (size_t nOffset : {0, 1, 2, 4, 8, 20, 48})
        for (bool bUp : {false, true}) {
          const size_t h = 2, sp = P * w + 7, dp = P * w + 9;
          std::vector<uint8_t> src(sp * h);
          for (auto& b : src) b = uint8_t(gen());
          std::vector<uint8_t> out(nOffset + dp * h, kOld);
          PixelConversion::SetSimdCapForTesting(cap);
          uint8_t* d = out.data() + nOffset + (bUp ? dp : 0);
          Kernels::ReverseLinesX<P, M>(src.data(), sp, w, h, d, bUp ? -ptrdiff_t(dp) : ptrdiff_t(dp));
          PixelConversion::SetSimdCapForTesting(PixelConversion::SimdCap_All);
          for (size_t i = 0; i < nOffset; ++i) ASSERT_EQ(out[i], kOld);
          for (size_t y = 0; y < h; ++y) {
            const uint8_t* line = &out[nOffset + (bUp ? h - 1 - y : y) * dp];
            for (size_t x = 0; x < w; ++x)
              for (size_t k = 0; k < P; ++k)
                ASSERT_EQ(line[P * x + k], k < M ? src[y * sp + P * (w - 1 - x) + k] : kOld)
                    << "pixel " << P << "/" << M << " cap " << cap << " w " << w << " offset " << nOffset << " x "
                    << x;
            for (size_t i = P * w; i < dp; ++i) ASSERT_EQ(line[i], kOld) << "padding, w " << w;
          }
        }
}

}  // namespace

TEST(ReverseLines, MirrorsEveryPixelWidthLikeTheStraightLoop) {
  CheckMirror<1, 1>();
  CheckMirror<2, 2>();
  CheckMirror<3, 3>();
  CheckMirror<4, 4>();
  CheckMirror<4, 3>();
  CheckMirror<6, 6>();
  CheckMirror<8, 6>();
}
