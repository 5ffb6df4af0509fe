// vyip convert: a RAW or BMP file into any pixel and file format.
#include <cstdio>
#include <cstdlib>

#include "CommandLine.h"
#include "Commands.h"
#include "Library.h"

using namespace VyApi;

namespace VyTools {

namespace {

EVyBayerInterpolationMethod_t MethodByName(const std::string& name) {
  static const char* const c_Names[] = {"OFF", "NearestNeighbor", "NearestNeighbor2", "Bilinear", "Bilinear2", "Bicubic"};
  for (int i = 0; i < 6; ++i)
    if (name == c_Names[i] || name == std::to_string(i)) return static_cast<EVyBayerInterpolationMethod_t>(i);
  throw UsageError("unknown demosaicing method '" + name + "'");
}

}  // namespace

int RunConvert(int argc, char** argv) {
  CCommandLine cl(argc, argv, 1, {"--to", "--method", "--gamma", "--file-format", "--set"}, {"--flip"});
  if (cl.Positional().size() != 2) throw UsageError("give an input and an output file");
  if (!cl.Has("--to")) throw UsageError("give the destination pixel format with --to");
  const std::string in = cl.Positional()[0], out = cl.Positional()[1];
  const EVyPixelFormatNamingConvention_t eTo = PixelFormatByName(cl.Value("--to"));
  const EVyStillImageFileFormat_t eFile =
      cl.Has("--file-format") ? FileFormatByName(cl.Value("--file-format")) : FileFormatOfPath(out);

  CVyAutoPtr<IVyFilerReleasable, IVyStillImageFiler> filer(CreateIVyFiler(VyFilerType_StillImage));
  CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> source(CreateIVyImageBuffer(nullptr));
  filer->Load(source, in.c_str());

  CVyAutoPtr<IVyConverterReleasable, IVyPixelFormatConverter> converter(CreateIVyConverter(VyConverterType_PixelFormat));
  converter->SetDestinationPixelFormat(eTo);
  converter->SetReverseY(cl.Has("--flip"));
  if (cl.Has("--method")) converter->SetBayerInterpolationMethod(MethodByName(cl.Value("--method")));
  if (cl.Has("--gamma")) converter->SetGammaValue(cl.Number("--gamma", 1.0));
  for (const std::string& setting : cl.Values("--set")) ApplySetting(*converter->GetINodeMap(), setting);

  CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> result(CreateIVyImageBuffer(nullptr));
  converter->Convert(source->GetIVyImage(), result);
  IVyImage* pImage = result->GetIVyImage();
  if (!filer->IsSaveSupported(pImage->GetImagePixelFormat(), eFile)) {
    std::fprintf(stderr, "vyip convert: %s images cannot be saved as %s\n",
                 PixelFormatName(pImage->GetImagePixelFormat()).c_str(), FileFormatName(eFile));
    return 1;
  }
  filer->Save(pImage, eFile, out.c_str());
  std::printf("%s -> %s: %zu x %zu %s as %s\n", in.c_str(), out.c_str(), pImage->GetImageWidth(),
              pImage->GetImageHeight(), PixelFormatName(pImage->GetImagePixelFormat()).c_str(), FileFormatName(eFile));
  return 0;
}

}  // namespace VyTools
