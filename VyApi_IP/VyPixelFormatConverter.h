// CVyPixelFormatConverter: the converter of type 0. It holds the registers,
// the look-up table manager (which also keeps the gamma and the bit expansion
// mode) and the dispatch table from a (source, destination) pair of formats to
// one member function. A table function is either a primitive that wires a
// pixel kernel, or a route step that picks one intermediate format and calls
// mConvert twice through the same table, so that routes chain without any
// search at run time.
//
// Sources of the class, by family:
//   VyPixelFormatConverter.cpp        registers, accessors, Convert, mConvert,
//                                     ConvertViaTmp, the four routes, ConverterCopy
//   VyPixelFormatConverterTable.cpp   the dispatch table, expanded from its groups
//   VyPixelFormatConverterDepth.cpp   raw, mono and colour depth and channel primitives
//   VyPixelFormatConverterPlanar.cpp  planar primitives
//   VyPixelFormatConverterPacked.cpp  bit-stream, GVSP, colour stream and 10p32 primitives
//   VyPixelFormatConverterBayer.cpp   demosaicing, Bayer to mono, colour to Bayer, YCbCr
#ifndef VYAPI_IP_VYPIXELFORMATCONVERTER_H
#define VYAPI_IP_VYPIXELFORMATCONVERTER_H

#include <cstddef>
#include <map>
#include <utility>
#include <vector>

#include "IVyPixelFormatConverterInside.h"
#include "PixelConversion/VyLookUpTableManager.h"
#include "VyIPModuleBase.h"
#include "VyModuleInfo.h"

namespace VyApi {

class CVyPixelFormatConverter : public CVyIPModuleBase<IVyPixelFormatConverterInside> {
public:
  static constexpr EVyConverterType_t c_eModuleType = VyConverterType_PixelFormat;
  static constexpr const char* c_szModuleName = "Pixel Format";
  static constexpr int32_t c_nResourceID = 109;

