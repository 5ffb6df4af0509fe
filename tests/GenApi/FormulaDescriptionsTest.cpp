// Every formula of the real device descriptions and of the engine test
// descriptions must compile in the mode its node type gives, and evaluate
// without faults.
//
// The formulas are read out by Python's XML parser, an independent reader
// that needs no link dependency of this test binary.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "GenApi/Formula/Formula.h"

using GenApi_3_0::detail::CFormula;

namespace {

struct SDescribedFormula {
  bool m_bInteger;
  std::string m_strFile;
  std::string m_strNode;
  std::string m_strElement;
  std::string m_strText;
};

// Prints one line per formula: mode, file, node, element, text in hex (the
// text may hold line breaks and any character).
const char* const kExtractor =
    "import sys, xml.etree.ElementTree as ET\n"
    "modes = {\"IntSwissKnife\": \"I\", \"IntConverter\": \"I\", \"SwissKnife\": \"F\", \"Converter\": \"F\"}\n"
    "elements = (\"Formula\", \"FormulaTo\", \"FormulaFrom\", \"Expression\")\n"
    "for path in sys.argv[1:]:\n"
    "    for node in ET.parse(path).getroot().iter():\n"
    "        mode = modes.get(node.tag.rsplit(\"}\", 1)[-1])\n"
    "        if mode is None:\n"
    "            continue\n"
    "        for child in node:\n"
    "            tag = child.tag.rsplit(\"}\", 1)[-1]\n"
    "            if tag in elements:\n"
    "                text = (child.text or \"\").encode().hex()\n"
    "                print(mode, path, node.get(\"Name\", \"?\"), tag, text if text else \"-\")\n";

std::string FromHex(const std::string& hex) {
  std::string out;
  if (hex == "-") return out;
  for (size_t i = 0; i + 1 < hex.size(); i += 2) out += char(std::stoi(hex.substr(i, 2), nullptr, 16));
  return out;
}

std::vector<std::string> DescriptionFiles() {
  std::vector<std::string> files;
  for (const char* dir : {"/genicam/devices", "/genicam/engine-tests"}) {
    for (const auto& entry : std::filesystem::directory_iterator(std::string(VY_SHARED_DIR) + dir))
      if (entry.path().extension() == ".xml") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<SDescribedFormula> ExtractFormulas(const std::vector<std::string>& files) {
  // The script holds no single quote, so the shell passes it through as is.
  std::string command = std::string("/usr/bin/python3 -c '") + kExtractor + "'";
  for (const std::string& f : files) command += " '" + f + "'";
  std::vector<SDescribedFormula> formulas;
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return formulas;
  std::string line;
  char buffer[4096];
  while (std::fgets(buffer, sizeof buffer, pipe) != nullptr) {
    line += buffer;
    if (line.empty() || line.back() != '\n') continue;
    line.pop_back();
    std::vector<std::string> fields;
    size_t start = 0;
    for (size_t pos; (pos = line.find(' ', start)) != std::string::npos; start = pos + 1)
      fields.push_back(line.substr(start, pos - start));
    fields.push_back(line.substr(start));
    if (fields.size() == 5)
      formulas.push_back(SDescribedFormula{fields[0] == "I", fields[1], fields[2], fields[3], FromHex(fields[4])});
    line.clear();
  }
  pclose(pipe);
  return formulas;
}

}  // namespace

TEST(FormulaDescriptions, EveryFormulaCompilesAndEvaluates) {
  const std::vector<std::string> files = DescriptionFiles();
  ASSERT_GE(files.size(), 12u);
  const std::vector<SDescribedFormula> formulas = ExtractFormulas(files);
  // The descriptions hold about 1500 formulas of both kinds; far fewer means
  // the extraction failed, not that the formulas are fine.
  ASSERT_GT(formulas.size(), 1000u);
  size_t integerCount = 0;
  for (const SDescribedFormula& f : formulas) integerCount += f.m_bInteger ? 1 : 0;
  EXPECT_GT(integerCount, 500u);
  EXPECT_GT(formulas.size() - integerCount, 100u);

  for (const SDescribedFormula& f : formulas) {
    const std::string where = std::filesystem::path(f.m_strFile).filename().string() + ": " +
                              (f.m_bInteger ? "integer " : "float ") + f.m_strNode + "/" + f.m_strElement;
    try {
      const CFormula formula(f.m_strText, f.m_bInteger);
      // Every variable 1: the evaluation may meet a division by zero, never
      // anything else.
      try {
        formula.EvaluateFloat([](size_t) -> int64_t { return 1; }, [](size_t) { return 1.0; });
      } catch (const GenICam_3_0::LogicalErrorException&) {
      }
    } catch (const GenICam_3_0::GenericException& e) {
      ADD_FAILURE() << where << ": " << e.GetDescription();
    }
  }
}
