#include "VyJpegWriterUnix.h"

#include <turbojpeg.h>

#include <algorithm>

#include <VyApi_IP/IVyPixelFormatInfo.h>
#include <VyApi_IP/VyReporter.h>

namespace VyApi {

namespace {

constexpr unsigned int kMaxQuality = 100;

struct SJpegFormatRow {
  EVyPixelFormatNamingConvention_t eFormat;
  int nTJPixelFormat;
  int nSubsampling;
};

// Mono10 is handed over as bytes: each 16-bit sample's low byte and high
// byte become two grey pixels of the first half of the line.
const SJpegFormatRow kJpegFormats[] = {
    {VyPixelFormat_Mono8, TJPF_GRAY, TJSAMP_GRAY},
    {VyPixelFormat_Mono10, TJPF_GRAY, TJSAMP_GRAY},
    {VyPixelFormat_RGB8, TJPF_RGB, TJSAMP_422},
    {VyPixelFormat_BGR8, TJPF_BGR, TJSAMP_422},
};

GenICam_3_0::gcstring FormatName(EVyPixelFormatNamingConvention_t eFormat) {
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(eFormat);
  return pInfo ? pInfo->GetName() : GenICam_3_0::gcstring("Unknown");
}

}  // namespace

void WriteJPG(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile, unsigned int nQuality) {
  VY_ASSERT_NOT_NULL(pImage);
  tjhandle hCompressor = tjInitCompress();
  if (hCompressor == nullptr) throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());

  const EVyPixelFormatNamingConvention_t eFormat = pImage->GetImagePixelFormat();
  const auto it = std::find_if(std::begin(kJpegFormats), std::end(kJpegFormats),
                               [eFormat](const SJpegFormatRow& row) { return row.eFormat == eFormat; });
  if (it == std::end(kJpegFormats)) {
    tjDestroy(hCompressor);
    throw VY_RUNTIME_EXCEPTION("Not supported pixelformat %s", FormatName(eFormat).c_str());
  }

  const int nQualityUsed = static_cast<int>(std::min(nQuality, kMaxQuality));
  unsigned char* pJpeg = nullptr;
  unsigned long nJpegSize = 0;
  const int nResult =
      tjCompress2(hCompressor, static_cast<const unsigned char*>(pImage->GetImageBuffer()),
                  static_cast<int>(pImage->GetImageWidth()), static_cast<int>(pImage->GetImageLinePitch()),
                  static_cast<int>(pImage->GetImageHeight()), it->nTJPixelFormat, &pJpeg, &nJpegSize,
                  it->nSubsampling, nQualityUsed, TJFLAG_FASTDCT);
  tjDestroy(hCompressor);
  const bool bWritten = nResult == 0 && std::fwrite(pJpeg, nJpegSize, 1, pFile) == 1;
  // The library may have allocated the output even when it failed later.
  tjFree(pJpeg);
  if (!bWritten) throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
}

}  // namespace VyApi