  using PfnConverter = void (CVyPixelFormatConverter::*)(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  using ConvKey = std::pair<EVyPixelFormatNamingConvention_t, EVyPixelFormatNamingConvention_t>;

  /// One row of the dispatch table; the name is the function's own, kept for
  /// diagnostics and for checking the table.
  struct SConvRow {
    EVyPixelFormatNamingConvention_t eSource;
    EVyPixelFormatNamingConvention_t eDestination;
    PfnConverter pfn;
    const char* szName;
  };

  /// Raises BadAllocException when no memory is left.
  CVyPixelFormatConverter();
  /// The look-up table manager, a member, drops its table before the base's
  /// clean-up runs.
  ~CVyPixelFormatConverter() override = default;

  /// Raises nothing.
  IVyConverterInfo* GetIVyConverterInfo() const override;
  /// See IVyPixelFormatConverter for what it raises.
  void Convert(IVyImage* pSrc, IVyImageBuffer* pDest) override;

  size_t GetLinePitchAlignment() const override;
  void SetLinePitchAlignment(size_t nAlignment) override;
  EVyPixelFormatNamingConvention_t GetDestinationPixelFormat() const override;
  void SetDestinationPixelFormat(EVyPixelFormatNamingConvention_t eFormat) override;
  bool GetReverseY() const override;
  void SetReverseY(bool bReverseY) override;
  EVyBayerInterpolationMethod_t GetBayerInterpolationMethod() const override;
  void SetBayerInterpolationMethod(EVyBayerInterpolationMethod_t eMethod) override;
  double GetGammaValue() const override;
  void SetGammaValue(double dGamma) override;
  bool GetDestinationPixelFormatNodeLock() const override;
  void SetDestinationPixelFormatNodeLock(bool bLock) override;
  void Release() override { delete this; }

  /// ConverterCopy for equal formats, else the table's function or null. Raises
  /// nothing.
  PfnConverter GetConverter(EVyPixelFormatNamingConvention_t eSource,
                            EVyPixelFormatNamingConvention_t eDestination) const;
  /// True when the current destination format is reached from eSource. Raises
  /// nothing.
  bool IsSupportedFormat(EVyPixelFormatNamingConvention_t eSource) const;

  /// The dispatch table as rows, first row of a key winning. Raises nothing.
  static const std::vector<SConvRow>& GetConvArray() { return m_cConvArray; }
  /// The name of the function a key reaches, or null when the table has no
  /// such key (equal formats included). Raises nothing.
  static const char* GetConverterName(EVyPixelFormatNamingConvention_t eSource,
                                      EVyPixelFormatNamingConvention_t eDestination);

protected:
  bool mRead(unsigned char* pBuffer, long Address, long* pLength) override;
  bool mWrite(const unsigned char* pBuffer, long Address, long* pLength) override;

private:
  // One table step: sizes pDest as eDest (mirroring a Bayer phase under a flip
  // of even height) and runs the pair's function.
  void mConvert(IVyImage* pSrc, IVyImageBuffer* pDest, EVyPixelFormatNamingConvention_t eDest, bool bReverseY);
  // Two table steps through a temporary buffer of the pool; the flip goes to the first step only.
  void ConvertViaTmp(IVyImage* pSrc, IVyImage* pDest, EVyPixelFormatNamingConvention_t eTmp,
                     EVyPixelFormatNamingConvention_t eDest, bool bReverseY);

  // Route steps.
  void ConverterViaRaw(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterViaSameBitRaw(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterViaSameBitBGR(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterViaUnpack(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);

  // Primitives.
  void ConverterCopy(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterPackedToUnpacked(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterUnpackedToPacked8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterGEVPackedToUnpacked(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterUnpackedBToGevPacked(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterMonoB2BGRB_RGBB(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterMonoB2BGRW_RGBW(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterMonoW2BGRW_RGBW(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterColorInterporation(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterYUV2MonoOrBGR(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void Converter2YCbCr(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBayerBToMonoB(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBayerWToMonoW(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterRawMono8ToRawMono16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterRawMono16ToRawMono16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterRawMono16ToRawMono8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRx8ToBGR10p(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRx16ToBGR10p(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGR10p32ToBGRx8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGR10pToBGRx16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRxWToBGRxW(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRx8ToBGRx8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRx8ToBGRx16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRx16ToBGRx8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGR8ToMono8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGR16ToMono16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGR16ToMono8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGR8ToBayer8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGR16ToBayer16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterPlanarToNonPlanar_8_8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterPlanarToNonPlanar_8_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterPlanarToNonPlanar_16_8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterPlanarToNonPlanar_16_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterNonPlanarToPlanar_8_8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterNonPlanarToPlanar_8_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterNonPlanarToPlanar_16_8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterNonPlanarToPlanar_16_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterPlanarToPlanar_8_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterPlanarToPlanar_16_8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterPlanarToPlanar_16_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterMonoToPlanar_8_8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterMonoToPlanar_8_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterMonoToPlanar_16_8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterMonoToPlanar_16_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRxToBGRXp_8_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRpxToBGRX_16_8(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRxToBGRXp_16_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);
  void ConverterBGRpxToBGRX_16_16(IVyImage* pSrc, IVyImage* pDest, bool bReverseY);

  static std::vector<SConvRow> mBuildConvArray();

  // The info object comes first so that it exists before anything can ask it.
  mutable CConverterInfo<CVyPixelFormatConverter> m_objConverterInfo{this};
  EVyBayerInterpolationMethod_t m_eBayerInterpolationMethod = VyBayerInterpolationMethod_NearestNeighbor2;
  CVyLookUpTableManager m_LookUpTableManager;
  bool m_bReverseY = false;
  EVyPixelFormatNamingConvention_t m_eDestinationPixelFormat = VyPixelFormat_BGR8;
  double m_dGammaMin = 0.0;
  double m_dGammaMax = 4.0;
  bool m_bDestinationPixelFormatNodeLock = false;
  size_t m_nLinePitchAlignment = 0;

  static const std::vector<SConvRow> m_cConvArray;
  static const std::map<ConvKey, PfnConverter> m_mapConverters;
};

}  // namespace VyApi

#endif
