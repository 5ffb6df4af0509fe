// vyip demo: the main job, on the built-in colour chart.
#include <sys/stat.h>

#include <cstdio>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "Commands.h"
#include "Library.h"

using namespace VyApi;

namespace VyTools {

namespace {

constexpr size_t c_nWidth = 640;
constexpr size_t c_nHeight = 480;
constexpr double c_dblGamma = 0.8;

struct SMethod {
  EVyBayerInterpolationMethod_t eMethod;
  const char* szName;
};

const SMethod c_Methods[] = {
    {VyBayerInterpolationMethod_None, "none"},
    {VyBayerInterpolationMethod_NearestNeighbor, "nearest-neighbor"},
    {VyBayerInterpolationMethod_NearestNeighbor2, "nearest-neighbor2"},
    {VyBayerInterpolationMethod_BilinearSimple, "bilinear"},
    {VyBayerInterpolationMethod_BilinearFalseColorReduction, "bilinear2"},
    {VyBayerInterpolationMethod_BiCubic, "bicubic"},
};

const EVyStillImageFileFormat_t c_FileFormats[] = {VyStillImageFileFormat_PNG, VyStillImageFileFormat_TIFF,
                                                   VyStillImageFileFormat_BMP, VyStillImageFileFormat_JPEG,
                                                   VyStillImageFileFormat_Raw};

long FileSize(const std::string& path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0 ? static_cast<long>(st.st_size) : -1;
}

}  // namespace

int RunDemo(int argc, char** argv) {
  CCommandLine cl(argc, argv, 1, {"--out"}, {});
  if (!cl.Positional().empty()) throw UsageError("demo takes no positional arguments");
  std::string dir = cl.Value("--out", "vyip-demo");
  while (dir.size() > 1 && dir.back() == '/') dir.pop_back();
  if (mkdir(dir.c_str(), 0775) != 0 && FileSize(dir) < 0) {
    std::fprintf(stderr, "vyip demo: cannot make the folder %s\n", dir.c_str());
    return 1;
  }

  CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> chart(CreateIVyImageBuffer(nullptr));
  chart->CreateBuffer(c_nWidth, c_nHeight, VyPixelFormat_BGR8, VyMemoryInitialization_Chart);

  CVyAutoPtr<IVyConverterReleasable, IVyPixelFormatConverter> converter(CreateIVyConverter(VyConverterType_PixelFormat));
  CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> mosaic(CreateIVyImageBuffer(nullptr));
  converter->SetDestinationPixelFormat(VyPixelFormat_BayerRG8);
  converter->Convert(chart->GetIVyImage(), mosaic);

  CVyAutoPtr<IVyFilterReleasable, IVyGammaCorrectionFilter> gamma(CreateIVyFilter(VyFilterType_GammaCorrection));
  gamma->SetGammaValue(c_dblGamma);
  CVyAutoPtr<IVyFilerReleasable, IVyStillImageFiler> filer(CreateIVyFiler(VyFilerType_StillImage));

  struct SRow {
    std::string step, file;
    long nBytes;
  };
  std::vector<SRow> rows;
  auto save = [&](IVyImage* pImage, const std::string& stem, EVyStillImageFileFormat_t eFile, const std::string& step) {
    const std::string path = dir + "/" + stem + "." + FileFormatName(eFile);
    filer->Save(pImage, eFile, path.c_str());
    rows.push_back({step, path, FileSize(path)});
  };
  save(chart->GetIVyImage(), "chart", VyStillImageFileFormat_PNG, "colour chart, BGR8");
  save(mosaic->GetIVyImage(), "mosaic-BayerRG8", VyStillImageFileFormat_Raw, "Bayer mosaic, BayerRG8");

  converter->SetDestinationPixelFormat(VyPixelFormat_BGR8);
  CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> colour(CreateIVyImageBuffer(nullptr));
  for (const SMethod& m : c_Methods) {
    converter->SetBayerInterpolationMethod(m.eMethod);
    converter->Convert(mosaic->GetIVyImage(), colour);
    gamma->Filter(colour->GetIVyImage());
    for (EVyStillImageFileFormat_t eFile : c_FileFormats)
      save(colour->GetIVyImage(), m.szName, eFile, std::string("demosaic ") + m.szName + ", gamma 0.8");
  }

  std::printf("%-34s %-36s %10s\n", "step", "file", "bytes");
  for (const SRow& r : rows) std::printf("%-34s %-36s %10ld\n", r.step.c_str(), r.file.c_str(), r.nBytes);
  std::printf("%zu files written to %s/ (%zu x %zu chart)\n", rows.size(), dir.c_str(), c_nWidth, c_nHeight);
  return 0;
}

}  // namespace VyTools
