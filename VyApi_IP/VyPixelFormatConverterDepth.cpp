// Primitives that change depth and channels of whole samples: raw to raw,
// mono to colour, colour to mono, colour to colour. Each reads its images,
// takes the look-up table when the component depths differ (none when they
// are equal, which copies) and runs one kernel.
#include "PixelConversion/ColorToColorConversion.h"
#include "PixelConversion/ColorToMonoConversion.h"
#include "PixelConversion/MonoToColorConversion.h"
#include "PixelConversion/RawMonoConversion.h"
#include "PixelConversion/SharedTableHolder.h"
#include "VyPixelFormatConverter.h"
#include "VyPixelFormatConverterImage.h"

namespace VyApi {

using PixelConversion::CSharedTableHolder;

// ---------------------------------------------------------------- raw to raw

#define VY_RAW_PRIMITIVE(name)                                                                                         \
  VY_PRIMITIVE_HEAD(name)                                                                                        \
    PixelConversion::name(s.Buffer(), s.Pitch(), d.Buffer(), d.Pitch(), s.Width(), s.Height(), s.Depth(), table.Get(), \
                          bReverseY);                                                                                  \
  }
VY_RAW_PRIMITIVE(ConverterRawMono8ToRawMono16)
VY_RAW_PRIMITIVE(ConverterRawMono16ToRawMono16)
VY_RAW_PRIMITIVE(ConverterRawMono16ToRawMono8)
#undef VY_RAW_PRIMITIVE

// ---------------------------------------------------------------- mono to colour

#define VY_MONO_TO_COLOR_PRIMITIVE(name)                                                                       \
  VY_PRIMITIVE_HEAD(name)                                                                                        \
    PixelConversion::name(s.Buffer(), s.Pitch(), d.Buffer(), d.Pitch(), d.Components(), s.Width(), s.Height(), \
                          table.Get(), bReverseY);                                                             \
  }
VY_MONO_TO_COLOR_PRIMITIVE(ConverterMonoB2BGRB_RGBB)
VY_MONO_TO_COLOR_PRIMITIVE(ConverterMonoB2BGRW_RGBW)
VY_MONO_TO_COLOR_PRIMITIVE(ConverterMonoW2BGRW_RGBW)
#undef VY_MONO_TO_COLOR_PRIMITIVE

// ---------------------------------------------------------------- colour to mono

#define VY_COLOR_TO_MONO_PRIMITIVE(name)                                                                         \
  VY_PRIMITIVE_HEAD(name)                                                                                        \
    PixelConversion::name(s.Buffer(), s.Pitch(), s.Components(), s.BGROrder(), d.Buffer(), d.Pitch(), s.Width(), \
                          s.Height(), table.Get(), bReverseY);                                                   \
  }
VY_COLOR_TO_MONO_PRIMITIVE(ConverterBGR8ToMono8)
VY_COLOR_TO_MONO_PRIMITIVE(ConverterBGR16ToMono16)
VY_COLOR_TO_MONO_PRIMITIVE(ConverterBGR16ToMono8)
#undef VY_COLOR_TO_MONO_PRIMITIVE

// ---------------------------------------------------------------- colour to colour

#define VY_COLOR_TO_COLOR_PRIMITIVE(name)                                                                             \
  VY_PRIMITIVE_HEAD(name)                                                                                        \
    PixelConversion::name(s.Buffer(), s.Pitch(), s.Components(), s.BGROrder(), d.Buffer(), d.Pitch(), d.Components(), \
                          d.BGROrder(), s.Width(), s.Height(), table.Get(), bReverseY);                               \
  }
VY_COLOR_TO_COLOR_PRIMITIVE(ConverterBGRx8ToBGRx8)
VY_COLOR_TO_COLOR_PRIMITIVE(ConverterBGRx8ToBGRx16)
VY_COLOR_TO_COLOR_PRIMITIVE(ConverterBGRx16ToBGRx8)
VY_COLOR_TO_COLOR_PRIMITIVE(ConverterBGRxWToBGRxW)
#undef VY_COLOR_TO_COLOR_PRIMITIVE

}  // namespace VyApi
