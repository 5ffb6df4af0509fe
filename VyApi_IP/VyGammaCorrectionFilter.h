// CVyGammaCorrectionFilter: raises every sample to the power gamma, in place,
// through a look-up table cached per (depth, gamma).
#ifndef VYAPI_IP_VYGAMMACORRECTIONFILTER_H
#define VYAPI_IP_VYGAMMACORRECTIONFILTER_H

#include <map>

#include "IVyGammaCorrectionFilterInside.h"
#include "VyDispatchMap.h"
#include "VyGammaComponent.h"
#include "VyIPModuleBase.h"
#include "VyModuleInfo.h"

namespace VyApi {

class CVyGammaCorrectionFilter : public CVyIPModuleBase<IVyGammaCorrectionFilterInside> {
public:
  static constexpr EVyFilterType_t c_eModuleType = VyFilterType_GammaCorrection;
  static constexpr const char* c_szModuleName = "Gamma Correction";
  static constexpr int32_t c_nResourceID = 105;

  using PfnFilter = void (CVyGammaCorrectionFilter::*)(IVyImage*);

  /// Raises BadAllocException when no memory is left.
  CVyGammaCorrectionFilter();
  ~CVyGammaCorrectionFilter() override = default;

  IVyFilterInfo* GetIVyFilterInfo() const override;
  /// Raises RuntimeException "Not supported pixelformat %s" (image untouched)
  /// and BadAllocException when the table cannot be made.
  IVyImage* Filter(IVyImage* pImage) override;
  double GetGammaValue() const override;
  /// See IVyGammaCorrectionFilter::SetGammaValue.
  void SetGammaValue(double value) override;
  void Release() override { delete this; }

  /// The info object of the type, without an instance. Raises nothing.
  static IVyFilterInfo* GetFilterInfo() { return &m_objFilter; }
  /// True when the filter takes the format. Raises nothing.
  static bool IsSupported(EVyPixelFormatNamingConvention_t eFormat);
  /// The member function of the format, or null. Raises nothing.
  static PfnFilter GetFilter(EVyPixelFormatNamingConvention_t eFormat);

protected:
  bool mRead(unsigned char* pBuffer, long Address, long* pLength) override;
  bool mWrite(const unsigned char* pBuffer, long Address, long* pLength) override;

private:
  void CorrectionMono8(IVyImage* pImage);
  void CorrectionMono16(IVyImage* pImage);
  void CorrectionBGR8(IVyImage* pImage);
  void CorrectionBGR16(IVyImage* pImage);
  void CorrectionYCbCr(IVyImage* pImage);

  /// The table for the image's pass, fetched under the module lock.
  CVyGammaComponent::Table* mLockTable(unsigned long nBits, unsigned short nMin = 0, unsigned short nMax = 0);

  double m_dblGammaMin = 0.0;
  double m_dblGammaMax = 4.0;
  CVyGammaComponent m_GammaComponent;

  static CFilterInfo<CVyGammaCorrectionFilter> m_objFilter;
  static const SVyDispatchRow<EVyPixelFormatNamingConvention_t, PfnFilter> m_cConvArray[];
  static const std::map<EVyPixelFormatNamingConvention_t, PfnFilter> m_mapFilters;
};

}  // namespace VyApi

#endif
