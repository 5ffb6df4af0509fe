// The passes that mostly move bytes (channel order, alpha added or dropped,
// grey to colour, YCbCr to colour, quarter turns and mirrors) beside libyuv's
// calls for the same job on the same 2448 x 2048 frames, one thread each, and
// beside memcpy of the destination bytes. libyuv rounds YCbCr its own way: it
// is a speed anchor only. After the usual benchmark output the run prints one
// table: our time, libyuv's, the ratio (libyuv / ours, above 1 we are faster)
// and our time as a fraction of the copy.
#include <benchmark/benchmark.h>

#include <libyuv.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <VyApi_IP/VyApi_IP.h>

using namespace VyApi;

namespace {

constexpr int c_nWidth = 2448;
constexpr int c_nHeight = 2048;

struct SKit {
  SKit() { InitializeVyApi(); }
  ~SKit() { TerminateVyApi(); }
};

using ImagePtr = CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer>;

void MakeImage(ImagePtr& img, EVyPixelFormatNamingConvention_t eFormat) {
  img.Reset(CreateIVyImageBuffer(nullptr));
  img->CreateBuffer(c_nWidth, c_nHeight, eFormat, VyMemoryInitialization_Zero);
  IVyImage* p = img->GetIVyImage();
  auto* b = static_cast<uint8_t*>(p->GetImageBuffer());
  std::mt19937 rng(7);
  for (size_t i = 0; i < p->GetImageLinePitch() * p->GetImageHeight(); ++i) b[i] = static_cast<uint8_t>(rng());
}

size_t Bytes(IVyImage* p) { return p->GetImageLinePitch() * p->GetImageHeight(); }

struct SCase {
  const char* szName;
  EVyPixelFormatNamingConvention_t eSrc;
  EVyPixelFormatNamingConvention_t eDest;
  int nMove;  // 0 pixel-format conversion, 1 clockwise turn, 2 mirror
  size_t nDestBytesPerPixel;
  // libyuv's call on the same buffers (source, its pitch, destination, its pitch).
  std::function<void(const uint8_t*, int, uint8_t*, int)> yuv;
};

std::vector<uint8_t> g_yuvPlanes(3 * static_cast<size_t>(c_nWidth) * c_nHeight);

const std::vector<SCase>& Cases() {
  static const std::vector<SCase> cases = {
      {"BGR8 to RGB8", VyPixelFormat_BGR8, VyPixelFormat_RGB8, 0, 3,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) { libyuv::RAWToRGB24(s, sp, d, dp, c_nWidth, c_nHeight); }},
      {"BGR8 to Mono8", VyPixelFormat_BGR8, VyPixelFormat_Mono8, 0, 1,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) { libyuv::RGB24ToJ400(s, sp, d, dp, c_nWidth, c_nHeight); }},
      {"Mono8 to BGRa8", VyPixelFormat_Mono8, VyPixelFormat_BGRa8, 0, 4,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) { libyuv::J400ToARGB(s, sp, d, dp, c_nWidth, c_nHeight); }},
      {"Mono8 to BGR8", VyPixelFormat_Mono8, VyPixelFormat_BGR8, 0, 3,
       // libyuv has no direct grey-to-RGB24; through ARGB is what a user would call.
       [](const uint8_t* s, int sp, uint8_t* d, int dp) {
         libyuv::J400ToARGB(s, sp, g_yuvPlanes.data(), 4 * c_nWidth, c_nWidth, c_nHeight / 2);
         libyuv::ARGBToRGB24(g_yuvPlanes.data(), 4 * c_nWidth, d, dp, c_nWidth, c_nHeight / 2);
         libyuv::J400ToARGB(s + sp * (c_nHeight / 2), sp, g_yuvPlanes.data(), 4 * c_nWidth, c_nWidth, c_nHeight / 2);
         libyuv::ARGBToRGB24(g_yuvPlanes.data(), 4 * c_nWidth, d + dp * (c_nHeight / 2), dp, c_nWidth, c_nHeight / 2);
       }},
      {"BGRa8 to BGR8", VyPixelFormat_BGRa8, VyPixelFormat_BGR8, 0, 3,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) { libyuv::ARGBToRGB24(s, sp, d, dp, c_nWidth, c_nHeight); }},
      {"BGR8 to BGRa8", VyPixelFormat_BGR8, VyPixelFormat_BGRa8, 0, 4,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) { libyuv::RGB24ToARGB(s, sp, d, dp, c_nWidth, c_nHeight); }},
      {"BGRa8 to RGBa8", VyPixelFormat_BGRa8, VyPixelFormat_RGBa8, 0, 4,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) { libyuv::ARGBToABGR(s, sp, d, dp, c_nWidth, c_nHeight); }},
      {"YCbCr422_8 to BGRa8", VyPixelFormat_YCbCr422_8, VyPixelFormat_BGRa8, 0, 4,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) { libyuv::YUY2ToARGB(s, sp, d, dp, c_nWidth, c_nHeight); }},
      {"YCbCr422_8 to BGR8", VyPixelFormat_YCbCr422_8, VyPixelFormat_BGR8, 0, 3,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) {
         uint8_t* y = g_yuvPlanes.data();
         uint8_t* u = y + static_cast<size_t>(c_nWidth) * c_nHeight;
         uint8_t* v = u + static_cast<size_t>(c_nWidth / 2) * c_nHeight;
         libyuv::YUY2ToI422(s, sp, y, c_nWidth, u, c_nWidth / 2, v, c_nWidth / 2, c_nWidth, c_nHeight);
         libyuv::I422ToRGB24(y, c_nWidth, u, c_nWidth / 2, v, c_nWidth / 2, d, dp, c_nWidth, c_nHeight);
       }},
      {"Mono8 turned 90 degrees", VyPixelFormat_Mono8, VyPixelFormat_Mono8, 1, 1,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) {
         libyuv::RotatePlane(s, sp, d, dp, c_nWidth, c_nHeight, libyuv::kRotate90);
       }},
      {"BGRa8 turned 90 degrees", VyPixelFormat_BGRa8, VyPixelFormat_BGRa8, 1, 4,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) {
         libyuv::ARGBRotate(s, sp, d, dp, c_nWidth, c_nHeight, libyuv::kRotate90);
       }},
      {"Mono8 mirrored", VyPixelFormat_Mono8, VyPixelFormat_Mono8, 2, 1,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) { libyuv::MirrorPlane(s, sp, d, dp, c_nWidth, c_nHeight); }},
      {"BGRa8 mirrored", VyPixelFormat_BGRa8, VyPixelFormat_BGRa8, 2, 4,
       [](const uint8_t* s, int sp, uint8_t* d, int dp) { libyuv::ARGBMirror(s, sp, d, dp, c_nWidth, c_nHeight); }},
  };
  return cases;
}

