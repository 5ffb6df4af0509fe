// Small enumerations of the image model: the mosaic seen from a pixel, the
// components a pixel can be made of, and the fill of a newly created buffer.
#ifndef VYAPI_VYPIXELTYPES_H
#define VYAPI_VYPIXELTYPES_H

#include <cstdint>

namespace VyApi {

/// The colour filter seen from one pixel.
enum EVyPixelColorFilter_t : uint32_t {
  VyPixelColorFilter_None = 0,     ///< no mosaic and not monochrome
  VyPixelColorFilter_Mono = 1,     ///< monochrome
  VyPixelColorFilter_BayerRG = 2,  ///< red at (0, 0)
  VyPixelColorFilter_BayerGR = 3,  ///< green at (0, 0), red to its right
  VyPixelColorFilter_BayerGB = 4,  ///< green at (0, 0), blue to its right
  VyPixelColorFilter_BayerBG = 5,  ///< blue at (0, 0)
};

/// Composes a component code: the kind in the top byte, the bit count in the next.
#define VY_PIXEL_COMPONENT(kind, bits) ((static_cast<uint32_t>(kind) << 24) | (static_cast<uint32_t>(bits) << 16))

/// One colour component of a given depth. Kinds: Mono 0x01, R 0x02, G 0x03,
/// B 0x04, Gr 0x05, Gb 0x06, Y 0x07, Cb 0x08, Cr 0x09, U 0x0A, V 0x0B.
enum EVyPixelComponent_t : uint32_t {
  VyPixelComponent_Unknown = 0,
  VyPixelComponent_Mono1 = VY_PIXEL_COMPONENT(0x01, 1),
  VyPixelComponent_Mono2 = VY_PIXEL_COMPONENT(0x01, 2),
  VyPixelComponent_Mono4 = VY_PIXEL_COMPONENT(0x01, 4),
  VyPixelComponent_Mono8 = VY_PIXEL_COMPONENT(0x01, 8),
  VyPixelComponent_Mono10 = VY_PIXEL_COMPONENT(0x01, 10),
  VyPixelComponent_Mono12 = VY_PIXEL_COMPONENT(0x01, 12),
  VyPixelComponent_Mono14 = VY_PIXEL_COMPONENT(0x01, 14),
  VyPixelComponent_Mono16 = VY_PIXEL_COMPONENT(0x01, 16),
#define VY_PIXEL_COMPONENT_DEPTHS(name, kind)                  \
  VyPixelComponent_##name##4 = VY_PIXEL_COMPONENT(kind, 4),    \
  VyPixelComponent_##name##8 = VY_PIXEL_COMPONENT(kind, 8),    \
  VyPixelComponent_##name##10 = VY_PIXEL_COMPONENT(kind, 10),  \
  VyPixelComponent_##name##12 = VY_PIXEL_COMPONENT(kind, 12),  \
  VyPixelComponent_##name##14 = VY_PIXEL_COMPONENT(kind, 14),  \
  VyPixelComponent_##name##16 = VY_PIXEL_COMPONENT(kind, 16)
  VY_PIXEL_COMPONENT_DEPTHS(R, 0x02),
  VY_PIXEL_COMPONENT_DEPTHS(G, 0x03),
  VY_PIXEL_COMPONENT_DEPTHS(B, 0x04),
  VY_PIXEL_COMPONENT_DEPTHS(Gr, 0x05),
  VY_PIXEL_COMPONENT_DEPTHS(Gb, 0x06),
#undef VY_PIXEL_COMPONENT_DEPTHS
  VyPixelComponent_Y8 = VY_PIXEL_COMPONENT(0x07, 8),
  VyPixelComponent_Cb8 = VY_PIXEL_COMPONENT(0x08, 8),
  VyPixelComponent_Cr8 = VY_PIXEL_COMPONENT(0x09, 8),
  VyPixelComponent_U8 = VY_PIXEL_COMPONENT(0x0A, 8),
  VyPixelComponent_V8 = VY_PIXEL_COMPONENT(0x0B, 8),
};

/// How CreateBuffer fills new memory.
enum _EVyMemoryInitialization_t : uint32_t {
  VyMemoryInitialization_None = 0,   ///< the memory stays as it came
  VyMemoryInitialization_Zero = 1,   ///< every byte 0
  VyMemoryInitialization_Full = 2,   ///< every byte 255
  VyMemoryInitialization_Chart = 3,  ///< a test chart, or every byte 0 if the format has none
};

}  // namespace VyApi

#endif
