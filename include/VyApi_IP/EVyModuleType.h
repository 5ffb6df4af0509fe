// Module type numbers of the three factories.
#ifndef VYAPI_EVYMODULETYPE_H
#define VYAPI_EVYMODULETYPE_H

#include <cstdint>

namespace VyApi {

/// Filter types of CreateIVyFilter.
enum EVyFilterType_t : int32_t {
  VyFilterType_GammaCorrection = 0,
  VyFilterType_ColorTransformation = 1,
  VyFilterType_EdgeEnhancement = 2,
  VyFilterType_BalanceRatio = 3,
  VyFilterType_NoiseReduction = 4,
  VyFilterType_FlatFieldCorrection = 5,
  VyFilterType_ChromaSuppression = 6,
  VyFilterType_SNMeasurement = 7,
  VyFilterType_Count = 8
};

/// Converter types of CreateIVyConverter.
enum EVyConverterType_t : int32_t {
  VyConverterType_PixelFormat = 0,
  VyConverterType_Reverse = 1,
  VyConverterType_Count = 2
};

/// Filer types of CreateIVyFiler.
enum EVyFilerType_t : int32_t {
  VyFilerType_StillImage = 0,
  VyFilerType_AVI = 1,
  VyFilerType_Count = 2
};

}  // namespace VyApi

#endif