void BM_Ours(benchmark::State& state, const SCase& c) {
  SKit kit;
  ImagePtr src;
  MakeImage(src, c.eSrc);
  ImagePtr dest(CreateIVyImageBuffer(nullptr));
  std::function<void()> run;
  CVyAutoPtr<IVyConverterReleasable, IVyPixelFormatConverter> conv;
  CVyAutoPtr<IVyConverterReleasable, IVyReverseConverter> rev;
  if (c.nMove == 0) {
    conv.Reset(CreateIVyConverter(VyConverterType_PixelFormat));
    conv->SetDestinationPixelFormat(c.eDest);
    run = [&] { conv->Convert(src->GetIVyImage(), dest.Get()); };
  } else {
    rev.Reset(CreateIVyConverter(VyConverterType_Reverse));
    if (c.nMove == 1) rev->SetRotationMode(VyRotationMode_Clockwise90);
    else rev->SetReverseX(true);
    run = [&] { rev->Convert(src->GetIVyImage(), dest.Get()); };
  }
  run();
  for (auto _ : state) {
    run();
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * Bytes(dest->GetIVyImage())));
}

void BM_Libyuv(benchmark::State& state, const SCase& c) {
  SKit kit;
  ImagePtr src;
  MakeImage(src, c.eSrc);
  const int nDestPitch = static_cast<int>(c.nDestBytesPerPixel) * (c.nMove == 1 ? c_nHeight : c_nWidth);
  std::vector<uint8_t> dest(static_cast<size_t>(nDestPitch) * c_nWidth);
  IVyImage* s = src->GetIVyImage();
  const auto* pSrc = static_cast<const uint8_t*>(s->GetImageBuffer());
  const int nSrcPitch = static_cast<int>(s->GetImageLinePitch());
  c.yuv(pSrc, nSrcPitch, dest.data(), nDestPitch);
  for (auto _ : state) {
    c.yuv(pSrc, nSrcPitch, dest.data(), nDestPitch);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * c.nDestBytesPerPixel * c_nWidth * c_nHeight));
}

void BM_Memcpy(benchmark::State& state, const SCase& c) {
  const size_t n = c.nDestBytesPerPixel * c_nWidth * c_nHeight;
  std::vector<uint8_t> a(n, 1), b(n);
  for (auto _ : state) {
    std::memcpy(b.data(), a.data(), n);
    benchmark::DoNotOptimize(b.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * n));
}

// Keeps each run's time per iteration, for the table at the end.
class CTableReporter : public benchmark::ConsoleReporter {
 public:
  std::map<std::string, double> m_times;  // name -> milliseconds
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& r : runs)
      if (r.run_type == Run::RT_Iteration || r.aggregate_name == "median")
        m_times[r.run_name.function_name + "/" + r.run_name.args] = r.GetAdjustedRealTime();
    ConsoleReporter::ReportRuns(runs);
  }
};

}  // namespace

int main(int argc, char** argv) {
  for (const SCase& c : Cases()) {
    const std::string n = c.szName;
    benchmark::RegisterBenchmark(("Ours/" + n).c_str(), BM_Ours, c)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("libyuv/" + n).c_str(), BM_Libyuv, c)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("memcpy/" + n).c_str(), BM_Memcpy, c)->Unit(benchmark::kMillisecond);
  }
  benchmark::Initialize(&argc, argv);
  CTableReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::printf("\n| Case | Ours | libyuv | Ours / libyuv | memcpy / ours |\n|---|---|---|---|---|\n");
  for (const SCase& c : Cases()) {
    const std::string n = c.szName;
    auto find = [&](const std::string& k) {
      for (const auto& [name, t] : reporter.m_times)
        if (name.rfind(k + "/", 0) == 0 || name == k) return t;
      return 0.0;
    };
    const double ours = find("Ours/" + n), yuv = find("libyuv/" + n), copy = find("memcpy/" + n);
    if (ours <= 0 || yuv <= 0) continue;
    std::printf("| %s | %.3f ms | %.3f ms | %.2fx | %.2f |\n", c.szName, ours, yuv, yuv / ours, copy / ours);
  }
  benchmark::Shutdown();
  return 0;
}
