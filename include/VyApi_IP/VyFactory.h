// The library's front door: every module comes from one of these factories
// and belongs to the caller until its Release().
#ifndef VYAPI_VYFACTORY_H
#define VYAPI_VYFACTORY_H

#include <VyApi_IP/EVyModuleType.h>
#include <VyApi_IP/IVyConverter.h>
#include <VyApi_IP/IVyFiler.h>
#include <VyApi_IP/IVyFilter.h>

namespace VyApi {

/// Makes a filter of the given type.
/// Raises what CheckVyApiInitialized() raises when the kit is not initialised,
/// OutOfRangeException "CreateIVyFilter = %lld must be smaller than Max = 8"
/// for an unknown type, RuntimeException when the type's module is not
/// available in this build, BadAllocException when no memory is left.
IVyFilterReleasable* CreateIVyFilter(EVyFilterType_t eType);

/// Makes a converter; raises as CreateIVyFilter, with "CreateIVyConverter" and 2.
IVyConverterReleasable* CreateIVyConverter(EVyConverterType_t eType);

/// Makes a filer; raises as CreateIVyFilter, with "CreateIVyFiler" and 2.
IVyFilerReleasable* CreateIVyFiler(EVyFilerType_t eType);

/// The static info object of a filter type; makes no module. Raises as
/// CreateIVyFilter (the range message names "CreateIVyFilter" too).
IVyFilterInfo* GetIVyFilterInfo(EVyFilterType_t eType);

}  // namespace VyApi

/// The module handle of the library; 0 on this platform. Raises nothing.
void* GetModuleHandleIP();

#endif
