// Mosaic and YCbCr primitives: demosaicing with the method set, Bayer to
// mono, colour to Bayer, and the YCbCr directions. None of them changes depth, so none takes a look-up table.
#include <cstdint>

#include "ColorInterpolation/BayerToMono.h"
#include "ColorInterpolation/ColorInterpolation_YCbCr.h"
#include "ColorInterpolation/ColorInterporation.h"
#include "ColorInterpolation/ColorToBayer.h"
#include "VyPixelFormatConverter.h"
#include "VyPixelFormatConverterImage.h"

namespace VyApi {

namespace {

// The job of a pass between a mosaic and a colour image; colour names the
// interleaved side (destination of demosaicing, source of colour to Bayer).
SBayerJob MakeJob(const CVyConvImage& src, const CVyConvImage& dest, const CVyConvImage& colour, bool bReverseY) {
  SBayerJob job;
  job.pSrc = src.Buffer();
  job.nSrcPitch = src.Pitch();
  job.pDest = dest.Buffer();
  job.nDestPitch = dest.Pitch();
  job.nWidth = src.Width();
  job.nHeight = src.Height();
  job.nComponents = colour.Components();
  job.bBGROrder = colour.BGROrder();
  job.bReverseY = bReverseY;
  job.nBitDepth = static_cast<unsigned>(dest.Depth());
  return job;
}

}  // namespace

void CVyPixelFormatConverter::ConverterColorInterporation(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const CVyConvImage s(pSrc), d(pDest);
  const SBayerJob job = MakeJob(s, d, d, bReverseY);
  const int eMethod = static_cast<int>(m_eBayerInterpolationMethod);
  if (s.Info().GetPixelBitCount() > 8)
    CColorInterporation<uint16_t>::Run(eMethod, s.Filter(), job);
  else
    CColorInterporation<uint8_t>::Run(eMethod, s.Filter(), job);
}

void CVyPixelFormatConverter::ConverterBayerBToMonoB(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const CVyConvImage s(pSrc), d(pDest);
  CBayerToMono<uint8_t>::Run(s.Filter(), MakeJob(s, d, d, bReverseY));
}

void CVyPixelFormatConverter::ConverterBayerWToMonoW(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const CVyConvImage s(pSrc), d(pDest);
  CBayerToMono<uint16_t>::Run(s.Filter(), MakeJob(s, d, d, bReverseY));
}

void CVyPixelFormatConverter::ConverterBGR8ToBayer8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const CVyConvImage s(pSrc), d(pDest);
  CColorToBayer<uint8_t>::Run(d.Filter(), MakeJob(s, d, s, bReverseY));
}

void CVyPixelFormatConverter::ConverterBGR16ToBayer16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const CVyConvImage s(pSrc), d(pDest);
  CColorToBayer<uint16_t>::Run(d.Filter(), MakeJob(s, d, s, bReverseY));
}

void CVyPixelFormatConverter::ConverterYUV2MonoOrBGR(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const CVyConvImage s(pSrc), d(pDest);
  if (d.Format() == VyPixelFormat_Mono8)
    TransformYCbCrToMono(s.Format(), s.Buffer(), s.Pitch(), d.Buffer(), d.Pitch(), s.Width(), s.Height(), bReverseY);
  else
    TransformYCbCrToColor(s.Format(), s.Buffer(), s.Pitch(), d.Buffer(), d.Pitch(), d.Components(), d.BGROrder(),
                          s.Width(), s.Height(), bReverseY);
}

void CVyPixelFormatConverter::Converter2YCbCr(IVyImage* pSrc, IVyImage* pDest, bool bReverseY) {
  const CVyConvImage s(pSrc), d(pDest);
  TransformToYCbCr(s.Format(), s.Buffer(), s.Pitch(), s.Components(), s.BGROrder(), d.Format(), d.Buffer(), d.Pitch(),
                   s.Width(), s.Height(), bReverseY);
}

}  // namespace VyApi
