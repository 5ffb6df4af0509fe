#include "CommandLine.h"

#include <algorithm>
#include <cstdlib>

namespace VyTools {

CCommandLine::CCommandLine(int argc, char** argv, int first, const std::vector<std::string>& valueOptions,
                           const std::vector<std::string>& flagOptions) {
  auto known = [](const std::vector<std::string>& v, const std::string& s) {
    return std::find(v.begin(), v.end(), s) != v.end();
  };
  for (int i = first; i < argc; ++i) {
    std::string arg = argv[i];
    if (arg.size() < 3 || arg.compare(0, 2, "--") != 0) {
      m_vecPositional.push_back(arg);
      continue;
    }
    std::string value;
    bool bHasValue = false;
    const size_t eq = arg.find('=');
    if (eq != std::string::npos) {
      value = arg.substr(eq + 1);
      arg = arg.substr(0, eq);
      bHasValue = true;
    }
    if (known(flagOptions, arg)) {
      if (bHasValue) throw UsageError("option " + arg + " takes no value");
      m_mapValues.emplace(arg, "");
    } else if (known(valueOptions, arg)) {
      if (!bHasValue) {
        if (i + 1 >= argc) throw UsageError("option " + arg + " needs a value");
        value = argv[++i];
      }
      m_mapValues.emplace(arg, value);
    } else {
      throw UsageError("unknown option " + arg);
    }
  }
}

std::string CCommandLine::Value(const std::string& option, const std::string& fallback) const {
  auto it = m_mapValues.find(option);
  return it == m_mapValues.end() ? fallback : it->second;
}

std::vector<std::string> CCommandLine::Values(const std::string& option) const {
  std::vector<std::string> values;
  auto range = m_mapValues.equal_range(option);
  for (auto it = range.first; it != range.second; ++it) values.push_back(it->second);
  return values;
}

double CCommandLine::Number(const std::string& option, double fallback) const {
  if (!Has(option)) return fallback;
  const std::string text = Value(option);
  char* end = nullptr;
  const double d = std::strtod(text.c_str(), &end);
  if (text.empty() || *end != '\0') throw UsageError("option " + option + " needs a number, not '" + text + "'");
  return d;
}

}  // namespace VyTools
