#include "VyGammaCorrectionFilter.h"

#include <cstring>

#include "Kernels/LookUpTableKernel.h"

namespace VyApi {

namespace {
// Register addresses of the description.
constexpr long c_nGammaReg = 0x10;
constexpr long c_nGammaMinReg = 0x20;
constexpr long c_nGammaMaxReg = 0x28;
}  // namespace

#define VY_BAYER_ROWS(bits, fn)                                                                       \
  {VyPixelFormat_BayerGR##bits, fn}, {VyPixelFormat_BayerRG##bits, fn}, {VyPixelFormat_BayerGB##bits, fn}, \
      {VyPixelFormat_BayerBG##bits, fn}

using C = CVyGammaCorrectionFilter;

const SVyDispatchRow<EVyPixelFormatNamingConvention_t, C::PfnFilter> C::m_cConvArray[] = {
    {VyPixelFormat_Mono8, &C::CorrectionMono8},
    VY_BAYER_ROWS(8, &C::CorrectionMono8),
    {VyPixelFormat_Mono10, &C::CorrectionMono16},
    {VyPixelFormat_Mono12, &C::CorrectionMono16},
    {VyPixelFormat_Mono14, &C::CorrectionMono16},
    {VyPixelFormat_Mono16, &C::CorrectionMono16},
    VY_BAYER_ROWS(10, &C::CorrectionMono16),
    VY_BAYER_ROWS(12, &C::CorrectionMono16),
    VY_BAYER_ROWS(14, &C::CorrectionMono16),
    VY_BAYER_ROWS(16, &C::CorrectionMono16),
    {VyPixelFormat_RGB8, &C::CorrectionBGR8},
    {VyPixelFormat_RGBa8, &C::CorrectionBGR8},
    {VyPixelFormat_BGR8, &C::CorrectionBGR8},
    {VyPixelFormat_BGRa8, &C::CorrectionBGR8},
    {VyPixelFormat_BGR10, &C::CorrectionBGR16},
    {VyPixelFormat_BGRa10, &C::CorrectionBGR16},
    {VyPixelFormat_BGR12, &C::CorrectionBGR16},
    {VyPixelFormat_BGRa12, &C::CorrectionBGR16},
    {VyPixelFormat_BGR14, &C::CorrectionBGR16},
    {VyPixelFormat_BGRa14, &C::CorrectionBGR16},
    {VyPixelFormat_BGR16, &C::CorrectionBGR16},
    {VyPixelFormat_BGRa16, &C::CorrectionBGR16},
    {VyPixelFormat_YCbCr8, &C::CorrectionYCbCr},
    {VyPixelFormat_YCbCr422_8, &C::CorrectionYCbCr},
    {VyPixelFormat_YCbCr411_8, &C::CorrectionYCbCr},
    {VyPixelFormat_YCbCr709_422_8, &C::CorrectionYCbCr},
};

#undef VY_BAYER_ROWS

const std::map<EVyPixelFormatNamingConvention_t, C::PfnFilter> C::m_mapFilters = MakeDispatchMap(C::m_cConvArray);
CFilterInfo<CVyGammaCorrectionFilter> C::m_objFilter;

CVyGammaCorrectionFilter::CVyGammaCorrectionFilter() : CVyIPModuleBase(c_nResourceID) {}

IVyFilterInfo* CVyGammaCorrectionFilter::GetIVyFilterInfo() const { return &m_objFilter; }

bool CVyGammaCorrectionFilter::IsSupported(EVyPixelFormatNamingConvention_t eFormat) {
  return m_mapFilters.count(eFormat) != 0;
}

C::PfnFilter CVyGammaCorrectionFilter::GetFilter(EVyPixelFormatNamingConvention_t eFormat) {
  return LookUpDispatch(m_mapFilters, eFormat);
}

IVyImage* CVyGammaCorrectionFilter::Filter(IVyImage* pImage) {
  const EVyPixelFormatNamingConvention_t eFormat = pImage->GetImagePixelFormat();
  const PfnFilter pfn = GetFilter(eFormat);
  if (!pfn) throw VY_RUNTIME_EXCEPTION("Not supported pixelformat %s", FormatName(eFormat).c_str());
  (this->*pfn)(pImage);
  return pImage;
}

double CVyGammaCorrectionFilter::GetGammaValue() const { return m_GammaComponent.GetGamma(); }

void CVyGammaCorrectionFilter::SetGammaValue(double value) {
  // Written so that a NaN passes both limits.
  if (m_dblGammaMin > value)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %f must be greater than or equal %f", "value", value, m_dblGammaMin);
  if (value > m_dblGammaMax)
    throw VY_OUT_OF_RANGE_EXCEPTION("%s = %f must be smaller than or equal %f", "value", value, m_dblGammaMax);
  if (!m_GammaComponent.SetGamma(value)) return;
  InvalidateRegisterNode("GammaReg");
}

bool CVyGammaCorrectionFilter::mRead(unsigned char* pBuffer, long Address, long* pLength) {
  if (CVyIPModuleBase::mRead(pBuffer, Address, pLength)) return true;
  double d;
  switch (Address) {
    case c_nGammaMinReg: d = m_dblGammaMin; break;
    case c_nGammaMaxReg: d = m_dblGammaMax; break;
    case c_nGammaReg: d = GetGammaValue(); break;
    default: return false;
  }
  std::memcpy(pBuffer, &d, sizeof d);
  *pLength = sizeof d;
  return true;
}

bool CVyGammaCorrectionFilter::mWrite(const unsigned char* pBuffer, long Address, long* pLength) {
  if (Address != c_nGammaReg) return false;
  double d;
  std::memcpy(&d, pBuffer, sizeof d);
  // The node map has checked the range and knows what it wrote.
  m_GammaComponent.SetGamma(d);
  *pLength = sizeof d;
  return true;
}

CVyGammaComponent::Table* CVyGammaCorrectionFilter::mLockTable(unsigned long nBits, unsigned short nMin,
                                                              unsigned short nMax) {
  GenApi_3_0::AutoLock lock(m_Lock);
  return m_GammaComponent.LockTable(nBits, nMin, nMax);
}

namespace {

size_t ComponentBitDepth(IVyImage* pImage) {
  return GetIVyPixelFormatInfo(pImage->GetImagePixelFormat())->GetComponentBitDepth();
}

size_t ComponentCount(IVyImage* pImage) {
  return GetIVyPixelFormatInfo(pImage->GetImagePixelFormat())->GetComponentCount();
}

uint8_t* Pixels(IVyImage* pImage) { return static_cast<uint8_t*>(pImage->GetImageBuffer()); }

}  // namespace

void CVyGammaCorrectionFilter::CorrectionMono8(IVyImage* pImage) {
  CVyCountedTableRef<uint16_t> table(mLockTable(8));
  if (!table) return;
  Kernels::ApplyTable8<1, 1>(Pixels(pImage), pImage->GetImageLinePitch(), pImage->GetImageHeight(),
                             pImage->GetImageWidth(), table.Data());
}

void CVyGammaCorrectionFilter::CorrectionMono16(IVyImage* pImage) {
  CVyCountedTableRef<uint16_t> table(mLockTable(static_cast<unsigned long>(ComponentBitDepth(pImage))));
  if (!table) return;
  Kernels::ApplyTable16<1, 1>(Pixels(pImage), pImage->GetImageLinePitch(), pImage->GetImageHeight(),
                              pImage->GetImageWidth(), table.Data());
}

void CVyGammaCorrectionFilter::CorrectionBGR8(IVyImage* pImage) {
  CVyCountedTableRef<uint16_t> table(mLockTable(8));
  if (!table) return;
  const auto apply = ComponentCount(pImage) == 4 ? &Kernels::ApplyTable8<4, 3> : &Kernels::ApplyTable8<3, 3>;
  apply(Pixels(pImage), pImage->GetImageLinePitch(), pImage->GetImageHeight(), pImage->GetImageWidth(),
        table.Data());
}

void CVyGammaCorrectionFilter::CorrectionBGR16(IVyImage* pImage) {
  CVyCountedTableRef<uint16_t> table(mLockTable(static_cast<unsigned long>(ComponentBitDepth(pImage))));
  if (!table) return;
  const auto apply = ComponentCount(pImage) == 4 ? &Kernels::ApplyTable16<4, 3> : &Kernels::ApplyTable16<3, 3>;
  apply(Pixels(pImage), pImage->GetImageLinePitch(), pImage->GetImageHeight(), pImage->GetImageWidth(),
        table.Data());
}

void CVyGammaCorrectionFilter::CorrectionYCbCr(IVyImage* pImage) {
  const EVyPixelFormatNamingConvention_t eFormat = pImage->GetImagePixelFormat();
  // Studio-range BT.709 luma keeps its foot room; the others use the full range.
  const bool bStudio = eFormat == VyPixelFormat_YCbCr709_422_8;
  CVyCountedTableRef<uint16_t> table(mLockTable(8, bStudio ? 16 : 0, bStudio ? 255 : 0));
  if (!table) return;
  uint8_t* p = Pixels(pImage);
  const size_t nPitch = pImage->GetImageLinePitch();
  const size_t nHeight = pImage->GetImageHeight();
  const size_t nWidth = pImage->GetImageWidth();
  switch (eFormat) {
    case VyPixelFormat_YCbCr8:
      Kernels::ApplyTable8<3, 1>(p, nPitch, nHeight, nWidth, table.Data());
      break;
    case VyPixelFormat_YCbCr411_8:
      // One group of Y Y C per two pixels; a last odd pixel stays as it is.
      Kernels::ApplyTable8<3, 2>(p, nPitch, nHeight, nWidth / 2, table.Data());
      break;
    default:  // 4:2:2, Y at every other byte
      Kernels::ApplyTable8<2, 1>(p, nPitch, nHeight, nWidth, table.Data());
      break;
  }
}

}  // namespace VyApi
