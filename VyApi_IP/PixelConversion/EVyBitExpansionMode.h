// How a look-up table widens samples to a deeper component depth. The value
// is stored as a raw 32-bit number by the converter's register, so the
// enumeration has a fixed underlying type.
#ifndef VYAPI_EVYBITEXPANSIONMODE_H
#define VYAPI_EVYBITEXPANSIONMODE_H

#include <cstdint>

namespace VyApi {

enum EVyBitExpansionMode_t : uint32_t {
  VyBitExpansionMode_Gamma = 0,         ///< stretch to the full range, with the gamma curve
  VyBitExpansionMode_Fixed = 1,         ///< keep the value; the upper bits stay 0
  VyBitExpansionMode_LeftShiftBy0 = 2,  ///< shift up, fill the new low bits with 0
  VyBitExpansionMode_LeftShiftBy1 = 3   ///< shift up, fill the new low bits with 1
};

}  // namespace VyApi

#endif
