#include "ColorInterpolation/YCbCrFormat.h"

#include <array>

#include <VyApi_IP/VyReporter.h>

namespace VyApi {
namespace {

// The formats in groups that share layout, family and order; the flat table
// below is generated from these rows.
struct SFormatGroup {
  EYCbCrSubsampling_t eSubsampling;
  EYCbCrTableFamily_t eFamily;
  bool bCbFirst;
  EVyPixelFormatNamingConvention_t aeFormat[2];  // Undefined where a group has one format
};

constexpr SFormatGroup FormatGroups[] = {
    {YCbCrSubsampling_444, YCbCrTableFamily_Plain, false, {VyPixelFormat_YCbCr8, VyPixelFormat_Undefined}},
    {YCbCrSubsampling_444, YCbCrTableFamily_Plain, true, {VyPixelFormat_YCbCr8_CbYCr, VyPixelFormat_YUV8_UYV}},
    {YCbCrSubsampling_444, YCbCrTableFamily_601, true, {VyPixelFormat_YCbCr601_8_CbYCr, VyPixelFormat_Undefined}},
    {YCbCrSubsampling_444, YCbCrTableFamily_709, true, {VyPixelFormat_YCbCr709_8_CbYCr, VyPixelFormat_Undefined}},
    {YCbCrSubsampling_422, YCbCrTableFamily_Plain, false, {VyPixelFormat_YCbCr422_8, VyPixelFormat_YUV422_8}},
    {YCbCrSubsampling_422, YCbCrTableFamily_Plain, true,
     {VyPixelFormat_YCbCr422_8_CbYCrY, VyPixelFormat_YUV422_8_UYVY}},
    {YCbCrSubsampling_422, YCbCrTableFamily_601, false, {VyPixelFormat_YCbCr601_422_8, VyPixelFormat_Undefined}},
    {YCbCrSubsampling_422, YCbCrTableFamily_601, true,
     {VyPixelFormat_YCbCr601_422_8_CbYCrY, VyPixelFormat_Undefined}},
    {YCbCrSubsampling_422, YCbCrTableFamily_709, false, {VyPixelFormat_YCbCr709_422_8, VyPixelFormat_Undefined}},
    {YCbCrSubsampling_422, YCbCrTableFamily_709, true,
     {VyPixelFormat_YCbCr709_422_8_CbYCrY, VyPixelFormat_Undefined}},
    {YCbCrSubsampling_411, YCbCrTableFamily_Plain, false, {VyPixelFormat_YCbCr411_8, VyPixelFormat_Undefined}},
    {YCbCrSubsampling_411, YCbCrTableFamily_Plain, true,
     {VyPixelFormat_YCbCr411_8_CbYYCrYY, VyPixelFormat_YUV411_8_UYYVYY}},
    {YCbCrSubsampling_411, YCbCrTableFamily_601, true,
     {VyPixelFormat_YCbCr601_411_8_CbYYCrYY, VyPixelFormat_Undefined}},
    {YCbCrSubsampling_411, YCbCrTableFamily_709, true,
     {VyPixelFormat_YCbCr709_411_8_CbYYCrYY, VyPixelFormat_Undefined}},
};

constexpr size_t CountFormats() {
  size_t n = 0;
  for (const SFormatGroup& g : FormatGroups)
    for (EVyPixelFormatNamingConvention_t e : g.aeFormat) n += e != VyPixelFormat_Undefined;
  return n;
}
static_assert(CountFormats() == YCbCrFormatCount, "every YCbCr and YUV format has one group");

constexpr std::array<SYCbCrFormat, YCbCrFormatCount> MakeFormats() {
  std::array<SYCbCrFormat, YCbCrFormatCount> a{};
  size_t n = 0;
  for (const SFormatGroup& g : FormatGroups)
    for (EVyPixelFormatNamingConvention_t e : g.aeFormat)
      if (e != VyPixelFormat_Undefined) a[n++] = SYCbCrFormat{e, g.eSubsampling, g.eFamily, g.bCbFirst};
  return a;
}

constexpr std::array<SYCbCrFormat, YCbCrFormatCount> Formats = MakeFormats();

}  // namespace

const SYCbCrFormat* FindYCbCrFormat(EVyPixelFormatNamingConvention_t eFormat) {
  for (const SYCbCrFormat& f : Formats)
    if (f.m_eFormat == eFormat) return &f;
  return nullptr;
}

const SYCbCrFormat& GetYCbCrFormat(size_t i) {
  VY_ASSERT(i < YCbCrFormatCount);
  return Formats[i];
}

}  // namespace VyApi
