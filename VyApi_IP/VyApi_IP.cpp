// The factories of the library.
#include <VyApi_IP/VyFactory.h>

#include <new>

#include <VyApi_IP/VyApiInit.h>
#include <VyApi_IP/VyReporter.h>

#include "VyGammaCorrectionFilter.h"
#include "VyPixelFormatConverter.h"
#include "VyStillImageWriter.h"
#include "VyReverseConverter.h"

void* m_hModule = nullptr;

void* GetModuleHandleIP() { return m_hModule; }

namespace VyApi {

namespace {

template <typename T, typename TModule>
T* CreateIVyFilterInside() {
  return static_cast<T*>(new TModule());
}

void CheckType(const char* szFunction, long long nType, long long nCount) {
  if (nType < 0 || nType >= nCount)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be smaller than Max = %lld", szFunction, nType, nCount);
}

[[noreturn]] void NotAvailable(const char* szKind, long long nType) {
  throw VY_RUNTIME_EXCEPTION("The %s module of type %lld is not available in this version of the library", szKind,
                             nType);
}

}  // namespace

IVyFilterReleasable* CreateIVyFilter(EVyFilterType_t eType) {
  CheckVyApiInitialized();
  CheckType("CreateIVyFilter", eType, VyFilterType_Count);
  try {
    switch (eType) {
      case VyFilterType_GammaCorrection:
        return CreateIVyFilterInside<IVyFilterReleasable, CVyGammaCorrectionFilter>();
      default:
        NotAvailable("filter", eType);
    }
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
}

IVyConverterReleasable* CreateIVyConverter(EVyConverterType_t eType) {
  CheckVyApiInitialized();
  CheckType("CreateIVyConverter", eType, VyConverterType_Count);
  try {
    switch (eType) {
      case VyConverterType_PixelFormat:
        return static_cast<IVyConverterReleasable*>(new CVyPixelFormatConverter());
      case VyConverterType_Reverse:
        return static_cast<IVyConverterReleasable*>(new CVyReverseConverter());
      default:
        NotAvailable("converter", eType);
    }
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
}

IVyFilerReleasable* CreateIVyFiler(EVyFilerType_t eType) {
  CheckVyApiInitialized();
  CheckType("CreateIVyFiler", eType, VyFilerType_Count);
  try {
    switch (eType) {
      case VyFilerType_StillImage:
        return static_cast<IVyFilerReleasable*>(new CVyStillImageWriter());
      default:
        NotAvailable("filer", eType);
    }
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
}

IVyFilterInfo* GetIVyFilterInfo(EVyFilterType_t eType) {
  CheckVyApiInitialized();
  // The range message names the filter factory, as the filter factory does.
  CheckType("CreateIVyFilter", eType, VyFilterType_Count);
  switch (eType) {
    case VyFilterType_GammaCorrection:
      return CVyGammaCorrectionFilter::GetFilterInfo();
    default:
      NotAvailable("filter", eType);
  }
}

}  // namespace VyApi
