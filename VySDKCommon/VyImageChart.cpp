#include "VySDKCommon/VyImageChart.h"

#include <cstdint>
#include <cstring>
#include <new>
#include <vector>

#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

namespace {

const unsigned int kGreySteps[11] = {255, 234, 212, 190, 167, 143, 120, 94, 67, 37, 0};
const unsigned int kGreyBackground = 131;

// 24 patches, red, green, blue.
const unsigned char kPatches[24][3] = {
    {115, 82, 68},   {194, 150, 130}, {98, 122, 157},  {87, 108, 67},   {133, 128, 177}, {103, 189, 170},
    {214, 126, 44},  {80, 91, 166},   {193, 90, 99},   {94, 60, 108},   {157, 188, 64},  {224, 163, 46},
    {56, 61, 150},   {70, 148, 73},   {175, 54, 60},   {231, 199, 31},  {187, 86, 149},  {8, 133, 161},
    {243, 243, 242}, {200, 200, 200}, {160, 160, 160}, {122, 122, 121}, {85, 85, 85},    {52, 52, 52},
};

// Lines are addressed as bytes and cells stored through memcpy, since a
// 16-bit cell need not be aligned (RGB8 lines of odd width, see GetFunction).
unsigned char* LineAt(IVyImage* pImage, size_t y) {
  return static_cast<unsigned char*>(pImage->GetImageBuffer()) + y * pImage->GetImageLinePitch();
}

template <typename T>
unsigned char* PutCell(unsigned char* q, T v) {
  std::memcpy(q, &v, sizeof(T));
  return q + sizeof(T);
}

/// Fills count cells with v and returns the address behind them.
template <typename T>
unsigned char* FillCells(unsigned char* q, size_t count, T v) {
  if (sizeof(T) == 1 || v == 0) {
    std::memset(q, static_cast<int>(v & 0xFF), count * sizeof(T));
    return q + count * sizeof(T);
  }
  for (size_t i = 0; i < count; ++i) q = PutCell(q, v);
  return q;
}

size_t DepthShift(IVyImage* pImage) {
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(pImage->GetImagePixelFormat());
  VY_ASSERT_NOT_NULL(pInfo);
  return pInfo->GetComponentBitDepth() - 8;
}

template <typename T>
bool MakeChartMono(IVyImage* pImage, _EVyMemoryInitialization_t init) {
  if (init != VyMemoryInitialization_Chart) return false;
  const size_t W = pImage->GetImageWidth();
  const size_t H = pImage->GetImageHeight();
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(pImage->GetImagePixelFormat());
  VY_ASSERT_NOT_NULL(pInfo);
  const size_t D = pInfo->GetComponentBitDepth();
  const size_t s = D - 8;
  const uint64_t M = (uint64_t(1) << D) - 1;
  const T g = static_cast<T>(kGreyBackground << s);

  std::vector<T> steps;
  try {
    steps.assign(kGreySteps, kGreySteps + 11);
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
  for (T& v : steps) v = static_cast<T>(v << s);

  const size_t a = H / 10, b = H / 5, c = W / 24, d = W / 12, n = 11 * d, r = W - c - n;

  size_t y = 0;
  for (; y < a; ++y) FillCells(LineAt(pImage, y), W, g);
  for (size_t band = 0; band < 4; ++band) {
    for (size_t line = 0; line < b; ++line, ++y) {
      unsigned char* p = FillCells(LineAt(pImage, y), c, g);
      switch (band) {
        case 0:
          for (size_t k = 0; k < 11; ++k) p = FillCells(p, d, steps[k]);
          break;
        case 1:
          for (size_t i = 0; i < n; ++i) p = PutCell(p, static_cast<T>((M * i) / (n - 1)));
          break;
        case 2:
          for (size_t i = 0; i < n; ++i) p = PutCell(p, static_cast<T>((M * (n - 1 - i)) / (n - 1)));
          break;
        default:
          for (size_t k = 0; k < 11; ++k) p = FillCells(p, d, steps[10 - k]);
          break;
      }
      FillCells(p, r, g);
    }
  }
  for (; y < H; ++y) FillCells(LineAt(pImage, y), W, g);
  return true;
}

template <typename T>
bool MakeChartBGR(IVyImage* pImage, _EVyMemoryInitialization_t init, bool bRGB) {
  if (init != VyMemoryInitialization_Chart) return false;
  const size_t W = pImage->GetImageWidth();
  const size_t H = pImage->GetImageHeight();
  const size_t P = pImage->GetImageLinePitch();
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(pImage->GetImagePixelFormat());
  VY_ASSERT_NOT_NULL(pInfo);
  const size_t s = DepthShift(pImage);
  const size_t k = pInfo->GetComponentCount();

  // Working copy of the patch table in the cell type and the pixel's order.
  std::vector<T> patches;
  try {
    patches.resize(24 * 3);
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
  for (size_t i = 0; i < 24; ++i) {
    for (size_t c = 0; c < 3; ++c) {
      const size_t src = bRGB ? c : 2 - c;
      patches[i * 3 + c] = static_cast<T>(static_cast<unsigned int>(kPatches[i][src]) << s);
    }
  }

  const size_t a = H / 45, b = H / 5, p = W / 7, g = W / 77;
  auto zeroLines = [&](size_t& y, size_t count) {
    for (size_t i = 0; i < count; ++i, ++y) std::memset(LineAt(pImage, y), 0, P);
  };
  auto zeroPixels = [&](unsigned char*& q, size_t count) { q = FillCells(q, count * k, T(0)); };

  size_t y = 0;
  zeroLines(y, 3 * a);
  for (size_t j = 0; j < 4; ++j) {
    for (size_t line = 0; line < b; ++line, ++y) {
      unsigned char* q = LineAt(pImage, y);
      zeroPixels(q, 3 * g);
      for (size_t i = 0; i < 6; ++i) {
        const T* patch = &patches[(6 * j + i) * 3];
        // Only the three colour cells: an alpha cell keeps what it held.
        for (size_t x = 0; x < p; ++x) {
          PutCell(q, patch[0]);
          PutCell(q + sizeof(T), patch[1]);
          PutCell(q + 2 * sizeof(T), patch[2]);
          q += k * sizeof(T);
        }
        zeroPixels(q, g);
      }
      zeroPixels(q, W - 3 * g - 6 * (p + g));
    }
    zeroLines(y, a);
  }
  zeroLines(y, H - y);
  return true;
}

struct SChartRoute {
  PVyMakeChart pfnMakeChart;
  EVyPixelFormatNamingConvention_t eFormats[10];
  size_t nFormatCount;
};

// The routing by routine, as it is meant to stand: RGB8 and RGBa8 go to the
// 16-bit colour routine.
const SChartRoute kChartRoutes[] = {
    {MakeChartMono8, {VyPixelFormat_Mono8}, 1},
    {MakeChartMono16, {VyPixelFormat_Mono10, VyPixelFormat_Mono12, VyPixelFormat_Mono14, VyPixelFormat_Mono16}, 4},
    {MakeChartBGR8, {VyPixelFormat_BGR8, VyPixelFormat_BGRa8}, 2},
    {MakeChartBGR16,
     {VyPixelFormat_BGR10, VyPixelFormat_BGR12, VyPixelFormat_BGR14, VyPixelFormat_BGR16, VyPixelFormat_BGRa10,
      VyPixelFormat_BGRa12, VyPixelFormat_BGRa14, VyPixelFormat_BGRa16, VyPixelFormat_RGB8, VyPixelFormat_RGBa8},
     10},
};

}  // namespace

bool MakeChartMono8(IVyImage* pImage, _EVyMemoryInitialization_t init) {
  return MakeChartMono<unsigned char>(pImage, init);
}

bool MakeChartMono16(IVyImage* pImage, _EVyMemoryInitialization_t init) {
  return MakeChartMono<unsigned short>(pImage, init);
}

bool MakeChartBGR8(IVyImage* pImage, _EVyMemoryInitialization_t init) {
  const EVyPixelFormatNamingConvention_t f = pImage->GetImagePixelFormat();
  return MakeChartBGR<unsigned char>(pImage, init, f == VyPixelFormat_RGB8 || f == VyPixelFormat_RGBa8);
}

bool MakeChartBGR16(IVyImage* pImage, _EVyMemoryInitialization_t init) {
  return MakeChartBGR<unsigned short>(pImage, init, false);
}

PVyMakeChart GetFunction(EVyPixelFormatNamingConvention_t format) {
  for (const SChartRoute& route : kChartRoutes)
    for (size_t i = 0; i < route.nFormatCount; ++i)
      if (route.eFormats[i] == format) return route.pfnMakeChart;
  return nullptr;
}

}  // namespace VyApi
