#include "VyPngWriter.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstdint>

#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

namespace {

struct SPngColorTypeRow {
  EVyPixelFormatNamingConvention_t eFormat;
  int nColorType;
};

const SPngColorTypeRow kPngColorTypes[] = {
    {VyPixelFormat_Mono8, PNG_COLOR_TYPE_GRAY},        {VyPixelFormat_Mono10, PNG_COLOR_TYPE_GRAY},
    {VyPixelFormat_Mono12, PNG_COLOR_TYPE_GRAY},       {VyPixelFormat_Mono14, PNG_COLOR_TYPE_GRAY},
    {VyPixelFormat_Mono16, PNG_COLOR_TYPE_GRAY},       {VyPixelFormat_RGB8, PNG_COLOR_TYPE_RGB},
    {VyPixelFormat_BGR8, PNG_COLOR_TYPE_RGB},          {VyPixelFormat_RGB16, PNG_COLOR_TYPE_RGB},
    {VyPixelFormat_BGR10, PNG_COLOR_TYPE_RGB},         {VyPixelFormat_BGR12, PNG_COLOR_TYPE_RGB},
    {VyPixelFormat_BGR14, PNG_COLOR_TYPE_RGB},         {VyPixelFormat_BGR16, PNG_COLOR_TYPE_RGB},
    {VyPixelFormat_RGBa8, PNG_COLOR_TYPE_RGB_ALPHA},   {VyPixelFormat_BGRa8, PNG_COLOR_TYPE_RGB_ALPHA},
    {VyPixelFormat_BGRa10, PNG_COLOR_TYPE_RGB_ALPHA},  {VyPixelFormat_BGRa12, PNG_COLOR_TYPE_RGB_ALPHA},
    {VyPixelFormat_BGRa14, PNG_COLOR_TYPE_RGB_ALPHA},  {VyPixelFormat_BGRa16, PNG_COLOR_TYPE_RGB_ALPHA},
};

/// Everything the libpng calls need, gathered before the first of them, so
/// that the part that libpng may leave by longjmp holds no object with a
/// destructor.
struct SPngJob {
  png_structp pPng;
  png_infop pInfo;
  FILE* pFile;
  png_uint_32 nWidth;
  png_uint_32 nHeight;
  size_t nLinePitch;
  png_bytep pData;
  int nColorType;
  int nBitDepth;
  size_t nComponents;
  size_t nDepth;
  bool bColor;
  bool bBGR;
};

/// Runs the header, the transformations and the rows. Returns false when
/// libpng reported an error, which it does by a longjmp back to here.
bool WritePngRows(const SPngJob& job) {
  if (setjmp(png_jmpbuf(job.pPng))) return false;
  png_init_io(job.pPng, job.pFile);
  png_set_IHDR(job.pPng, job.pInfo, job.nWidth, job.nHeight, job.nBitDepth, job.nColorType, PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(job.pPng, job.pInfo);
  png_set_packing(job.pPng);
  // The header already declares the alpha channel, so the request to strip
  // it comes too late to change what is written; alpha formats keep their
  // fourth sample.
  if (job.nComponents > 3) png_set_strip_alpha(job.pPng);
  if (job.bBGR) png_set_bgr(job.pPng);
  // 10- to 14-bit samples are scaled up to the full 16 bits.
  if (job.nDepth > 8 && job.nDepth < 16) {
    png_color_8 sigBits = {0, 0, 0, 0, 0};
    const png_byte nDepth = static_cast<png_byte>(job.nDepth);
    if (job.bColor) {
      sigBits.red = sigBits.green = sigBits.blue = nDepth;
      if (job.nComponents > 3) sigBits.alpha = nDepth;
    } else {
      sigBits.gray = nDepth;
    }
    png_set_shift(job.pPng, &sigBits);
  }
  // Samples in memory are little-endian; PNG stores them big-endian.
  png_set_swap(job.pPng);
  png_set_packswap(job.pPng);
  png_bytep pLine = job.pData;
  for (png_uint_32 y = 0; y < job.nHeight; ++y, pLine += job.nLinePitch) png_write_rows(job.pPng, &pLine, 1);
  png_write_end(job.pPng, job.pInfo);
  return true;
}

GenICam_3_0::gcstring FormatName(EVyPixelFormatNamingConvention_t eFormat) {
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(eFormat);
  return pInfo ? pInfo->GetName() : GenICam_3_0::gcstring("Unknown");
}

}  // namespace

void WritePng(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile) {
  VY_ASSERT_NOT_NULL(pImage);
  const EVyPixelFormatNamingConvention_t eFormat = pImage->GetImagePixelFormat();
  const auto it = std::find_if(std::begin(kPngColorTypes), std::end(kPngColorTypes),
                               [eFormat](const SPngColorTypeRow& row) { return row.eFormat == eFormat; });
  if (it == std::end(kPngColorTypes))
    throw VY_RUNTIME_EXCEPTION("Not supported pixelformat %s", FormatName(eFormat).c_str());
  const IVyPixelFormatInfoInside* pInfo =
      dynamic_cast<const IVyPixelFormatInfoInside*>(GetIVyPixelFormatInfo(eFormat));
  VY_ASSERT_NOT_NULL(pInfo);

  SPngJob job{};
  job.pFile = pFile;
  job.nWidth = static_cast<png_uint_32>(pImage->GetImageWidth());
  job.nHeight = static_cast<png_uint_32>(pImage->GetImageHeight());
  job.nLinePitch = pImage->GetImageLinePitch();
  job.pData = static_cast<png_bytep>(pImage->GetImageBuffer());
  job.nColorType = it->nColorType;
  job.nComponents = pInfo->GetComponentCount();
  job.nDepth = pInfo->GetComponentBitDepth();
  job.nBitDepth = job.nDepth > 8 ? 16 : 8;
  job.bColor = pInfo->IsColor();
  job.bBGR = pInfo->IsBGROrder();

  job.pPng = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  if (job.pPng == nullptr) throw VY_BAD_ALLOC_EXCEPTION("png_create_write_struct failed for %s", strName.c_str());
  job.pInfo = png_create_info_struct(job.pPng);
  if (job.pInfo == nullptr) {
    png_destroy_write_struct(&job.pPng, nullptr);
    throw VY_BAD_ALLOC_EXCEPTION("png_create_info_struct failed for %s", strName.c_str());
  }
  const bool bWritten = WritePngRows(job);
  png_destroy_write_struct(&job.pPng, &job.pInfo);
  // libpng reports a failed stream write, and a header it refuses (such as
  // a height of 0), as an error.
  if (!bWritten) throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
}

}  // namespace VyApi
