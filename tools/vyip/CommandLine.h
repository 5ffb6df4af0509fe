// The arguments of one vyip command: positional words and --options.
#ifndef VYIP_COMMANDLINE_H
#define VYIP_COMMANDLINE_H

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace VyTools {

/// A usage error: the command line is wrong. vyip exits with code 2.
class UsageError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

class CCommandLine {
public:
  /// Parses argv[first..argc). valueOptions take a value ("--to BGR8" or
  /// "--to=BGR8"), flagOptions none; "--set" may repeat. Raises UsageError for
  /// an unknown option or a missing value.
  CCommandLine(int argc, char** argv, int first, const std::vector<std::string>& valueOptions,
               const std::vector<std::string>& flagOptions);

  const std::vector<std::string>& Positional() const { return m_vecPositional; }
  bool Has(const std::string& option) const { return m_mapValues.count(option) != 0; }
  /// The option's value, or fallback when absent.
  std::string Value(const std::string& option, const std::string& fallback = "") const;
  /// Every value of a repeated option, in order.
  std::vector<std::string> Values(const std::string& option) const;
  /// The option's value as a number. Raises UsageError when it is not one.
  double Number(const std::string& option, double fallback) const;

private:
  std::vector<std::string> m_vecPositional;
  std::multimap<std::string, std::string> m_mapValues;
};

}  // namespace VyTools

#endif
