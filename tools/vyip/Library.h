// What vyip knows of the library: the modules by name, the pixel formats by
// name, the still-image file formats by name or file extension, and node-map
// settings given as Name=Value.
#ifndef VYIP_LIBRARY_H
#define VYIP_LIBRARY_H

#include <string>
#include <utility>
#include <vector>

#include <VyApi_IP/IVyStillImageFiler.h>
#include <VyApi_IP/VyApi_IP.h>

namespace VyTools {

/// A module made by the factories, released at scope end.
class CModule {
public:
  /// name: gamma, pixel-format, reverse, still-image. Raises UsageError for an
  /// unknown name and what the factory raises.
  explicit CModule(const std::string& name);
  CModule(const CModule&) = delete;
  CModule& operator=(const CModule&) = delete;
  ~CModule();
  GenApi::INodeMap* NodeMap();
  static std::vector<std::string> Names();

private:
  VyApi::IVyFilterReleasable* m_pFilter = nullptr;
  VyApi::IVyConverterReleasable* m_pConverter = nullptr;
  VyApi::IVyFilerReleasable* m_pFiler = nullptr;
};

/// Every pixel format the converter knows, as (name, code), in the order of
/// its DestinationPixelFormat enumeration.
std::vector<std::pair<std::string, VyApi::EVyPixelFormatNamingConvention_t>> PixelFormats();
/// The code of a format name (case-sensitive, as "BGR8"). Raises UsageError.
VyApi::EVyPixelFormatNamingConvention_t PixelFormatByName(const std::string& name);
/// The name of a code, or the code in hex.
std::string PixelFormatName(VyApi::EVyPixelFormatNamingConvention_t eFormat);

/// "raw", "bmp", "jpeg"/"jpg", "tiff"/"tif", "png", "csv". Raises UsageError.
VyApi::EVyStillImageFileFormat_t FileFormatByName(const std::string& name);
/// From the file name's extension. Raises UsageError when it names none.
VyApi::EVyStillImageFileFormat_t FileFormatOfPath(const std::string& path);
const char* FileFormatName(VyApi::EVyStillImageFileFormat_t eFormat);

/// Applies "Name=Value" to the node map through the feature's FromString.
/// Raises UsageError for a malformed setting or an unknown feature, and what
/// the node raises for a bad value.
void ApplySetting(GenApi::INodeMap& map, const std::string& setting);

}  // namespace VyTools

#endif
