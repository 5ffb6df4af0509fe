// The converter's dispatch table, written down as groups of (function, source
// formats, destination formats, pairing) and expanded into rows when the
// library is loaded. The map takes the first row of a key.
#include <initializer_list>

#include "VyPixelFormatConverter.h"

namespace VyApi {

namespace {

using C = CVyPixelFormatConverter;
using Fmt = EVyPixelFormatNamingConvention_t;

enum EPairing_t {
  Pairing_Cross,              // every source with every destination
  Pairing_SamePhase,          // Bayer lists: each source with the destinations of its own phase
  Pairing_AnyOther,           // one list: every member with every other member
  Pairing_AnyOtherSamePhase,  // one Bayer list: every member with the others of its phase
};

struct SGroup {
  C::PfnConverter pfn;
  const char* szName;
  std::initializer_list<Fmt> src;
  std::initializer_list<Fmt> dst;
  EPairing_t ePairing;
};

// A Bayer list always names the four phases in this order, so that a format's
// phase is its position modulo 4 in any list made of such quadruples.
#define VY_BAYER(s) \
  VyPixelFormat_BayerGR##s, VyPixelFormat_BayerRG##s, VyPixelFormat_BayerGB##s, VyPixelFormat_BayerBG##s
#define VY_GVSP_BAYER(d)                                                                                               \
  VyPixelFormat_GVSP_BayerGR##d##Packed, VyPixelFormat_GVSP_BayerRG##d##Packed, VyPixelFormat_GVSP_BayerGB##d##Packed, \
      VyPixelFormat_GVSP_BayerBG##d##Packed
#define VY_BGRX8 VyPixelFormat_BGR8, VyPixelFormat_BGRa8, VyPixelFormat_RGB8, VyPixelFormat_RGBa8
#define VY_BGRW                                                                                             \
  VyPixelFormat_BGR10, VyPixelFormat_BGR12, VyPixelFormat_BGR14, VyPixelFormat_BGR16, VyPixelFormat_BGRa10, \
      VyPixelFormat_BGRa12, VyPixelFormat_BGRa14, VyPixelFormat_BGRa16, VyPixelFormat_RGB16
#define VY_PLANAR16 VyPixelFormat_RGB10_Planar, VyPixelFormat_RGB12_Planar, VyPixelFormat_RGB16_Planar
#define VY_PLANAR VyPixelFormat_RGB8_Planar, VY_PLANAR16
#define VY_MONOW VyPixelFormat_Mono10, VyPixelFormat_Mono12, VyPixelFormat_Mono14, VyPixelFormat_Mono16
#define VY_YUV                                                                                                       \
  VyPixelFormat_YCbCr8, VyPixelFormat_YCbCr8_CbYCr, VyPixelFormat_YCbCr411_8, VyPixelFormat_YCbCr411_8_CbYYCrYY,     \
      VyPixelFormat_YCbCr422_8, VyPixelFormat_YCbCr422_8_CbYCrY, VyPixelFormat_YCbCr601_411_8_CbYYCrYY,              \
      VyPixelFormat_YCbCr601_422_8, VyPixelFormat_YCbCr601_422_8_CbYCrY, VyPixelFormat_YCbCr601_8_CbYCr,             \
      VyPixelFormat_YCbCr709_411_8_CbYYCrYY, VyPixelFormat_YCbCr709_422_8, VyPixelFormat_YCbCr709_422_8_CbYCrY,      \
      VyPixelFormat_YCbCr709_8_CbYCr, VyPixelFormat_YUV8_UYV, VyPixelFormat_YUV411_8_UYYVYY, VyPixelFormat_YUV422_8, \
      VyPixelFormat_YUV422_8_UYVY
// The colour targets that 8-bit raw and YCbCr sources reach through BGRa of their depth.
#define VY_SAMEBIT_TARGETS(...)                                                                                        \
  __VA_ARGS__, VyPixelFormat_CBGR10p32, VyPixelFormat_RGB8_Planar, VyPixelFormat_RGB10_Planar, VyPixelFormat_RGB10p32, \
      VyPixelFormat_RGB12_Planar, VyPixelFormat_RGB16, VyPixelFormat_RGB16_Planar
#define VY_FN(name) &C::name, #name

}  // namespace

std::vector<C::SConvRow> CVyPixelFormatConverter::mBuildConvArray() {
  static const SGroup c_aGroups[] = {
      {VY_FN(ConverterPackedToUnpacked),
       {VyPixelFormat_Mono1p, VyPixelFormat_Mono2p, VyPixelFormat_Mono4p, VyPixelFormat_Mono10p, VyPixelFormat_Mono12p,
        VyPixelFormat_Mono14p},
       {VyPixelFormat_Mono8, VY_MONOW},
       Pairing_Cross},
      {VY_FN(ConverterPackedToUnpacked),
       {VY_BAYER(4p), VY_BAYER(10p), VY_BAYER(12p), VY_BAYER(14p)},
       {VY_BAYER(8), VY_BAYER(10), VY_BAYER(12), VY_BAYER(14), VY_BAYER(16)},
       Pairing_SamePhase},
      {VY_FN(ConverterGEVPackedToUnpacked),
       {VyPixelFormat_GVSP_Mono10Packed, VyPixelFormat_GVSP_Mono12Packed},
       {VyPixelFormat_Mono8, VY_MONOW},
       Pairing_Cross},
      {VY_FN(ConverterGEVPackedToUnpacked),
       {VY_GVSP_BAYER(10), VY_GVSP_BAYER(12)},
       {VY_BAYER(8), VY_BAYER(10), VY_BAYER(12), VY_BAYER(16)},
       Pairing_SamePhase},
      {VY_FN(ConverterMonoB2BGRB_RGBB), {VyPixelFormat_Mono8}, {VY_BGRX8}, Pairing_Cross},
      {VY_FN(ConverterMonoB2BGRW_RGBW), {VyPixelFormat_Mono8}, {VY_BGRW}, Pairing_Cross},
      {VY_FN(ConverterMonoW2BGRW_RGBW),
       {VyPixelFormat_Mono10, VyPixelFormat_Mono12, VyPixelFormat_Mono14},
       {VY_BGRW},
       Pairing_Cross},
      {VY_FN(ConverterMonoW2BGRW_RGBW),
       {VyPixelFormat_Mono16},
       {VyPixelFormat_BGR16, VyPixelFormat_BGRa16, VyPixelFormat_RGB16},
       Pairing_Cross},
      {VY_FN(ConverterColorInterporation), {VY_BAYER(8)}, {VY_BGRX8}, Pairing_Cross},
      {VY_FN(ConverterColorInterporation), {VY_BAYER(10)}, {VyPixelFormat_BGR10, VyPixelFormat_BGRa10}, Pairing_Cross},
      {VY_FN(ConverterColorInterporation), {VY_BAYER(12)}, {VyPixelFormat_BGR12, VyPixelFormat_BGRa12}, Pairing_Cross},
      {VY_FN(ConverterColorInterporation), {VY_BAYER(14)}, {VyPixelFormat_BGR14, VyPixelFormat_BGRa14}, Pairing_Cross},
      {VY_FN(ConverterColorInterporation),
       {VY_BAYER(16)},
       {VyPixelFormat_BGR16, VyPixelFormat_BGRa16, VyPixelFormat_RGB16},
       Pairing_Cross},
      {VY_FN(ConverterYUV2MonoOrBGR),
       {VY_YUV},
       {VyPixelFormat_BGR8, VyPixelFormat_BGRa8, VyPixelFormat_Mono8, VyPixelFormat_RGB8, VyPixelFormat_RGBa8},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VY_BAYER(8), VY_YUV},
       {VY_SAMEBIT_TARGETS(VyPixelFormat_BGR10, VyPixelFormat_BGR12, VyPixelFormat_BGR14, VyPixelFormat_BGR16,
                           VyPixelFormat_BGRa10, VyPixelFormat_BGRa12, VyPixelFormat_BGRa14, VyPixelFormat_BGRa16)},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VY_BAYER(10), VY_BAYER(10p), VY_GVSP_BAYER(10)},
       {VY_SAMEBIT_TARGETS(VyPixelFormat_BGR12, VyPixelFormat_BGR14, VyPixelFormat_BGR16, VyPixelFormat_BGRa12,
                           VyPixelFormat_BGRa14, VyPixelFormat_BGRa16)},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VY_BAYER(12), VY_BAYER(12p), VyPixelFormat_GVSP_BayerBG12Packed, VyPixelFormat_GVSP_BayerGB12Packed,
        VyPixelFormat_GVSP_BayerRG12Packed},
       {VY_SAMEBIT_TARGETS(VyPixelFormat_BGR10, VyPixelFormat_BGR14, VyPixelFormat_BGR16, VyPixelFormat_BGRa10,
                           VyPixelFormat_BGRa14, VyPixelFormat_BGRa16)},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VY_BAYER(14), VY_BAYER(14p)},
       {VY_SAMEBIT_TARGETS(VyPixelFormat_BGR10, VyPixelFormat_BGR12, VyPixelFormat_BGR16, VyPixelFormat_BGRa10,
                           VyPixelFormat_BGRa12, VyPixelFormat_BGRa16)},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VyPixelFormat_GVSP_BayerGR12Packed},
       {VyPixelFormat_BGR14, VyPixelFormat_BGR16, VyPixelFormat_BGRa14, VyPixelFormat_BGRa16, VY_PLANAR,
        VyPixelFormat_RGB16},
       Pairing_Cross},
      // GVSP_BayerGR12Packed has no road to these four: their rows name
      // GVSP_BayerBG12Packed a second time, and that gap is kept.
      {VY_FN(ConverterViaSameBitBGR),
       {VyPixelFormat_GVSP_BayerBG12Packed},
       {VyPixelFormat_BGR10, VyPixelFormat_BGRa10, VyPixelFormat_CBGR10p32, VyPixelFormat_RGB10p32},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VY_PLANAR},
       {VyPixelFormat_CBGR10p32, VyPixelFormat_Mono8, VyPixelFormat_Mono16, VyPixelFormat_RGB10p32},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VyPixelFormat_CBGR10p32},
       {VyPixelFormat_Mono8, VY_MONOW, VyPixelFormat_RGB8_Planar, VyPixelFormat_RGB10_Planar, VyPixelFormat_RGB10p32,
        VyPixelFormat_RGB12_Planar, VyPixelFormat_RGB16_Planar},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VyPixelFormat_RGB10p32},
       {VyPixelFormat_CBGR10p32, VyPixelFormat_Mono8, VY_MONOW, VY_PLANAR},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VY_BAYER(16)},
       {VyPixelFormat_BGR10, VyPixelFormat_BGR12, VyPixelFormat_BGR14, VyPixelFormat_BGRa10, VyPixelFormat_BGRa12,
        VyPixelFormat_BGRa14, VyPixelFormat_CBGR10p32, VyPixelFormat_RGB8_Planar, VyPixelFormat_RGB10_Planar,
        VyPixelFormat_RGB10p32, VyPixelFormat_RGB12_Planar, VyPixelFormat_RGB16_Planar},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VyPixelFormat_BGR10p, VyPixelFormat_RGB10p},
       {VyPixelFormat_BGR16, VyPixelFormat_BGRa16, VyPixelFormat_Mono8, VyPixelFormat_Mono10, VyPixelFormat_Mono16,
        VY_PLANAR, VyPixelFormat_RGB16},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitBGR),
       {VyPixelFormat_BGR12p, VyPixelFormat_RGB12p},
       {VyPixelFormat_BGR16, VyPixelFormat_BGRa16, VyPixelFormat_Mono8, VyPixelFormat_Mono12, VyPixelFormat_Mono16,
        VY_PLANAR, VyPixelFormat_RGB16},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitRaw),
       {VyPixelFormat_BGR10, VyPixelFormat_BGR12, VyPixelFormat_BGR14, VyPixelFormat_BGRa10, VyPixelFormat_BGRa12,
        VyPixelFormat_BGRa14, VY_YUV},
       {VyPixelFormat_Mono16},
       Pairing_Cross},
      {VY_FN(ConverterViaSameBitRaw),
       {VY_BGRX8},
       {VY_BAYER(4p),
        VY_BAYER(10),
        VY_BAYER(10p),
        VY_BAYER(12),
        VY_BAYER(12p),
        VY_BAYER(14),
        VY_BAYER(14p),
        VY_BAYER(16),
        VY_GVSP_BAYER(10),
        VY_GVSP_BAYER(12),
        VyPixelFormat_GVSP_Mono10Packed,
        VyPixelFormat_GVSP_Mono12Packed,
        VyPixelFormat_Mono1p,
        VyPixelFormat_Mono2p,
        VyPixelFormat_Mono4p,
        VyPixelFormat_Mono10,
        VyPixelFormat_Mono10p,
        VyPixelFormat_Mono12,
        VyPixelFormat_Mono12p,
        VyPixelFormat_Mono14,
        VyPixelFormat_Mono14p,
        VyPixelFormat_Mono16},
       Pairing_Cross},
      {VY_FN(Converter2YCbCr), {VY_BGRX8}, {VY_YUV}, Pairing_Cross},
      {VY_FN(Converter2YCbCr), {VY_BAYER(8)}, {VyPixelFormat_YCbCr422_8}, Pairing_Cross},
      {VY_FN(ConverterBayerBToMonoB), {VY_BAYER(8)}, {VyPixelFormat_Mono8}, Pairing_Cross},
      {VY_FN(ConverterBayerWToMonoW), {VY_BAYER(10)}, {VyPixelFormat_Mono10}, Pairing_Cross},
      {VY_FN(ConverterBayerWToMonoW), {VY_BAYER(12)}, {VyPixelFormat_Mono12}, Pairing_Cross},
      {VY_FN(ConverterBayerWToMonoW), {VY_BAYER(14)}, {VyPixelFormat_Mono14}, Pairing_Cross},
      {VY_FN(ConverterBayerWToMonoW), {VY_BAYER(16)}, {VyPixelFormat_Mono16}, Pairing_Cross},
      {VY_FN(ConverterViaRaw),
       {VyPixelFormat_GVSP_Mono10Packed, VyPixelFormat_GVSP_Mono12Packed, VyPixelFormat_Mono1p, VyPixelFormat_Mono2p,
        VyPixelFormat_Mono4p, VyPixelFormat_Mono10p, VyPixelFormat_Mono12p, VyPixelFormat_Mono14p},
       {VyPixelFormat_BGR8, VyPixelFormat_BGR16, VyPixelFormat_BGRa8, VyPixelFormat_BGRa16, VyPixelFormat_RGB8,
        VyPixelFormat_RGB16, VyPixelFormat_RGBa8},
       Pairing_Cross},
      {VY_FN(ConverterViaRaw), {VY_MONOW}, {VY_BGRX8}, Pairing_Cross},
      {VY_FN(ConverterViaRaw),
       {VY_BAYER(10), VY_BAYER(10p), VY_BAYER(12), VY_BAYER(12p), VY_BAYER(14), VY_BAYER(14p), VY_GVSP_BAYER(10),
        VY_GVSP_BAYER(12)},
       {VyPixelFormat_BGR8, VyPixelFormat_BGRa8, VyPixelFormat_Mono8, VyPixelFormat_Mono16, VyPixelFormat_RGB8,
        VyPixelFormat_RGBa8, VyPixelFormat_YCbCr422_8},
       Pairing_Cross},
      {VY_FN(ConverterViaRaw),
       {VY_BAYER(16)},
       {VyPixelFormat_BGR8, VyPixelFormat_BGRa8, VyPixelFormat_Mono8, VyPixelFormat_RGB8, VyPixelFormat_RGBa8,
        VyPixelFormat_YCbCr422_8},
       Pairing_Cross},
      {VY_FN(ConverterViaRaw),
       {VY_BAYER(4p)},
       {VyPixelFormat_BGR8,        VyPixelFormat_BGR12,        VyPixelFormat_BGR14,    VyPixelFormat_BGR16,
        VyPixelFormat_BGRa8,       VyPixelFormat_BGRa12,       VyPixelFormat_BGRa14,   VyPixelFormat_BGRa16,
        VyPixelFormat_CBGR10p32,   VyPixelFormat_Mono8,        VyPixelFormat_Mono16,   VyPixelFormat_RGB8,
        VyPixelFormat_RGB8_Planar, VyPixelFormat_RGB10_Planar, VyPixelFormat_RGB10p32, VyPixelFormat_RGB12_Planar,
        VyPixelFormat_RGB16,       VyPixelFormat_RGB16_Planar, VyPixelFormat_RGBa8,    VyPixelFormat_YCbCr422_8},
       Pairing_Cross},
      {VY_FN(ConverterViaRaw), {VY_BAYER(8)}, {VyPixelFormat_Mono16}, Pairing_Cross},
      {VY_FN(ConverterViaUnpack),
       {VyPixelFormat_GVSP_Mono10Packed, VyPixelFormat_Mono10p},
       {VyPixelFormat_BGR10, VyPixelFormat_BGRa10, VY_PLANAR},
       Pairing_Cross},
      {VY_FN(ConverterViaUnpack),
       {VyPixelFormat_GVSP_Mono12Packed, VyPixelFormat_Mono12p},
       {VyPixelFormat_BGR12, VyPixelFormat_BGRa12, VY_PLANAR},
       Pairing_Cross},
      {VY_FN(ConverterViaUnpack),
       {VyPixelFormat_Mono14p},
       {VyPixelFormat_BGR14, VyPixelFormat_BGRa14, VY_PLANAR},
       Pairing_Cross},
      {VY_FN(ConverterViaUnpack),
       {VY_BAYER(10p), VY_GVSP_BAYER(10)},
       {VyPixelFormat_BGR10, VyPixelFormat_BGRa10, VyPixelFormat_Mono10},
       Pairing_Cross},
      {VY_FN(ConverterViaUnpack),
       {VY_BAYER(12p), VY_GVSP_BAYER(12)},
       {VyPixelFormat_BGR12, VyPixelFormat_BGRa12, VyPixelFormat_Mono12},
       Pairing_Cross},
      {VY_FN(ConverterViaUnpack),
       {VY_BAYER(14p)},
       {VyPixelFormat_BGR14, VyPixelFormat_BGRa14, VyPixelFormat_Mono14},
       Pairing_Cross},
      {VY_FN(ConverterViaUnpack),
       {VyPixelFormat_Mono1p, VyPixelFormat_Mono2p, VyPixelFormat_Mono4p},
       {VY_PLANAR},
       Pairing_Cross},
      {VY_FN(ConverterUnpackedToPacked8),
       {VyPixelFormat_Mono8},
       {VyPixelFormat_Mono1p, VyPixelFormat_Mono2p, VyPixelFormat_Mono4p, VyPixelFormat_Mono10p, VyPixelFormat_Mono12p,
        VyPixelFormat_Mono14p},
       Pairing_Cross},
      {VY_FN(ConverterUnpackedToPacked8),
       {VY_BAYER(8)},
       {VY_BAYER(4p), VY_BAYER(10p), VY_BAYER(12p), VY_BAYER(14p)},
       Pairing_SamePhase},
      {VY_FN(ConverterUnpackedBToGevPacked),
       {VyPixelFormat_Mono8},
       {VyPixelFormat_GVSP_Mono10Packed, VyPixelFormat_GVSP_Mono12Packed},
       Pairing_Cross},
      {VY_FN(ConverterUnpackedBToGevPacked), {VY_BAYER(8)}, {VY_GVSP_BAYER(10), VY_GVSP_BAYER(12)}, Pairing_SamePhase},
      {VY_FN(ConverterRawMono8ToRawMono16), {VyPixelFormat_Mono8}, {VY_MONOW}, Pairing_Cross},
      {VY_FN(ConverterRawMono8ToRawMono16),
       {VY_BAYER(8)},
       {VY_BAYER(10), VY_BAYER(12), VY_BAYER(14), VY_BAYER(16)},
       Pairing_SamePhase},
      {VY_FN(ConverterRawMono16ToRawMono16), {VY_MONOW}, {}, Pairing_AnyOther},
      {VY_FN(ConverterRawMono16ToRawMono16),
       {VY_BAYER(10), VY_BAYER(12), VY_BAYER(14), VY_BAYER(16)},
       {},
       Pairing_AnyOtherSamePhase},
      {VY_FN(ConverterRawMono16ToRawMono8), {VY_MONOW}, {VyPixelFormat_Mono8}, Pairing_Cross},
      {VY_FN(ConverterRawMono16ToRawMono8),
       {VY_BAYER(10), VY_BAYER(12), VY_BAYER(14), VY_BAYER(16)},
       {VY_BAYER(8)},
       Pairing_SamePhase},
      {VY_FN(ConverterBGRx8ToBGR10p), {VY_BGRX8}, {VyPixelFormat_CBGR10p32, VyPixelFormat_RGB10p32}, Pairing_Cross},
      {VY_FN(ConverterBGRx16ToBGR10p), {VY_BGRW}, {VyPixelFormat_CBGR10p32, VyPixelFormat_RGB10p32}, Pairing_Cross},
      {VY_FN(ConverterBGR10p32ToBGRx8), {VyPixelFormat_CBGR10p32, VyPixelFormat_RGB10p32}, {VY_BGRX8}, Pairing_Cross},
      {VY_FN(ConverterBGR10pToBGRx16), {VyPixelFormat_CBGR10p32, VyPixelFormat_RGB10p32}, {VY_BGRW}, Pairing_Cross},
      {VY_FN(ConverterBGRxWToBGRxW), {VY_BGRW}, {}, Pairing_AnyOther},
      {VY_FN(ConverterBGRx8ToBGRx8), {VY_BGRX8}, {}, Pairing_AnyOther},
      {VY_FN(ConverterBGRx8ToBGRx16), {VY_BGRX8}, {VY_BGRW}, Pairing_Cross},
      {VY_FN(ConverterBGRx16ToBGRx8), {VY_BGRW}, {VY_BGRX8}, Pairing_Cross},
      {VY_FN(ConverterBGR8ToMono8), {VY_BGRX8}, {VyPixelFormat_Mono8}, Pairing_Cross},
      {VY_FN(ConverterBGR16ToMono16),
       {VyPixelFormat_BGR10, VyPixelFormat_BGR12, VyPixelFormat_BGR14, VyPixelFormat_BGRa10, VyPixelFormat_BGRa12,
        VyPixelFormat_BGRa14},
       {VyPixelFormat_Mono10, VyPixelFormat_Mono12, VyPixelFormat_Mono14},
       Pairing_Cross},
      {VY_FN(ConverterBGR16ToMono16),
       {VyPixelFormat_BGR16, VyPixelFormat_BGRa16, VyPixelFormat_RGB16},
       {VY_MONOW},
       Pairing_Cross},
      {VY_FN(ConverterBGR16ToMono8), {VY_BGRW}, {VyPixelFormat_Mono8}, Pairing_Cross},
      {VY_FN(ConverterBGR8ToBayer8), {VY_BGRX8}, {VY_BAYER(8)}, Pairing_Cross},
      {VY_FN(ConverterBGR16ToBayer16), {VyPixelFormat_BGR10, VyPixelFormat_BGRa10}, {VY_BAYER(10)}, Pairing_Cross},
      {VY_FN(ConverterBGR16ToBayer16), {VyPixelFormat_BGR12, VyPixelFormat_BGRa12}, {VY_BAYER(12)}, Pairing_Cross},
      {VY_FN(ConverterBGR16ToBayer16), {VyPixelFormat_BGR14, VyPixelFormat_BGRa14}, {VY_BAYER(14)}, Pairing_Cross},
      {VY_FN(ConverterBGR16ToBayer16),
       {VyPixelFormat_BGR16, VyPixelFormat_BGRa16, VyPixelFormat_RGB16},
       {VY_BAYER(16)},
       Pairing_Cross},
      {VY_FN(ConverterPlanarToNonPlanar_8_8), {VyPixelFormat_RGB8_Planar}, {VY_BGRX8}, Pairing_Cross},
      {VY_FN(ConverterPlanarToNonPlanar_8_16), {VyPixelFormat_RGB8_Planar}, {VY_BGRW}, Pairing_Cross},
      {VY_FN(ConverterPlanarToNonPlanar_16_8), {VY_PLANAR16}, {VY_BGRX8}, Pairing_Cross},
      {VY_FN(ConverterPlanarToNonPlanar_16_16), {VY_PLANAR16}, {VY_BGRW}, Pairing_Cross},
      {VY_FN(ConverterNonPlanarToPlanar_8_8), {VY_BGRX8}, {VyPixelFormat_RGB8_Planar}, Pairing_Cross},
      {VY_FN(ConverterNonPlanarToPlanar_8_16), {VY_BGRX8}, {VY_PLANAR16}, Pairing_Cross},
      {VY_FN(ConverterNonPlanarToPlanar_16_8), {VY_BGRW}, {VyPixelFormat_RGB8_Planar}, Pairing_Cross},
      {VY_FN(ConverterNonPlanarToPlanar_16_16), {VY_BGRW}, {VY_PLANAR16}, Pairing_Cross},
      {VY_FN(ConverterPlanarToPlanar_8_16), {VyPixelFormat_RGB8_Planar}, {VY_PLANAR16}, Pairing_Cross},
      {VY_FN(ConverterPlanarToPlanar_16_8), {VY_PLANAR16}, {VyPixelFormat_RGB8_Planar}, Pairing_Cross},
      {VY_FN(ConverterPlanarToPlanar_16_16), {VY_PLANAR16}, {}, Pairing_AnyOther},
      {VY_FN(ConverterMonoToPlanar_8_8), {VyPixelFormat_Mono8}, {VyPixelFormat_RGB8_Planar}, Pairing_Cross},
      {VY_FN(ConverterMonoToPlanar_8_16), {VyPixelFormat_Mono8}, {VY_PLANAR16}, Pairing_Cross},
      {VY_FN(ConverterMonoToPlanar_16_8), {VY_MONOW}, {VyPixelFormat_RGB8_Planar}, Pairing_Cross},
      {VY_FN(ConverterMonoToPlanar_16_16), {VY_MONOW}, {VY_PLANAR16}, Pairing_Cross},
      {VY_FN(ConverterBGRxToBGRXp_8_16),
       {VY_BGRX8},
       {VyPixelFormat_BGR10p, VyPixelFormat_BGR12p, VyPixelFormat_RGB10p, VyPixelFormat_RGB12p},
       Pairing_Cross},
      {VY_FN(ConverterBGRpxToBGRX_16_8),
       {VyPixelFormat_BGR10p, VyPixelFormat_BGR12p, VyPixelFormat_RGB10p, VyPixelFormat_RGB12p},
       {VY_BGRX8},
       Pairing_Cross},
      {VY_FN(ConverterBGRxToBGRXp_16_16),
       {VyPixelFormat_BGR10, VyPixelFormat_BGRa10},
       {VyPixelFormat_BGR10p, VyPixelFormat_BGR12p, VyPixelFormat_RGB10p, VyPixelFormat_RGB12p},
       Pairing_Cross},
      {VY_FN(ConverterBGRxToBGRXp_16_16),
       {VyPixelFormat_BGR12, VyPixelFormat_BGRa12},
       {VyPixelFormat_BGR12p, VyPixelFormat_RGB12p},
       Pairing_Cross},
      {VY_FN(ConverterBGRpxToBGRX_16_16),
       {VyPixelFormat_BGR10p, VyPixelFormat_RGB10p},
       {VyPixelFormat_BGR10, VyPixelFormat_BGRa10},
       Pairing_Cross},
      {VY_FN(ConverterBGRpxToBGRX_16_16),
       {VyPixelFormat_BGR12p, VyPixelFormat_RGB12p},
       {VyPixelFormat_BGR10, VyPixelFormat_BGR12, VyPixelFormat_BGRa10, VyPixelFormat_BGRa12},
       Pairing_Cross},
      // Later rows of keys that the route above already serves: the first row
      // wins, so these colours reach Mono16 through the mono format of their own depth and not directly.
      {VY_FN(ConverterBGR16ToMono16),
       {VyPixelFormat_BGR10, VyPixelFormat_BGRa10, VyPixelFormat_BGR12, VyPixelFormat_BGRa12, VyPixelFormat_BGR14,
        VyPixelFormat_BGRa14},
       {VyPixelFormat_Mono16},
       Pairing_Cross},
  };

  std::vector<SConvRow> rows;
  for (const SGroup& g : c_aGroups) {
    const bool bPhase = g.ePairing == Pairing_SamePhase || g.ePairing == Pairing_AnyOtherSamePhase;
    const bool bOther = g.ePairing == Pairing_AnyOther || g.ePairing == Pairing_AnyOtherSamePhase;
    const std::initializer_list<Fmt>& dst = bOther ? g.src : g.dst;
    if (bPhase) VY_ASSERT(g.src.size() % 4 == 0 && dst.size() % 4 == 0);
    size_t i = 0;
    for (Fmt s : g.src) {
      size_t j = 0;
      for (Fmt d : dst) {
        const bool bPaired = (!bPhase || i % 4 == j % 4) && (!bOther || i != j);
        if (bPaired) rows.push_back({s, d, g.pfn, g.szName});
        ++j;
      }
      ++i;
    }
  }
  return rows;
}

#undef VY_FN
#undef VY_SAMEBIT_TARGETS
#undef VY_YUV
#undef VY_MONOW
#undef VY_PLANAR
#undef VY_PLANAR16
#undef VY_BGRW
#undef VY_BGRX8
#undef VY_GVSP_BAYER
#undef VY_BAYER

const std::vector<C::SConvRow> CVyPixelFormatConverter::m_cConvArray = CVyPixelFormatConverter::mBuildConvArray();

const std::map<C::ConvKey, C::PfnConverter> CVyPixelFormatConverter::m_mapConverters = [] {
  std::map<ConvKey, PfnConverter> map;
  for (const SConvRow& row : m_cConvArray) map.insert(std::make_pair(ConvKey(row.eSource, row.eDestination), row.pfn));
  return map;
}();

const char* CVyPixelFormatConverter::GetConverterName(EVyPixelFormatNamingConvention_t eSource,
                                                      EVyPixelFormatNamingConvention_t eDestination) {
  // The first row of a key is the one the map holds.
  for (const SConvRow& row : m_cConvArray)
    if (row.eSource == eSource && row.eDestination == eDestination) return row.szName;
  return nullptr;
}

}  // namespace VyApi
