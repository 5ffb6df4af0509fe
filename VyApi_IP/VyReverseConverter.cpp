#include "VyReverseConverter.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "Kernels/ReverseKernel.h"

namespace VyApi {

namespace {

// Register addresses of the description.
constexpr long c_nReverseXReg = 0x10;
constexpr long c_nReverseYReg = 0x18;
constexpr long c_nRotationModeReg = 0x20;

using Fmt = EVyPixelFormatNamingConvention_t;
using Mode = CVyReverseConverter::EVY_FLIPPING_ROTATING_MODE;

// The move of each rotation (rows) for the flags (columns: neither, Y, X, both).
// A quarter turn with one flip is a transposition; with both flips it is the
// opposite turn.
constexpr Mode c_aModes[3][4] = {
    {CVyReverseConverter::VY_FRM_NONE, CVyReverseConverter::VY_FRM_FLIP_Y, CVyReverseConverter::VY_FRM_FLIP_X,
     CVyReverseConverter::VY_FRM_FLIP_XY},
    {CVyReverseConverter::VY_FRM_CLOCKWISE, CVyReverseConverter::VY_FRM_TRANSPOSED,
     CVyReverseConverter::VY_FRM_ANTI_TRANSPOSED, CVyReverseConverter::VY_FRM_COUNTERCLOCKWISE},
    {CVyReverseConverter::VY_FRM_COUNTERCLOCKWISE, CVyReverseConverter::VY_FRM_ANTI_TRANSPOSED,
     CVyReverseConverter::VY_FRM_TRANSPOSED, CVyReverseConverter::VY_FRM_CLOCKWISE},
};

// Bayer formats by phase (RG, GR, GB, BG) and depth (8, 10, 12, 14, 16).
constexpr Fmt c_aBayerFormats[4][5] = {
    {VyPixelFormat_BayerRG8, VyPixelFormat_BayerRG10, VyPixelFormat_BayerRG12, VyPixelFormat_BayerRG14,
     VyPixelFormat_BayerRG16},
    {VyPixelFormat_BayerGR8, VyPixelFormat_BayerGR10, VyPixelFormat_BayerGR12, VyPixelFormat_BayerGR14,
     VyPixelFormat_BayerGR16},
    {VyPixelFormat_BayerGB8, VyPixelFormat_BayerGB10, VyPixelFormat_BayerGB12, VyPixelFormat_BayerGB14,
     VyPixelFormat_BayerGB16},
    {VyPixelFormat_BayerBG8, VyPixelFormat_BayerBG10, VyPixelFormat_BayerBG12, VyPixelFormat_BayerBG14,
     VyPixelFormat_BayerBG16},
};

// The phase as two bits: bit 0 is set when the mosaic is shifted by one column
// from RG (GR, BG), bit 1 when it is shifted by one row (GB, BG). That is the
// order of EVyPixelColorFilter_t from BayerRG on.
unsigned PhaseBits(EVyPixelColorFilter_t eFilter) { return static_cast<unsigned>(eFilter - VyPixelColorFilter_BayerRG); }

// A quarter turn exchanges the column and the row phase. The axis that the turn
// reverses (the source's columns for a clockwise turn, which become rows read
// from the last; its rows for a counter-clockwise one) shifts the phase by one
// more when its length is even.
unsigned TurnedPhase(unsigned nPhase, int32_t nRotation, size_t nWidth, size_t nHeight) {
  const unsigned nSwapped = ((nPhase & 1u) << 1) | ((nPhase >> 1) & 1u);
  switch (nRotation) {
    case VyRotationMode_Clockwise90: return nHeight % 2 == 0 ? nSwapped ^ 1u : nSwapped;
    case VyRotationMode_Counterclockwise90: return nWidth % 2 == 0 ? nSwapped ^ 2u : nSwapped;
    default: return nPhase;
  }
}

size_t DepthColumn(size_t nDepth) {
  switch (nDepth) {
    case 10: return 1;
    case 12: return 2;
    case 14: return 3;
    case 16: return 4;
    default: return 0;
  }
}

// Moves every pixel of pSrc into pDst, which already has the moved size.
template <size_t PixelBytes, size_t MovedBytes = PixelBytes>
void MoveImage(IVyImage* pSrc, IVyImage* pDst, Mode eMode) {
  const uint8_t* s = static_cast<const uint8_t*>(pSrc->GetImageBuffer());
  const size_t nWidth = pSrc->GetImageWidth();
  const size_t nHeight = pSrc->GetImageHeight();
  const size_t nSrcPitch = pSrc->GetImageLinePitch();
  uint8_t* d = static_cast<uint8_t*>(pDst->GetImageBuffer());
  const size_t nDstWidth = pDst->GetImageWidth();
  const size_t nDstHeight = pDst->GetImageHeight();
  const ptrdiff_t nDstPitch = static_cast<ptrdiff_t>(pDst->GetImageLinePitch());
  constexpr ptrdiff_t N = static_cast<ptrdiff_t>(PixelBytes);
  const ptrdiff_t nLastLine = static_cast<ptrdiff_t>(nDstHeight - 1) * nDstPitch;
  const ptrdiff_t nLastPixel = static_cast<ptrdiff_t>(nDstWidth - 1) * N;
  switch (eMode) {
    case CVyReverseConverter::VY_FRM_NONE:
      for (size_t y = 0; y < nHeight; ++y)
        std::memcpy(d + static_cast<ptrdiff_t>(y) * nDstPitch, s + y * nSrcPitch, nWidth * PixelBytes);
      break;
    case CVyReverseConverter::VY_FRM_FLIP_X:
      Kernels::ReverseLinesX<PixelBytes, MovedBytes>(s, nSrcPitch, nWidth, nHeight, d, nDstPitch);
      break;
    case CVyReverseConverter::VY_FRM_FLIP_Y:
      // Whole lines of the destination's pitch, whatever the source's; the
      // source's pitch bounds each read so that it stays inside the source.
      Kernels::ReverseLinesY(s, nSrcPitch, nHeight, d, static_cast<size_t>(nDstPitch),
                             std::min(static_cast<size_t>(nDstPitch), nSrcPitch), nWidth * PixelBytes);
      break;
    case CVyReverseConverter::VY_FRM_FLIP_XY:
      Kernels::ReverseLinesX<PixelBytes, MovedBytes>(s, nSrcPitch, nWidth, nHeight, d + nLastLine, -nDstPitch);
      break;
    case CVyReverseConverter::VY_FRM_CLOCKWISE:
      Kernels::TurnQuarter<PixelBytes, MovedBytes>(s, nSrcPitch, nWidth, nHeight, d + nLastPixel, nDstPitch, -N);
      break;
    case CVyReverseConverter::VY_FRM_COUNTERCLOCKWISE:
      Kernels::TurnQuarter<PixelBytes, MovedBytes>(s, nSrcPitch, nWidth, nHeight, d + nLastLine, -nDstPitch, N);
      break;
    case CVyReverseConverter::VY_FRM_TRANSPOSED:
      Kernels::TurnQuarter<PixelBytes, MovedBytes>(s, nSrcPitch, nWidth, nHeight, d, nDstPitch, N);
      break;
    case CVyReverseConverter::VY_FRM_ANTI_TRANSPOSED:
      Kernels::TurnQuarter<PixelBytes, MovedBytes>(s, nSrcPitch, nWidth, nHeight, d + nLastLine + nLastPixel,
                                                   -nDstPitch, -N);
      break;
    default:
      VY_ASSERT(false);
  }
}

const IVyPixelFormatInfo& InfoOf(IVyImage* pImage) {
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(pImage->GetImagePixelFormat());
  VY_ASSERT_NOT_NULL(pInfo);
  return *pInfo;
}

}  // namespace

#define VY_BAYER_ROWS(bits, fn)                                                                            \
  {VyPixelFormat_BayerGR##bits, fn}, {VyPixelFormat_BayerRG##bits, fn}, {VyPixelFormat_BayerGB##bits, fn}, \
      {VyPixelFormat_BayerBG##bits, fn}

using C = CVyReverseConverter;

const SVyDispatchRow<Fmt, C::PfnConverter> C::m_cConvArray[] = {
    {VyPixelFormat_Mono8, &C::ConverterRawOrMono},
    {VyPixelFormat_Mono10, &C::ConverterRawOrMono},
    {VyPixelFormat_Mono12, &C::ConverterRawOrMono},
    {VyPixelFormat_Mono14, &C::ConverterRawOrMono},
    {VyPixelFormat_Mono16, &C::ConverterRawOrMono},
    VY_BAYER_ROWS(8, &C::ConverterRawOrMono),
    VY_BAYER_ROWS(10, &C::ConverterRawOrMono),
    VY_BAYER_ROWS(12, &C::ConverterRawOrMono),
    VY_BAYER_ROWS(14, &C::ConverterRawOrMono),
    VY_BAYER_ROWS(16, &C::ConverterRawOrMono),
    {VyPixelFormat_BGR8, &C::ConverterRGB},
    {VyPixelFormat_BGRa8, &C::ConverterRGB},
    {VyPixelFormat_RGB8, &C::ConverterRGB},
    {VyPixelFormat_RGBa8, &C::ConverterRGB},
    {VyPixelFormat_YCbCr8, &C::ConverterRGB},
    {VyPixelFormat_BGR10, &C::ConverterRGB},
    {VyPixelFormat_BGRa10, &C::ConverterRGB},
    {VyPixelFormat_BGR12, &C::ConverterRGB},
    {VyPixelFormat_BGRa12, &C::ConverterRGB},
    {VyPixelFormat_BGR14, &C::ConverterRGB},
    {VyPixelFormat_BGRa14, &C::ConverterRGB},
    {VyPixelFormat_BGR16, &C::ConverterRGB},
    {VyPixelFormat_BGRa16, &C::ConverterRGB},
    {VyPixelFormat_CBGR10p32, &C::ConverterRGB10p32},
    {VyPixelFormat_RGB10p32, &C::ConverterRGB10p32},
};

#undef VY_BAYER_ROWS

const std::map<Fmt, C::PfnConverter> C::m_mapConverters = MakeDispatchMap(C::m_cConvArray);

CVyReverseConverter::CVyReverseConverter() : CVyIPModuleBase(c_nResourceID) {}

IVyConverterInfo* CVyReverseConverter::GetIVyConverterInfo() const { return &m_objConverterInfo; }

C::PfnConverter CVyReverseConverter::GetConverter(Fmt eFormat) { return LookUpDispatch(m_mapConverters, eFormat); }

bool CVyReverseConverter::IsSupported(Fmt eFormat) { return m_mapConverters.count(eFormat) != 0; }

// ---------------------------------------------------------------- accessors

size_t CVyReverseConverter::GetLinePitchAlignment() const { return m_nLinePitchAlignment; }
void CVyReverseConverter::SetLinePitchAlignment(size_t nAlignment) { m_nLinePitchAlignment = nAlignment; }

bool CVyReverseConverter::GetReverseX() const { return m_bReverseX; }
void CVyReverseConverter::SetReverseX(bool bReverseX) {
  StoreSetting(m_bReverseX, bReverseX, "ReverseXReg");
}

bool CVyReverseConverter::GetReverseY() const { return m_bReverseY; }
void CVyReverseConverter::SetReverseY(bool bReverseY) {
  StoreSetting(m_bReverseY, bReverseY, "ReverseYReg");
}

EVyRotationMode_t CVyReverseConverter::GetRotationMode() const { return m_eRotationMode; }
void CVyReverseConverter::SetRotationMode(EVyRotationMode_t eRM) {
  // Compared without sign, so that a negative value is refused too.
  if (static_cast<uint32_t>(eRM) > VyRotationMode_Counterclockwise90)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %lld must be smaller than Max = %lld", "eRM", static_cast<long long>(eRM),
                                    3LL);
  StoreSetting(m_eRotationMode, eRM, "RotationModeReg");
}

// ---------------------------------------------------------------- registers

bool CVyReverseConverter::mRead(unsigned char* pBuffer, long Address, long* pLength) {
  if (CVyIPModuleBase::mRead(pBuffer, Address, pLength)) return true;
  uint32_t n;
  switch (Address) {
    case c_nReverseXReg: n = GetReverseX() ? 1u : 0u; break;
    case c_nReverseYReg: n = GetReverseY() ? 1u : 0u; break;
    case c_nRotationModeReg: n = static_cast<uint32_t>(GetRotationMode()); break;
    default: return false;
  }
  std::memcpy(pBuffer, &n, sizeof n);
  *pLength = sizeof n;
  return true;
}

bool CVyReverseConverter::mWrite(const unsigned char* pBuffer, long Address, long* pLength) {
  if (Address != c_nReverseXReg && Address != c_nReverseYReg && Address != c_nRotationModeReg) return false;
  uint32_t n;
  std::memcpy(&n, pBuffer, sizeof n);
  // The node map has checked the value; the rotation is stored as written and
  // Convert treats what it cannot use as no rotation.
  if (Address == c_nReverseXReg)
    m_bReverseX = n == 1;
  else if (Address == c_nReverseYReg)
    m_bReverseY = n == 1;
  else
    m_eRotationMode = static_cast<EVyRotationMode_t>(static_cast<int32_t>(n));
  *pLength = sizeof n;
  return true;
}

// ---------------------------------------------------------------- conversion

C::EVY_FLIPPING_ROTATING_MODE CVyReverseConverter::GetMode(int32_t nRotation, bool bReverseX, bool bReverseY) {
  if (nRotation > VyRotationMode_Counterclockwise90) nRotation = VyRotationMode_OFF;
  if (nRotation < 0) return VY_FLIPPING_ROTATING_MODE_COUNT;
  return c_aModes[nRotation][(bReverseX ? 2 : 0) + (bReverseY ? 1 : 0)];
}

Fmt CVyReverseConverter::GetDestinationFormat(Fmt eSource, size_t nWidth, size_t nHeight, int32_t nRotation,
                                              bool bReverseX, bool bReverseY) {
  const IVyPixelFormatInfo* pInfo = GetIVyPixelFormatInfo(eSource);
  if (pInfo == nullptr || !pInfo->IsBayer()) return eSource;
  // A flip over an odd length leaves every site's colour where it was. The
  // flags count as they are set, whatever the rotation.
  const size_t x0 = bReverseX && nWidth % 2 == 0 ? 1 : 0;
  const size_t y0 = bReverseY && nHeight % 2 == 0 ? 1 : 0;
  const unsigned nPhase = TurnedPhase(PhaseBits(pInfo->GetPixelColorFilter(x0, y0)), nRotation, nWidth, nHeight);
  return c_aBayerFormats[nPhase & 3u][DepthColumn(pInfo->GetComponentBitDepth())];
}

void CVyReverseConverter::Convert(IVyImage* pSrc, IVyImageBuffer* pDest) {
  IVyImageBufferInside* pDestIVyImageInside = dynamic_cast<IVyImageBufferInside*>(pDest);
  VY_ASSERT_NOT_NULL(pDestIVyImageInside);
  if (pSrc == nullptr) throw VY_INVALID_ARGUMENT_EXCEPTION("IVyImage pointer is NULL.");
  // The settings are sampled once; a setter on another thread affects the next call.
  const SSettings settings{m_eRotationMode, m_bReverseX, m_bReverseY};
  const EVY_FLIPPING_ROTATING_MODE eFRM = GetMode(settings.nRotation, settings.bReverseX, settings.bReverseY);
  VY_ASSERT(eFRM < VY_FLIPPING_ROTATING_MODE_COUNT);

  if (!pDestIVyImageInside->HasImageBuffer() || pDest->GetIVyImage() != pSrc) {
    if (eFRM == VY_FRM_NONE)
      pDest->CopyImage(pSrc);
    else
      mConvert(pSrc, pDest, eFRM, settings);
    return;
  }
  // In place: nothing to do without a move; otherwise move from a copy.
  if (eFRM == VY_FRM_NONE) return;
  CTempolaryBuffer tmp(*this);
  tmp->CopyImage(pSrc);
  mConvert(tmp->GetIVyImage(), pDest, eFRM, settings);
}

void CVyReverseConverter::mConvert(IVyImage* pSrc, IVyImageBuffer* pDest, EVY_FLIPPING_ROTATING_MODE eMode,
                                   const SSettings& settings) {
  const Fmt eFormat = pSrc->GetImagePixelFormat();
  const PfnConverter pfn = GetConverter(eFormat);
  if (pfn == nullptr) throw VY_RUNTIME_EXCEPTION("Not supported pixelformat %s", FormatName(eFormat).c_str());
  IVyImageInside* pSrcIVyImageInside = dynamic_cast<IVyImageInside*>(pSrc);
  VY_ASSERT_NOT_NULL(pSrcIVyImageInside);
  const size_t nWidth = pSrcIVyImageInside->GetImageWidth();
  const size_t nHeight = pSrcIVyImageInside->GetImageHeight();
  const Fmt eDest =
      GetDestinationFormat(eFormat, nWidth, nHeight, settings.nRotation, settings.bReverseX, settings.bReverseY);
  const bool bTurned = eMode >= VY_FRM_CLOCKWISE;
  IVyImageBufferInside* pDestIVyImageInside = dynamic_cast<IVyImageBufferInside*>(pDest);
  VY_ASSERT_NOT_NULL(pDestIVyImageInside);
  pDestIVyImageInside->SetSize(bTurned ? nHeight : nWidth, bTurned ? nWidth : nHeight, eDest, m_nLinePitchAlignment);
  (this->*pfn)(pSrc, pDestIVyImageInside->GetIVyImage(), eMode);
}

// ---------------------------------------------------------------- movers

void CVyReverseConverter::ConverterRawOrMono(IVyImage* pSrc, IVyImage* pDest, EVY_FLIPPING_ROTATING_MODE eMode) {
  const size_t nDepth = InfoOf(pSrc).GetComponentBitDepth();
  if (nDepth <= 8)
    MoveImage<1>(pSrc, pDest, eMode);
  else if (nDepth <= 16)
    MoveImage<2>(pSrc, pDest, eMode);
  else
    VY_ASSERT(false);
}

void CVyReverseConverter::ConverterRGB(IVyImage* pSrc, IVyImage* pDest, EVY_FLIPPING_ROTATING_MODE eMode) {
  // Only the three colour cells move; an alpha cell keeps what the destination held.
  const IVyPixelFormatInfo& info = InfoOf(pSrc);
  const size_t nDepth = info.GetComponentBitDepth();
  const bool bAlpha = info.GetComponentCount() == 4;
  VY_ASSERT(info.GetComponentCount() == 3 || bAlpha);
  if (nDepth <= 8)
    bAlpha ? MoveImage<4, 3>(pSrc, pDest, eMode) : MoveImage<3>(pSrc, pDest, eMode);
  else if (nDepth <= 16)
    bAlpha ? MoveImage<8, 6>(pSrc, pDest, eMode) : MoveImage<6>(pSrc, pDest, eMode);
  else
    VY_ASSERT(false);
}

void CVyReverseConverter::ConverterRGB10p32(IVyImage* pSrc, IVyImage* pDest, EVY_FLIPPING_ROTATING_MODE eMode) {
  MoveImage<4>(pSrc, pDest, eMode);
}

}  // namespace VyApi
