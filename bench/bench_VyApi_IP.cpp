// Throughput of the pixel-format converter's Convert on 2448 x 2048 frames,
// each beside memcpy of the same number of output bytes in the same run.
// Bytes per second count the output; the ratio to the memcpy row tells how
// far a conversion is from a plain copy of its result.
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <vector>

#include <VyApi_IP/VyApi_IP.h>

using namespace VyApi;

namespace {

constexpr size_t c_nWidth = 2448;
constexpr size_t c_nHeight = 2048;

struct SKit {
  SKit() { InitializeVyApi(); }
  ~SKit() { TerminateVyApi(); }
};

void FillRandom(IVyImage* pImage) {
  IVyPixelFormatInfo* info = GetIVyPixelFormatInfo(pImage->GetImagePixelFormat());
  const size_t nBytes = pImage->GetImageLinePitch() * pImage->GetImageHeight() * info->GetPlaneCount();
  auto* p = static_cast<uint8_t*>(pImage->GetImageBuffer());
  std::mt19937 rng(1);
  for (size_t i = 0; i < nBytes; ++i) p[i] = static_cast<uint8_t>(rng());
  // Unpacked samples deeper than 8 bits stay within their depth.
  const size_t nDepth = info->GetComponentBitDepth();
  if (nDepth > 8 && info->GetPixelBitCount() % 16 == 0) {
    auto* q = reinterpret_cast<uint16_t*>(p);
    for (size_t i = 0; i < nBytes / 2; ++i) q[i] &= static_cast<uint16_t>((1u << nDepth) - 1);
  }
}

void BM_Convert(benchmark::State& state, EVyPixelFormatNamingConvention_t eSrc, EVyPixelFormatNamingConvention_t eDest,
                double dGamma) {
  SKit kit;
  CVyAutoPtr<IVyConverterReleasable, IVyPixelFormatConverter> conv(CreateIVyConverter(VyConverterType_PixelFormat));
  CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> src(CreateIVyImageBuffer(nullptr));
  CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> dest(CreateIVyImageBuffer(nullptr));
  src->CreateBuffer(c_nWidth, c_nHeight, eSrc, VyMemoryInitialization_Zero);
  FillRandom(src->GetIVyImage());
  conv->SetDestinationPixelFormat(eDest);
  conv->SetGammaValue(dGamma);
  conv->Convert(src->GetIVyImage(), dest.Get());
  for (auto _ : state) {
    conv->Convert(src->GetIVyImage(), dest.Get());
    benchmark::ClobberMemory();
  }
  IVyImage* out = dest->GetIVyImage();
  const size_t nOut = out->GetImageLinePitch() * out->GetImageHeight() *
                      GetIVyPixelFormatInfo(out->GetImagePixelFormat())->GetPlaneCount();
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * nOut));
}

void BM_Memcpy(benchmark::State& state, EVyPixelFormatNamingConvention_t eDest) {
  SKit kit;
  CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> probe(CreateIVyImageBuffer(nullptr));
  probe->CreateBuffer(c_nWidth, c_nHeight, eDest, VyMemoryInitialization_None);
  IVyImage* img = probe->GetIVyImage();
  const size_t n = img->GetImageLinePitch() * img->GetImageHeight() *
                   GetIVyPixelFormatInfo(eDest)->GetPlaneCount();
  std::vector<uint8_t> a(n, 1), b(n);
  for (auto _ : state) {
    std::memcpy(b.data(), a.data(), n);
    benchmark::DoNotOptimize(b.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * n));
}

#define VY_PAIR(name, src, dest, gamma)                                                                    \
  BENCHMARK_CAPTURE(BM_Convert, name, VyPixelFormat_##src, VyPixelFormat_##dest, gamma)->Unit(benchmark::kMillisecond); \
  BENCHMARK_CAPTURE(BM_Memcpy, name, VyPixelFormat_##dest)->Unit(benchmark::kMillisecond)

VY_PAIR(Mono12p_to_Mono16, Mono12p, Mono16, 1.0);
VY_PAIR(Mono12p_to_Mono8_gamma1, Mono12p, Mono8, 1.0);
VY_PAIR(Mono12p_to_Mono8_gamma2_2, Mono12p, Mono8, 2.2);
VY_PAIR(GVSP_Mono12Packed_to_Mono8, GVSP_Mono12Packed, Mono8, 1.0);
VY_PAIR(Mono8_to_BGR8, Mono8, BGR8, 1.0);
VY_PAIR(BGR8_to_RGB8, BGR8, RGB8, 1.0);
VY_PAIR(BGR8_to_Mono8, BGR8, Mono8, 1.0);
VY_PAIR(RGB10p32_to_BGR8, RGB10p32, BGR8, 1.0);

}  // namespace

BENCHMARK_MAIN();
