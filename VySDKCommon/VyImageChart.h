// Test charts that CVyImageBuffer::CreateBuffer draws for
// VyMemoryInitialization_Chart: a grey-scale chart with steps and ramps for
// monochrome formats and a 24-patch colour chart for colour formats. The
// routines look only at the image they are given and write into it.
#ifndef VYSDKCOMMON_VYIMAGECHART_H
#define VYSDKCOMMON_VYIMAGECHART_H

#include <VyApi_IP/EVyPixelFormatNamingConvention.h>
#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/VyPixelTypes.h>

namespace VyApi {

/// A chart routine: draws when init is VyMemoryInitialization_Chart and
/// returns true; returns false at once for any other value. Raises
/// BadAllocException when its working tables cannot be allocated.
typedef bool (*PVyMakeChart)(IVyImage* pImage, _EVyMemoryInitialization_t init);

/// Grey-scale chart in 8-bit cells.
bool MakeChartMono8(IVyImage* pImage, _EVyMemoryInitialization_t init);
/// Grey-scale chart in 16-bit cells.
bool MakeChartMono16(IVyImage* pImage, _EVyMemoryInitialization_t init);
/// Colour chart in 8-bit cells; red first for RGB8 and RGBa8, blue first otherwise.
bool MakeChartBGR8(IVyImage* pImage, _EVyMemoryInitialization_t init);
/// Colour chart in 16-bit cells, always blue first, whatever the format.
bool MakeChartBGR16(IVyImage* pImage, _EVyMemoryInitialization_t init);

/// The chart routine of a format, null when it has none. RGB8 and RGBa8 are
/// routed to the 16-bit colour routine, which writes 16-bit cells onto their
/// 8-bit lines; that chart looks wrong and is kept so. Raises nothing.
PVyMakeChart GetFunction(EVyPixelFormatNamingConvention_t format);

}  // namespace VyApi

#endif
