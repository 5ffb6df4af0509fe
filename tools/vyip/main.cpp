// vyip: the library's command-line tool. "vyip help" lists the commands;
// "vyip COMMAND --help" explains one.
#include <cstdio>
#include <cstring>
#include <string>

#include <VyApi_IP/VyApi_IP.h>

#include "CommandLine.h"
#include "Commands.h"

using namespace VyTools;

namespace VyTools {

const SCommand c_Commands[] = {
    {"demo", "run the main job on the built-in colour chart",
     "usage: vyip demo [--out DIR]\n"
     "Makes the colour chart, samples it to a BayerRG8 mosaic, demosaics it with\n"
     "every method, applies gamma, saves each result as PNG, TIFF, BMP, JPEG and\n"
     "RAW in DIR (default: vyip-demo), and prints a table of the files written.\n",
     RunDemo},
    {"convert", "convert a RAW or BMP file into any pixel and file format",
     "usage: vyip convert IN OUT --to FORMAT [--method M] [--gamma G] [--flip]\n"
     "                    [--file-format F] [--set Name=Value]...\n"
     "IN is a RAW or BMP file. OUT's extension (raw, bmp, jpg, tif, png, csv) or\n"
     "--file-format gives the file format. FORMAT is a pixel format name (see\n"
     "'vyip formats'). M is a demosaicing method: OFF, NearestNeighbor,\n"
     "NearestNeighbor2, Bilinear, Bilinear2, Bicubic (or 0 to 5). --set changes a\n"
     "feature of the converter's node map before the conversion.\n",
     RunConvert},
    {"info", "print size, pixel format and line pitch of a RAW or BMP file",
     "usage: vyip info FILE\n", RunInfo},
    {"formats", "list the pixel formats and the destinations each reaches",
     "usage: vyip formats [FORMAT]\n"
     "Without FORMAT: every format with its code and number of destinations.\n"
     "With FORMAT: the destinations that FORMAT converts to.\n",
     RunFormats},
    {"features", "print a module's node map with current values",
     "usage: vyip features MODULE [--set Name=Value]...\n"
     "MODULE is gamma, pixel-format, reverse or still-image. --set changes a\n"
     "feature first (in order), then the tree is printed.\n",
     RunFeatures},
};
const int c_nCommandCount = sizeof(c_Commands) / sizeof(c_Commands[0]);

}  // namespace VyTools

namespace {

void PrintUsage(FILE* out) {
  std::fprintf(out, "usage: vyip COMMAND [ARGS]   (vyip COMMAND --help for details)\n\ncommands:\n");
  for (int i = 0; i < c_nCommandCount; ++i)
    std::fprintf(out, "  %-9s %s\n", c_Commands[i].szName, c_Commands[i].szSummary);
}

bool WantsHelp(int argc, char** argv) {
  for (int i = 1; i < argc; ++i)
    if (!std::strcmp(argv[i], "--help") || !std::strcmp(argv[i], "-h")) return true;
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || !std::strcmp(argv[1], "help") || !std::strcmp(argv[1], "--help") || !std::strcmp(argv[1], "-h")) {
    PrintUsage(argc < 2 ? stderr : stdout);
    return argc < 2 ? 2 : 0;
  }
  for (int i = 0; i < c_nCommandCount; ++i) {
    const SCommand& cmd = c_Commands[i];
    if (std::strcmp(argv[1], cmd.szName) != 0) continue;
    if (WantsHelp(argc - 1, argv + 1)) {
      std::fputs(cmd.szHelp, stdout);
      return 0;
    }
    try {
      VyApi::CVyApiAutoInit kit;
      return cmd.pfnRun(argc - 1, argv + 1);
    } catch (const UsageError& e) {
      std::fprintf(stderr, "vyip %s: %s\n%s", cmd.szName, e.what(), cmd.szHelp);
      return 2;
    } catch (const GenICam::GenericException& e) {
      std::fprintf(stderr, "vyip %s: %s\n", cmd.szName, e.GetDescription());
      return 1;
    } catch (const std::exception& e) {
      std::fprintf(stderr, "vyip %s: %s\n", cmd.szName, e.what());
      return 1;
    }
  }
  std::fprintf(stderr, "vyip: unknown command '%s'\n", argv[1]);
  PrintUsage(stderr);
  return 2;
}
