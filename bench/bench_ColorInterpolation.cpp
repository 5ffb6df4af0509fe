// Demosaicing throughput on 2448 x 2048 frames, single thread, side by side
// with its anchors in the same run: OpenCV's bilinear and edge-aware Bayer
// conversions (OpenCV names a phase by its second line and column, so
// GenICam BayerRG is OpenCV's BayerBG) and a memcpy of the output bytes.
#include <benchmark/benchmark.h>

#include <cstring>
#include <random>
#include <vector>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include "ColorInterpolation/BayerToMono.h"
#include "ColorInterpolation/ColorInterporation.h"

namespace {

constexpr size_t kWidth = 2448, kHeight = 2048;

template <typename T>
struct Frame {
  std::vector<T> mosaic, colour;
  explicit Frame(unsigned nDepth) : mosaic(kWidth * kHeight), colour(kWidth * kHeight * 3) {
    std::mt19937 gen(1);
    std::uniform_int_distribution<unsigned> d(0, (1u << nDepth) - 1);
    for (auto& v : mosaic) v = static_cast<T>(d(gen));
  }
  VyApi::SBayerJob Job(unsigned nDepth) {
    VyApi::SBayerJob job;
    job.pSrc = mosaic.data();
    job.nSrcPitch = kWidth * sizeof(T);
    job.pDest = colour.data();
    job.nDestPitch = kWidth * 3 * sizeof(T);
    job.nWidth = kWidth;
    job.nHeight = kHeight;
    job.nBitDepth = nDepth;
    return job;
  }
};

template <typename T>
void SetCounters(benchmark::State& state) {
  state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(kWidth * kHeight));
  state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(kWidth * kHeight * 3 * sizeof(T)));
}

template <typename T, unsigned Depth>
void BM_Vy(benchmark::State& state) {
  Frame<T> frame(Depth);
  const VyApi::SBayerJob job = frame.Job(Depth);
  for (auto _ : state) {
    VyApi::CColorInterporation<T>::Run(static_cast<int>(state.range(0)), VyApi::BayerPhase_RG, job);
    benchmark::ClobberMemory();
  }
  SetCounters<T>(state);
}

template <typename T, unsigned Depth>
void BM_VyBayerToMono(benchmark::State& state) {
  Frame<T> frame(Depth);
  VyApi::SBayerJob job = frame.Job(Depth);
  job.nDestPitch = kWidth * sizeof(T);
  for (auto _ : state) {
    VyApi::CBayerToMono<T>::Run(VyApi::BayerPhase_RG, job);
    benchmark::ClobberMemory();
  }
  state.SetItemsProcessed(int64_t(state.iterations()) * int64_t(kWidth * kHeight));
}

template <typename T, unsigned Depth>
void BM_OpenCV(benchmark::State& state) {
  cv::setNumThreads(1);
  Frame<T> frame(Depth);
  const int nType = sizeof(T) == 1 ? CV_8UC1 : CV_16UC1;
  cv::Mat src(int(kHeight), int(kWidth), nType, frame.mosaic.data());
  cv::Mat dst(int(kHeight), int(kWidth), sizeof(T) == 1 ? CV_8UC3 : CV_16UC3, frame.colour.data());
  for (auto _ : state) {
    cv::demosaicing(src, dst, static_cast<int>(state.range(0)));
    benchmark::ClobberMemory();
  }
  SetCounters<T>(state);
}

template <typename T>
void BM_Memcpy(benchmark::State& state) {
  std::vector<T> a(kWidth * kHeight * 3, 1), b(kWidth * kHeight * 3);
  for (auto _ : state) {
    std::memcpy(b.data(), a.data(), a.size() * sizeof(T));
    benchmark::ClobberMemory();
  }
  SetCounters<T>(state);
}

void Methods(benchmark::internal::Benchmark* b) {
  b->ArgName("method");
  for (int m = 0; m <= 5; ++m) b->Arg(m);
  b->Unit(benchmark::kMillisecond);
}

void Anchors(benchmark::internal::Benchmark* b) {
  b->ArgName("cvcode")->Arg(cv::COLOR_BayerBG2BGR)->Arg(cv::COLOR_BayerBG2BGR_EA)->Unit(benchmark::kMillisecond);
}

}  // namespace

BENCHMARK_TEMPLATE(BM_Memcpy, uint8_t)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_OpenCV, uint8_t, 8)->Apply(Anchors);
BENCHMARK_TEMPLATE(BM_Vy, uint8_t, 8)->Apply(Methods);
BENCHMARK_TEMPLATE(BM_VyBayerToMono, uint8_t, 8)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_Memcpy, uint16_t)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(BM_OpenCV, uint16_t, 12)->Apply(Anchors);
BENCHMARK_TEMPLATE(BM_Vy, uint16_t, 12)->Apply(Methods);
BENCHMARK_TEMPLATE(BM_VyBayerToMono, uint16_t, 12)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
