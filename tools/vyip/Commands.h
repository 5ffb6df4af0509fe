// The vyip commands. Each returns the process exit code: 0 done, 1 the
// library refused or failed, 2 a usage error (raised as UsageError).
#ifndef VYIP_COMMANDS_H
#define VYIP_COMMANDS_H

namespace VyTools {

struct SCommand {
  const char* szName;
  const char* szSummary;
  const char* szHelp;
  int (*pfnRun)(int argc, char** argv);  // argv[0] is the command's name
};

int RunDemo(int argc, char** argv);
int RunConvert(int argc, char** argv);
int RunInfo(int argc, char** argv);
int RunFormats(int argc, char** argv);
int RunFeatures(int argc, char** argv);

extern const SCommand c_Commands[];
extern const int c_nCommandCount;

}  // namespace VyTools

#endif
