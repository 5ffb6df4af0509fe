#include "Library.h"

#include <cstdio>

#include "CommandLine.h"

using namespace VyApi;

namespace VyTools {

namespace {

struct SModuleName {
  const char* szName;
  int nKind;  // 0 filter, 1 converter, 2 filer
  int nType;
};

const SModuleName c_Modules[] = {
    {"gamma", 0, VyFilterType_GammaCorrection},
    {"pixel-format", 1, VyConverterType_PixelFormat},
    {"reverse", 1, VyConverterType_Reverse},
    {"still-image", 2, VyFilerType_StillImage},
};

struct SFileFormatName {
  const char* szName;
  EVyStillImageFileFormat_t eFormat;
};

const SFileFormatName c_FileFormats[] = {
    {"raw", VyStillImageFileFormat_Raw}, {"bmp", VyStillImageFileFormat_BMP}, {"jpeg", VyStillImageFileFormat_JPEG},
    {"jpg", VyStillImageFileFormat_JPEG}, {"tiff", VyStillImageFileFormat_TIFF}, {"tif", VyStillImageFileFormat_TIFF},
    {"png", VyStillImageFileFormat_PNG}, {"csv", VyStillImageFileFormat_CSV},
};

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

}  // namespace

CModule::CModule(const std::string& name) {
  for (const SModuleName& m : c_Modules) {
    if (name != m.szName) continue;
    if (m.nKind == 0) m_pFilter = CreateIVyFilter(static_cast<EVyFilterType_t>(m.nType));
    if (m.nKind == 1) m_pConverter = CreateIVyConverter(static_cast<EVyConverterType_t>(m.nType));
    if (m.nKind == 2) m_pFiler = CreateIVyFiler(static_cast<EVyFilerType_t>(m.nType));
    return;
  }
  std::string known;
  for (const std::string& n : Names()) known += (known.empty() ? "" : ", ") + n;
  throw UsageError("unknown module '" + name + "' (modules: " + known + ")");
}

CModule::~CModule() {
  if (m_pFilter) m_pFilter->Release();
  if (m_pConverter) m_pConverter->Release();
  if (m_pFiler) m_pFiler->Release();
}

GenApi::INodeMap* CModule::NodeMap() {
  if (m_pFilter) return m_pFilter->GetINodeMap();
  if (m_pConverter) return m_pConverter->GetINodeMap();
  return m_pFiler->GetINodeMap();
}

std::vector<std::string> CModule::Names() {
  std::vector<std::string> names;
  for (const SModuleName& m : c_Modules) names.push_back(m.szName);
  return names;
}

std::vector<std::pair<std::string, EVyPixelFormatNamingConvention_t>> PixelFormats() {
  // The converter's own enumeration is the list of every format it knows.
  static const auto formats = [] {
    std::vector<std::pair<std::string, EVyPixelFormatNamingConvention_t>> list;
    CModule converter("pixel-format");
    GenApi::CEnumerationPtr e = converter.NodeMap()->GetNode("DestinationPixelFormat");
    GenApi::NodeList_t entries;
    e->GetEntries(entries);
    for (GenApi::INode* pNode : entries) {
      GenApi::CEnumEntryPtr entry(pNode);
      list.emplace_back(entry->GetSymbolic().c_str(),
                        static_cast<EVyPixelFormatNamingConvention_t>(entry->GetValue()));
    }
    return list;
  }();
  return formats;
}

EVyPixelFormatNamingConvention_t PixelFormatByName(const std::string& name) {
  for (const auto& f : PixelFormats())
    if (f.first == name) return f.second;
  throw UsageError("unknown pixel format '" + name + "' (see 'vyip formats')");
}

std::string PixelFormatName(EVyPixelFormatNamingConvention_t eFormat) {
  if (IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(eFormat)) return pInfo->GetName().c_str();
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(eFormat));
  return text;
}

EVyStillImageFileFormat_t FileFormatByName(const std::string& name) {
  const std::string lower = Lower(name);
  for (const SFileFormatName& f : c_FileFormats)
    if (lower == f.szName) return f.eFormat;
  throw UsageError("unknown file format '" + name + "' (raw, bmp, jpeg, tiff, png, csv)");
}

EVyStillImageFileFormat_t FileFormatOfPath(const std::string& path) {
  const size_t dot = path.find_last_of('.');
  const size_t slash = path.find_last_of('/');
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash))
    throw UsageError("'" + path + "' has no file extension; give --file-format");
  return FileFormatByName(path.substr(dot + 1));
}

const char* FileFormatName(EVyStillImageFileFormat_t eFormat) {
  for (const SFileFormatName& f : c_FileFormats)
    if (f.eFormat == eFormat) return f.szName;
  return "?";
}

void ApplySetting(GenApi::INodeMap& map, const std::string& setting) {
  const size_t eq = setting.find('=');
  if (eq == std::string::npos || eq == 0) throw UsageError("a setting reads Name=Value, not '" + setting + "'");
  const std::string name = setting.substr(0, eq);
  GenApi::CValuePtr value = map.GetNode(name.c_str());
  if (!value.IsValid()) throw UsageError("the module has no feature '" + name + "'");
  value->FromString(setting.substr(eq + 1).c_str());
}

}  // namespace VyTools
