// The commands that look and do not write: info, formats, features.
#include <cstdio>

#include "CommandLine.h"
#include "Commands.h"
#include "FeatureTree.h"
#include "Library.h"

using namespace VyApi;

namespace VyTools {

int RunInfo(int argc, char** argv) {
  CCommandLine cl(argc, argv, 1, {}, {});
  if (cl.Positional().size() != 1) throw UsageError("give exactly one file");
  CVyAutoPtr<IVyFilerReleasable, IVyStillImageFiler> filer(CreateIVyFiler(VyFilerType_StillImage));
  CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> buffer(CreateIVyImageBuffer(nullptr));
  filer->Load(buffer, cl.Positional()[0].c_str());
  IVyImage* pImage = buffer->GetIVyImage();
  std::printf("%s: %zu x %zu, %s, line pitch %zu bytes\n", cl.Positional()[0].c_str(), pImage->GetImageWidth(),
              pImage->GetImageHeight(), PixelFormatName(pImage->GetImagePixelFormat()).c_str(),
              pImage->GetImageLinePitch());
  return 0;
}

int RunFormats(int argc, char** argv) {
  CCommandLine cl(argc, argv, 1, {}, {});
  if (cl.Positional().size() > 1) throw UsageError("give at most one format");
  CVyAutoPtr<IVyConverterReleasable, IVyPixelFormatConverter> converter(CreateIVyConverter(VyConverterType_PixelFormat));
  const auto formats = PixelFormats();
  auto destinations = [&](EVyPixelFormatNamingConvention_t eSource) {
    std::vector<std::string> names;
    for (const auto& d : formats) {
      if (d.second == eSource) continue;
      converter->SetDestinationPixelFormat(d.second);
      if (converter->GetIVyConverterInfo()->IsSupported(eSource)) names.push_back(d.first);
    }
    return names;
  };
  if (cl.Positional().size() == 1) {
    const EVyPixelFormatNamingConvention_t eSource = PixelFormatByName(cl.Positional()[0]);
    const auto names = destinations(eSource);
    std::printf("%s reaches %zu formats:\n", cl.Positional()[0].c_str(), names.size());
    for (const std::string& n : names) std::printf("  %s\n", n.c_str());
    return 0;
  }
  std::printf("%-26s %-10s %s\n", "format", "code", "destinations");
  for (const auto& f : formats)
    std::printf("%-26s 0x%08X %zu\n", f.first.c_str(), static_cast<unsigned>(f.second), destinations(f.second).size());
  std::printf("%zu formats\n", formats.size());
  return 0;
}

int RunFeatures(int argc, char** argv) {
  CCommandLine cl(argc, argv, 1, {"--set"}, {});
  if (cl.Positional().size() != 1) throw UsageError("give exactly one module");
  CModule module(cl.Positional()[0]);
  GenApi::INodeMap* pMap = module.NodeMap();
  for (const std::string& setting : cl.Values("--set")) ApplySetting(*pMap, setting);
  PrintFeatureTree(*pMap, stdout);
  return 0;
}

}  // namespace VyTools
