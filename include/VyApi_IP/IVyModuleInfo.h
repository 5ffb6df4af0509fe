// Info objects: what a module type is and which formats it takes, answered
// without an instance of the module.
#ifndef VYAPI_IVYMODULEINFO_H
#define VYAPI_IVYMODULEINFO_H

#include <Base/GCString.h>
#include <VyApi_IP/EVyModuleType.h>
#include <VyApi_IP/EVyPixelFormatNamingConvention.h>

namespace VyApi {

class IVyFilterInfo {
public:
  virtual EVyFilterType_t GetFilterType() const = 0;
  virtual GenICam_3_0::gcstring GetFilterName() const = 0;
  /// True when the filter's dispatch table has a row for the format. Raises nothing.
  virtual bool IsSupported(EVyPixelFormatNamingConvention_t eFormat) const = 0;

protected:
  virtual ~IVyFilterInfo() = default;
};

class IVyConverterInfo {
public:
  virtual EVyConverterType_t GetConverterType() const = 0;
  virtual GenICam_3_0::gcstring GetConverterName() const = 0;
  /// True when the converter takes the format as a source. Raises nothing.
  virtual bool IsSupported(EVyPixelFormatNamingConvention_t eFormat) const = 0;

protected:
  virtual ~IVyConverterInfo() = default;
};

class IVyFilerInfo {
public:
  virtual EVyFilerType_t GetFilerType() const = 0;
  virtual GenICam_3_0::gcstring GetFilerName() const = 0;

protected:
  virtual ~IVyFilerInfo() = default;
};

}  // namespace VyApi

#endif
