// Planar primitives: mono to planar, planar to planar, and planar to and from
// interleaved colour. The planar side's planes lie one plane pitch apart.
#include "PixelConversion/PlanarConversion.h"
#include "PixelConversion/SharedTableHolder.h"
#include "VyPixelFormatConverter.h"
#include "VyPixelFormatConverterImage.h"

namespace VyApi {

using PixelConversion::CSharedTableHolder;

#define VY_MONO_TO_PLANAR(name)                                                                              \
  VY_PRIMITIVE_HEAD(name)                                                                                    \
  PixelConversion::name(s.Buffer(), s.Pitch(), d.Buffer(), d.Pitch(), d.PlanePitch(), s.Width(), s.Height(), \
                        s.Depth(), table.Get(), bReverseY);                                                  \
  }
#define VY_PLANAR_TO_PLANAR(name)                                                                                \
  VY_PRIMITIVE_HEAD(name)                                                                                        \
  PixelConversion::name(s.Buffer(), s.Pitch(), s.PlanePitch(), d.Buffer(), d.Pitch(), d.PlanePitch(), s.Width(), \
                        s.Height(), s.Depth(), table.Get(), bReverseY);                                          \
  }
#define VY_NONPLANAR_TO_PLANAR(name)                                                                                \
  VY_PRIMITIVE_HEAD(name)                                                                                           \
  PixelConversion::name(s.Buffer(), s.Pitch(), s.Components(), s.BGROrder(), d.Buffer(), d.Pitch(), d.PlanePitch(), \
                        s.Width(), s.Height(), s.Depth(), table.Get(), bReverseY);                                  \
  }
#define VY_PLANAR_TO_NONPLANAR(name)                                                                                \
  VY_PRIMITIVE_HEAD(name)                                                                                           \
  PixelConversion::name(s.Buffer(), s.Pitch(), s.PlanePitch(), d.Buffer(), d.Pitch(), d.Components(), d.BGROrder(), \
                        s.Width(), s.Height(), s.Depth(), table.Get(), bReverseY);                                  \
  }

VY_MONO_TO_PLANAR(ConverterMonoToPlanar_8_8)
VY_MONO_TO_PLANAR(ConverterMonoToPlanar_8_16)
VY_MONO_TO_PLANAR(ConverterMonoToPlanar_16_8)
VY_MONO_TO_PLANAR(ConverterMonoToPlanar_16_16)
VY_PLANAR_TO_PLANAR(ConverterPlanarToPlanar_8_16)
VY_PLANAR_TO_PLANAR(ConverterPlanarToPlanar_16_8)
VY_PLANAR_TO_PLANAR(ConverterPlanarToPlanar_16_16)
VY_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_8_8)
VY_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_8_16)
VY_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_16_8)
VY_NONPLANAR_TO_PLANAR(ConverterNonPlanarToPlanar_16_16)
VY_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_8_8)
VY_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_8_16)
VY_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_16_8)
VY_PLANAR_TO_NONPLANAR(ConverterPlanarToNonPlanar_16_16)

#undef VY_PLANAR_TO_NONPLANAR
#undef VY_NONPLANAR_TO_PLANAR
#undef VY_PLANAR_TO_PLANAR
#undef VY_MONO_TO_PLANAR

}  // namespace VyApi
