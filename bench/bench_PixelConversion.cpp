// Throughput of the converter's pixel kernels on 2448 x 2048 frames. Every
// kernel reports bytes_per_second over the bytes it writes, and each output
// size has a memcpy of the same number of bytes in the same run as anchor.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

#include "PixelConversion/BitStreamPacking.h"
#include "PixelConversion/ColorToColorConversion.h"
#include "PixelConversion/ColorToMonoConversion.h"
#include "PixelConversion/GvspPacking.h"
#include "PixelConversion/MonoToColorConversion.h"
#include "PixelConversion/Packed10p32.h"
#include "PixelConversion/RawMonoConversion.h"
#include "PixelConversion/SharedTableHolder.h"
#include "PixelConversion/SimdLineKernels.h"
#include "PixelConversion/VyLookUpTableManager.h"

using namespace VyApi;
using namespace VyApi::PixelConversion;

namespace {

constexpr size_t kWidth = 2448;
constexpr size_t kHeight = 2048;

std::vector<uint8_t> RandomBytes(size_t n, uint32_t nMask = 0xFF) {
  std::vector<uint8_t> v(n);
  std::mt19937 rng(1);
  for (auto& b : v) b = uint8_t(rng() & nMask);
  return v;
}

void Memcpy(benchmark::State& state) {
  const size_t n = size_t(state.range(0));
  std::vector<uint8_t> src = RandomBytes(n), dst(n);
  for (auto _ : state) {
    std::memcpy(dst.data(), src.data(), n);
    benchmark::DoNotOptimize(dst.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(n));
}
BENCHMARK(Memcpy)->Arg(kWidth * kHeight)->Arg(2 * kWidth * kHeight)->Arg(3 * kWidth * kHeight)->Unit(benchmark::kMicrosecond);

void Mono12pToMono16(benchmark::State& state) {
  const size_t sp = kWidth * 12 / 8, dp = kWidth * 2;
  std::vector<uint8_t> src = RandomBytes(sp * kHeight), dst(dp * kHeight);
  CVyLookUpTableManager m;
  for (auto _ : state) {
    CSharedTableHolder t(m, 12, 16);
    ConverterPackedToUnpacked(src.data(), sp, dst.data(), dp, kWidth, kHeight, 12, 16, t.Get(), false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(Mono12pToMono16)->Unit(benchmark::kMicrosecond);

void Mono10pToMono16(benchmark::State& state) {
  const size_t sp = kWidth * 10 / 8, dp = kWidth * 2;
  std::vector<uint8_t> src = RandomBytes(sp * kHeight), dst(dp * kHeight);
  CVyLookUpTableManager m;
  for (auto _ : state) {
    CSharedTableHolder t(m, 10, 16);
    ConverterPackedToUnpacked(src.data(), sp, dst.data(), dp, kWidth, kHeight, 10, 16, t.Get(), false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(Mono10pToMono16)->Unit(benchmark::kMicrosecond);

void GvspMono12PackedToMono16(benchmark::State& state) {
  const size_t sp = kWidth * 3 / 2, dp = kWidth * 2;
  std::vector<uint8_t> src = RandomBytes(sp * kHeight), dst(dp * kHeight);
  CVyLookUpTableManager m;
  for (auto _ : state) {
    CSharedTableHolder t(m, 12, 16);
    ConverterGEVPackedToUnpacked(src.data(), sp, dst.data(), dp, kWidth, kHeight, 12, 16, t.Get(), false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(GvspMono12PackedToMono16)->Unit(benchmark::kMicrosecond);

void Mono8ToMono16(benchmark::State& state) {
  std::vector<uint8_t> src = RandomBytes(kWidth * kHeight), dst(2 * kWidth * kHeight);
  CVyLookUpTableManager m;
  for (auto _ : state) {
    CSharedTableHolder t(m, 8, 16);
    ConverterRawMono8ToRawMono16(src.data(), kWidth, dst.data(), 2 * kWidth, kWidth, kHeight, 8, t.Get(), false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(Mono8ToMono16)->Unit(benchmark::kMicrosecond);

void Mono12pToMono12(benchmark::State& state) {
  const size_t sp = kWidth * 12 / 8, dp = kWidth * 2;
  std::vector<uint8_t> src = RandomBytes(sp * kHeight), dst(dp * kHeight);
  for (auto _ : state) {
    ConverterPackedToUnpacked(src.data(), sp, dst.data(), dp, kWidth, kHeight, 12, 12, nullptr, false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(Mono12pToMono12)->Unit(benchmark::kMicrosecond);

void Mono12pToMono8(benchmark::State& state) {
  const size_t sp = kWidth * 12 / 8, dp = kWidth;
  std::vector<uint8_t> src = RandomBytes(sp * kHeight), dst(dp * kHeight);
  CVyLookUpTableManager m;
  m.m_dGammaValue = double(state.range(0)) / 10.0;
  for (auto _ : state) {
    CSharedTableHolder t(m, 12, 8);
    ConverterPackedToUnpacked(src.data(), sp, dst.data(), dp, kWidth, kHeight, 12, 8, t.Get(), false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(Mono12pToMono8)->ArgName("gammaX10")->Arg(10)->Arg(22)->Unit(benchmark::kMicrosecond);

void GvspMono12PackedToMono8(benchmark::State& state) {
  const size_t sp = kWidth * 3 / 2, dp = kWidth;
  std::vector<uint8_t> src = RandomBytes(sp * kHeight), dst(dp * kHeight);
  CVyLookUpTableManager m;
  for (auto _ : state) {
    CSharedTableHolder t(m, 12, 8);
    ConverterGEVPackedToUnpacked(src.data(), sp, dst.data(), dp, kWidth, kHeight, 12, 8, t.Get(), false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(GvspMono12PackedToMono8)->Unit(benchmark::kMicrosecond);

void Mono8ToBGR8(benchmark::State& state) {
  std::vector<uint8_t> src = RandomBytes(kWidth * kHeight), dst(3 * kWidth * kHeight);
  for (auto _ : state) {
    ConverterMonoB2BGRB_RGBB(src.data(), kWidth, dst.data(), 3 * kWidth, 3, kWidth, kHeight, nullptr, false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(Mono8ToBGR8)->Unit(benchmark::kMicrosecond);

void BGR8ToRGB8(benchmark::State& state) {
  std::vector<uint8_t> src = RandomBytes(3 * kWidth * kHeight), dst(3 * kWidth * kHeight);
  for (auto _ : state) {
    ConverterBGRx8ToBGRx8(src.data(), 3 * kWidth, 3, true, dst.data(), 3 * kWidth, 3, false, kWidth, kHeight, nullptr,
                          false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(BGR8ToRGB8)->Unit(benchmark::kMicrosecond);

// The argument caps the instruction set of the hand-written line bodies
// (ESimdCap_t: 3 all, 2 AVX2, 1 SSSE3, 0 none), so that each form is measured.
struct SSimdCap {
  explicit SSimdCap(const benchmark::State& state) { SetSimdCapForTesting(ESimdCap_t(state.range(0))); }
  ~SSimdCap() { SetSimdCapForTesting(SimdCap_All); }
};

void BGR8ToMono8(benchmark::State& state) {
  SSimdCap cap(state);
  std::vector<uint8_t> src = RandomBytes(3 * kWidth * kHeight), dst(kWidth * kHeight);
  for (auto _ : state) {
    ConverterBGR8ToMono8(src.data(), 3 * kWidth, 3, true, dst.data(), kWidth, kWidth, kHeight, nullptr, false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(BGR8ToMono8)->ArgName("simd")->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

void RGB10p32ToBGR8(benchmark::State& state) {
  SSimdCap cap(state);
  std::vector<uint32_t> src(kWidth * kHeight);
  std::mt19937 rng(2);
  for (auto& w : src) w = rng() & 0x3FFFFFFF;
  std::vector<uint8_t> dst(3 * kWidth * kHeight);
  CVyLookUpTableManager m;
  for (auto _ : state) {
    CSharedTableHolder t(m, 10, 8);
    ConverterBGR10p32ToBGRx8(src.data(), 4 * kWidth, false, dst.data(), 3 * kWidth, 3, true, kWidth, kHeight, t.Get(),
                             false);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(dst.size()));
}
BENCHMARK(RGB10p32ToBGR8)->ArgName("simd")->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
