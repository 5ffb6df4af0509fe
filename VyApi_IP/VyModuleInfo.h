// Info objects of the module types. A filter or filer class T provides
//   static constexpr EVyFilterType_t c_eModuleType;   (or EVyFilerType_t)
//   static constexpr const char* c_szModuleName;
//   static bool IsSupported(EVyPixelFormatNamingConvention_t);   (filters)
// and a converter class provides the same constants and a member
//   bool IsSupportedFormat(EVyPixelFormatNamingConvention_t) const.
#ifndef VYAPI_IP_VYMODULEINFO_H
#define VYAPI_IP_VYMODULEINFO_H

#include <VyApi_IP/IVyModuleInfo.h>

namespace VyApi {

template <typename T>
class CFilterInfo : public IVyFilterInfo {
public:
  EVyFilterType_t GetFilterType() const override { return T::c_eModuleType; }
  GenICam_3_0::gcstring GetFilterName() const override { return T::c_szModuleName; }
  bool IsSupported(EVyPixelFormatNamingConvention_t eFormat) const override { return T::IsSupported(eFormat); }
};

template <typename T>
class CConverterInfo : public IVyConverterInfo {
public:
  explicit CConverterInfo(const T* pModule) : m_pModule(pModule) {}
  EVyConverterType_t GetConverterType() const override { return T::c_eModuleType; }
  GenICam_3_0::gcstring GetConverterName() const override { return T::c_szModuleName; }
  bool IsSupported(EVyPixelFormatNamingConvention_t eFormat) const override {
    return m_pModule->IsSupportedFormat(eFormat);
  }

private:
  const T* m_pModule;
};

template <typename T>
class CFilerInfo : public IVyFilerInfo {
public:
  EVyFilerType_t GetFilerType() const override { return T::c_eModuleType; }
  GenICam_3_0::gcstring GetFilerName() const override { return T::c_szModuleName; }
};

}  // namespace VyApi

#endif
