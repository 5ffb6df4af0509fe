// Packed-format primitives: mono and Bayer bit streams, GVSP pairs, colour
// bit streams and one-word-a-pixel 10-bit colour. The table goes between the two component depths when they differ.
#include "PixelConversion/BitStreamPacking.h"
#include "PixelConversion/ColorBitStreamPacking.h"
#include "PixelConversion/GvspPacking.h"
#include "PixelConversion/Packed10p32.h"
#include "PixelConversion/SharedTableHolder.h"
#include "VyPixelFormatConverter.h"
#include "VyPixelFormatConverterImage.h"

namespace VyApi {

using PixelConversion::CSharedTableHolder;

#define VY_RAW_STREAM(name)                                                                                        \
  VY_PRIMITIVE_HEAD(name)                                                                                          \
  PixelConversion::name(s.Buffer(), s.Pitch(), d.Buffer(), d.Pitch(), s.Width(), s.Height(), s.Depth(), d.Depth(), \
                        table.Get(), bReverseY);                                                                   \
  }
VY_RAW_STREAM(ConverterPackedToUnpacked)
VY_RAW_STREAM(ConverterUnpackedToPacked8)
VY_RAW_STREAM(ConverterGEVPackedToUnpacked)
#undef VY_RAW_STREAM

VY_PRIMITIVE_HEAD(ConverterUnpackedBToGevPacked)
PixelConversion::ConverterUnpackedBToGevPacked(s.Buffer(), s.Pitch(), d.Buffer(), d.Pitch(), s.Width(), s.Height(),
                                               d.Depth(), table.Get(), bReverseY);
}

#define VY_COLOR_STREAM_READER(name)                                                                           \
  VY_PRIMITIVE_HEAD(name)                                                                                      \
  PixelConversion::name(s.Buffer(), s.Pitch(), s.Depth(), s.BGROrder(), d.Buffer(), d.Pitch(), d.Components(), \
                        d.BGROrder(), s.Width(), s.Height(), table.Get(), bReverseY);                          \
  }
#define VY_COLOR_STREAM_WRITER(name)                                                                           \
  VY_PRIMITIVE_HEAD(name)                                                                                      \
  PixelConversion::name(s.Buffer(), s.Pitch(), s.Components(), s.BGROrder(), d.Buffer(), d.Pitch(), d.Depth(), \
                        d.BGROrder(), s.Width(), s.Height(), table.Get(), bReverseY);                          \
  }
VY_COLOR_STREAM_READER(ConverterBGRpxToBGRX_16_16)
VY_COLOR_STREAM_READER(ConverterBGRpxToBGRX_16_8)
VY_COLOR_STREAM_WRITER(ConverterBGRxToBGRXp_16_16)
VY_COLOR_STREAM_WRITER(ConverterBGRxToBGRXp_8_16)
#undef VY_COLOR_STREAM_WRITER
#undef VY_COLOR_STREAM_READER

#define VY_10P32_READER(name)                                                                                     \
  VY_PRIMITIVE_HEAD(name)                                                                                         \
  PixelConversion::name(s.Buffer(), s.Pitch(), s.BGROrder(), d.Buffer(), d.Pitch(), d.Components(), d.BGROrder(), \
                        s.Width(), s.Height(), table.Get(), bReverseY);                                           \
  }
#define VY_10P32_WRITER(name)                                                                                     \
  VY_PRIMITIVE_HEAD(name)                                                                                         \
  PixelConversion::name(s.Buffer(), s.Pitch(), s.Components(), s.BGROrder(), d.Buffer(), d.Pitch(), d.BGROrder(), \
                        s.Width(), s.Height(), table.Get(), bReverseY);                                           \
  }
VY_10P32_READER(ConverterBGR10pToBGRx16)
VY_10P32_READER(ConverterBGR10p32ToBGRx8)
VY_10P32_WRITER(ConverterBGRx16ToBGR10p)
VY_10P32_WRITER(ConverterBGRx8ToBGR10p)
#undef VY_10P32_WRITER
#undef VY_10P32_READER

}  // namespace VyApi
