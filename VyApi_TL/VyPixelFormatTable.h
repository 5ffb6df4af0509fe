// The one constant table of the pixel-format service, written in the grouped
// form of the families (mono, Bayer in its four phases, packed, colour,
// planar, YCbCr). Everything a row does not state is derived from its code
// and its family by CVyPixelFormatInfo.
#ifndef VYAPI_TL_VYPIXELFORMATTABLE_H
#define VYAPI_TL_VYPIXELFORMATTABLE_H

#include <cstddef>
#include <cstdint>

#include <VyApi_IP/EVyPixelFormatNamingConvention.h>

namespace VyApi {

enum EVyFormatKind_t : uint8_t {
  VyFormatKind_Mono,
  VyFormatKind_Bayer,
  VyFormatKind_Color,
  VyFormatKind_Planar,
  VyFormatKind_YCbCr,
};

/// How the samples sit in memory.
enum EVyFormatPacking_t : uint8_t {
  VyFormatPacking_None,    ///< one 8- or 16-bit cell per component
  VyFormatPacking_P,       ///< bit stream, least significant bit first
  VyFormatPacking_GVSP,    ///< two 12-bit pixels in three bytes
  VyFormatPacking_Word32,  ///< three 10-bit components in one 32-bit word
};

/// Red position of a Bayer mosaic, as (x parity) | (y parity) << 1.
enum EVyBayerPhase_t : uint8_t {
  VyBayerPhase_RG = 0,
  VyBayerPhase_GR = 1,
  VyBayerPhase_GB = 2,
  VyBayerPhase_BG = 3,
};

struct SVyPixelFormatRow {
  EVyPixelFormatNamingConvention_t eCode;
  const char* pName;
  EVyFormatKind_t eKind;
  uint8_t nDepth;            ///< significant bits of one component
  EVyFormatPacking_t ePacking;
  uint8_t nComponents;       ///< colour: 3, or 4 with alpha; YCbCr: pixels per chroma group; else 1
  bool bBGR;                 ///< blue first (colour), or Cb/U first (YCbCr)
  uint8_t nBayerPhase;       ///< EVyBayerPhase_t for Bayer rows
  const char* pLayout;       ///< YCbCr byte order of one group: Y, b (Cb or U), r (Cr or V)
};

#define VY_STR2(x) #x
#define VY_STR(x) VY_STR2(x)

#define VY_ROW(name, kind, depth, packing, comps, bgr) \
  {VyPixelFormat_##name, #name, VyFormatKind_##kind, depth, VyFormatPacking_##packing, comps, bgr, 0, nullptr}
#define VY_MONO(name, depth, packing) VY_ROW(name, Mono, depth, packing, 1, true)
#define VY_BAYER_PHASE(pre, phase, post, depth, packing)                                                   \
  {VyPixelFormat_##pre##phase##post, VY_STR(pre) #phase VY_STR(post), VyFormatKind_Bayer, depth,     \
   VyFormatPacking_##packing, 1, true, VyBayerPhase_##phase, nullptr}
// The four phases of one Bayer format stand together, in this order, so that
// a row finds its siblings by its phase.
#define VY_BAYER(pre, post, depth, packing)                                                           \
  VY_BAYER_PHASE(pre, RG, post, depth, packing), VY_BAYER_PHASE(pre, GR, post, depth, packing),        \
      VY_BAYER_PHASE(pre, GB, post, depth, packing), VY_BAYER_PHASE(pre, BG, post, depth, packing)
#define VY_COLOR(name, depth, packing, comps, bgr) VY_ROW(name, Color, depth, packing, comps, bgr)
#define VY_BGR_AND_BGRA(depth) VY_COLOR(BGR##depth, depth, None, 3, true), VY_COLOR(BGRa##depth, depth, None, 4, true)
#define VY_PLANAR(name, depth) VY_ROW(name, Planar, depth, None, 3, false)
#define VY_YCBCR(name, group, layout) \
  {VyPixelFormat_##name, #name, VyFormatKind_YCbCr, 8, VyFormatPacking_None, group, layout[0] != 'Y', 0, layout}
#define VY_YCBCR_444(name, cbFirst) VY_YCBCR(name, 1, (cbFirst ? "bYr" : "Ybr"))
#define VY_YCBCR_422(name, cbFirst) VY_YCBCR(name, 2, (cbFirst ? "bYrY" : "YbYr"))
#define VY_YCBCR_411(name, cbFirst) VY_YCBCR(name, 4, (cbFirst ? "bYYrYY" : "YYbYYr"))

constexpr SVyPixelFormatRow g_cPixelFormatRows[] = {
    // Mono
    VY_MONO(Mono1p, 1, P), VY_MONO(Mono2p, 2, P), VY_MONO(Mono4p, 4, P), VY_MONO(Mono8, 8, None),
    VY_MONO(Mono10, 10, None), VY_MONO(Mono10p, 10, P), VY_MONO(Mono12, 12, None), VY_MONO(Mono12p, 12, P),
    VY_MONO(Mono14, 14, None), VY_MONO(Mono14p, 14, P), VY_MONO(Mono16, 16, None),
    VY_MONO(GVSP_Mono10Packed, 10, GVSP), VY_MONO(GVSP_Mono12Packed, 12, GVSP),
    // Bayer, four phases each
    VY_BAYER(Bayer, 4p, 4, P), VY_BAYER(Bayer, 8, 8, None), VY_BAYER(Bayer, 10, 10, None),
    VY_BAYER(Bayer, 10p, 10, P), VY_BAYER(Bayer, 12, 12, None), VY_BAYER(Bayer, 12p, 12, P),
    VY_BAYER(Bayer, 14, 14, None), VY_BAYER(Bayer, 14p, 14, P), VY_BAYER(Bayer, 16, 16, None),
    VY_BAYER(GVSP_Bayer, 10Packed, 10, GVSP), VY_BAYER(GVSP_Bayer, 12Packed, 12, GVSP),
    // Colour, one cell per component
    VY_COLOR(RGB8, 8, None, 3, false), VY_COLOR(BGR8, 8, None, 3, true), VY_COLOR(RGBa8, 8, None, 4, false),
    VY_COLOR(BGRa8, 8, None, 4, true), VY_BGR_AND_BGRA(10), VY_BGR_AND_BGRA(12), VY_BGR_AND_BGRA(14),
    VY_BGR_AND_BGRA(16), VY_COLOR(RGB16, 16, None, 3, false),
    // Colour, packed
    VY_COLOR(RGB10p32, 10, Word32, 3, false), VY_COLOR(CBGR10p32, 10, Word32, 3, true),
    VY_COLOR(BGR10p, 10, P, 3, true), VY_COLOR(RGB10p, 10, P, 3, false), VY_COLOR(BGR12p, 12, P, 3, true),
    VY_COLOR(RGB12p, 12, P, 3, false),
    // Planar, red plane first
    VY_PLANAR(RGB8_Planar, 8), VY_PLANAR(RGB10_Planar, 10), VY_PLANAR(RGB12_Planar, 12),
    VY_PLANAR(RGB16_Planar, 16),
    // YCbCr and YUV, by subsampling
    VY_YCBCR_444(YCbCr8, false), VY_YCBCR_444(YCbCr8_CbYCr, true), VY_YCBCR_444(YCbCr601_8_CbYCr, true),
    VY_YCBCR_444(YCbCr709_8_CbYCr, true), VY_YCBCR_444(YUV8_UYV, true),
    VY_YCBCR_422(YCbCr422_8, false), VY_YCBCR_422(YCbCr422_8_CbYCrY, true),
    VY_YCBCR_422(YCbCr601_422_8, false), VY_YCBCR_422(YCbCr601_422_8_CbYCrY, true),
    VY_YCBCR_422(YCbCr709_422_8, false), VY_YCBCR_422(YCbCr709_422_8_CbYCrY, true),
    VY_YCBCR_422(YUV422_8, false), VY_YCBCR_422(YUV422_8_UYVY, true),
    VY_YCBCR_411(YCbCr411_8, false), VY_YCBCR_411(YCbCr411_8_CbYYCrYY, true),
    VY_YCBCR_411(YCbCr601_411_8_CbYYCrYY, true), VY_YCBCR_411(YCbCr709_411_8_CbYYCrYY, true),
    VY_YCBCR_411(YUV411_8_UYYVYY, true),
};

#undef VY_YCBCR_411
#undef VY_YCBCR_422
#undef VY_YCBCR_444
#undef VY_YCBCR
#undef VY_PLANAR
#undef VY_BGR_AND_BGRA
#undef VY_COLOR
#undef VY_BAYER
#undef VY_BAYER_PHASE
#undef VY_MONO
#undef VY_ROW
#undef VY_STR
#undef VY_STR2

constexpr size_t g_nPixelFormatRowCount = sizeof(g_cPixelFormatRows) / sizeof(g_cPixelFormatRows[0]);
static_assert(g_nPixelFormatRowCount == VyPixelFormatCount, "one row per format of the converter");

}  // namespace VyApi

#endif
