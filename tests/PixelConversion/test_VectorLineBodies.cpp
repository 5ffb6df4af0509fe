// The hand-vectorised line bodies against the per-pixel rule, on random data,
// each instruction set's form in turn (those the processor lacks fall back to
// the next narrower). Widths sit on both sides of the vector steps (8 to 64
// pixels) so that the full steps, the masked last step and the scalar tail
// all run; pitches are padded and the padding, like alpha, must come back as
// the buffer had it.
#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

#include "PixelConversion/ColorToMonoConversion.h"
#include "PixelConversion/Packed10p32.h"
#include "PixelConversion/SimdLineKernels.h"

using namespace VyApi::PixelConversion;

namespace {

using Bytes = std::vector<uint8_t>;

const size_t kWidths[] = {1, 5, 7, 8, 11, 15, 16, 17, 21, 22, 31, 32, 33, 63, 64, 65, 100, 127, 128, 129, 200};
const ESimdCap_t kCaps[] = {SimdCap_All, SimdCap_Avx2, SimdCap_Ssse3, SimdCap_None};

// Restores the default when a test ends, failed or not.
struct SCapGuard {
  ~SCapGuard() { SetSimdCapForTesting(SimdCap_All); }
};
constexpr uint8_t kUntouched = 0xA5;

Bytes RandomBytes(size_t n, std::mt19937& gen) {
  Bytes v(n);
  for (auto& b : v) b = uint8_t(gen());
  return v;
}

TEST(VectorLineBodies, ColorToMono8MatchesTheScalarRule) {
  std::mt19937 gen(11);
  const size_t h = 3;
  SCapGuard guard;
  for (ESimdCap_t cap : kCaps)
  for (int cells : {3, 4})
    for (bool bgr : {true, false})
      for (bool flip : {false, true})
        for (size_t w : kWidths) {
          const size_t sp = cells * w + 5, dp = w + 3;
          const Bytes src = RandomBytes(sp * h, gen);
          Bytes out(dp * h, kUntouched);
          SetSimdCapForTesting(cap);
          ConverterBGR8ToMono8(src.data(), sp, size_t(cells), bgr, out.data(), dp, w, h, nullptr, flip);
          for (size_t y = 0; y < h; ++y) {
            const uint8_t* pd = &out[(flip ? h - 1 - y : y) * dp];
            for (size_t x = 0; x < w; ++x) {
              const uint8_t* p = &src[y * sp + cells * x];
              const uint32_t r = bgr ? p[2] : p[0], b = bgr ? p[0] : p[2];
              ASSERT_EQ(pd[x], MonoFromRGB(r, p[1], b))
                  << "cap " << cap << " cells " << cells << (bgr ? " BGR" : " RGB") << " w " << w << " x " << x << " y " << y;
            }
            for (size_t x = w; x < dp; ++x) ASSERT_EQ(pd[x], kUntouched) << "padding, w " << w;
          }
        }
}

TEST(VectorLineBodies, ColorToMono8ExtremesStayInRange) {
  // All 255 gives 255: the widest sum the vector lanes must carry.
  const size_t w = 130;
  SCapGuard guard;
  for (ESimdCap_t cap : kCaps)
  for (int cells : {3, 4}) {
    SetSimdCapForTesting(cap);
    const Bytes src(cells * w, 255);
    Bytes out(w, 0);
    ConverterBGR8ToMono8(src.data(), cells * w, size_t(cells), true, out.data(), w, w, 1, nullptr, false);
    for (size_t x = 0; x < w; ++x) ASSERT_EQ(out[x], 255) << "cap " << cap << " cells " << cells << " x " << x;
  }
}

// 10 -> 8 tables: every shift the table check can recognise (low byte kept
// where entries exceed a byte), and one that is not a shift.
std::vector<std::vector<uint16_t>> TenToEightTables() {
  std::vector<std::vector<uint16_t>> tables;
  for (unsigned s = 0; s < 10; ++s) {
    std::vector<uint16_t> t(1024);
    for (uint32_t i = 0; i < 1024; ++i) t[i] = uint16_t(i >> s);
    tables.push_back(t);
  }
  std::vector<uint16_t> t(1024);
  for (uint32_t i = 0; i < 1024; ++i) t[i] = uint16_t((i * i) >> 12);
  tables.push_back(t);
  return tables;
}

TEST(VectorLineBodies, Packed10p32ToEightBitsMatchesTheScalarRule) {
  std::mt19937 gen(12);
  const size_t h = 3;
  const auto tables = TenToEightTables();
  SCapGuard guard;
  for (ESimdCap_t cap : kCaps)
  for (size_t nTable = 0; nTable < tables.size(); ++nTable) {
    const std::vector<uint16_t>& table = tables[nTable];
    for (int cells : {3, 4})
      for (bool srcBgr : {false, true})
        for (bool destBgr : {false, true})
          for (bool flip : {false, true})
            for (size_t w : kWidths) {
              const size_t sp = 4 * w + 8, dp = cells * w + 7;
              Bytes src = RandomBytes(sp * h, gen);
              for (size_t i = 3; i < src.size(); i += 4) src[i] &= 0x3F;  // bits 31:30 zero
              Bytes out(dp * h, kUntouched);
              SetSimdCapForTesting(cap);
              ConverterBGR10p32ToBGRx8(src.data(), sp, srcBgr, out.data(), dp, size_t(cells), destBgr, w, h,
                                       table.data(), flip);
              for (size_t y = 0; y < h; ++y) {
                const uint8_t* pd = &out[(flip ? h - 1 - y : y) * dp];
                for (size_t x = 0; x < w; ++x) {
                  const uint8_t* ps = &src[y * sp + 4 * x];
                  const uint32_t word = ps[0] | ps[1] << 8 | ps[2] << 16 | uint32_t(ps[3]) << 24;
                  for (int f = 0; f < 3; ++f) {
                    const int cell = f == 1 ? 1 : ((f == 0) == (srcBgr == destBgr) ? 0 : 2);
                    ASSERT_EQ(pd[cells * x + cell], uint8_t(table[(word >> (10 * f)) & 0x3FF]))
                        << "cap " << cap << " table " << nTable << " cells " << cells << " swap " << (srcBgr != destBgr) << " w "
                        << w << " x " << x << " field " << f;
                  }
                  if (cells == 4) {
                    ASSERT_EQ(pd[4 * x + 3], kUntouched) << "alpha, w " << w << " x " << x;
                  }
                }
                for (size_t i = cells * w; i < dp; ++i) ASSERT_EQ(pd[i], kUntouched) << "padding, w " << w;
              }
            }
  }
}

}  // namespace
