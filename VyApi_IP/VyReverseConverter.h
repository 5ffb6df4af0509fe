// CVyReverseConverter: the converter of type 1. It flips an image in X or Y
// and turns it by a quarter turn into a destination buffer. The three settings
// reduce to one of eight moves; a dispatch table from the pixel format picks
// the mover for the format's pixel width, and the movers wire the kernels of
// Kernels/ReverseKernel.h.
#ifndef VYAPI_IP_VYREVERSECONVERTER_H
#define VYAPI_IP_VYREVERSECONVERTER_H

#include <cstddef>
#include <map>

#include "IVyReverseConverterInside.h"
#include "VyDispatchMap.h"
#include "VyIPModuleBase.h"
#include "VyModuleInfo.h"

namespace VyApi {

class CVyReverseConverter : public CVyIPModuleBase<IVyReverseConverterInside> {
public:
  static constexpr EVyConverterType_t c_eModuleType = VyConverterType_Reverse;
  static constexpr const char* c_szModuleName = "Reverse";
  static constexpr int32_t c_nResourceID = 110;

  /// The eight moves. With source pixel (x, y) of a W x H source and a
  /// destination of Wd x Hd, the pixel lands at:
  enum EVY_FLIPPING_ROTATING_MODE : int32_t {
    VY_FRM_NONE = 0,              ///< (x, y), W x H
    VY_FRM_FLIP_X = 1,            ///< (W-1-x, y), W x H
    VY_FRM_FLIP_Y = 2,            ///< (x, H-1-y), W x H
    VY_FRM_FLIP_XY = 3,           ///< (W-1-x, H-1-y), W x H
    VY_FRM_CLOCKWISE = 4,         ///< (Wd-1-y, x), H x W
    VY_FRM_COUNTERCLOCKWISE = 5,  ///< (y, Hd-1-x), H x W
    VY_FRM_TRANSPOSED = 6,        ///< (y, x), H x W
    VY_FRM_ANTI_TRANSPOSED = 7,   ///< (Wd-1-y, Hd-1-x), H x W
    VY_FLIPPING_ROTATING_MODE_COUNT = 8
  };

  using PfnConverter = void (CVyReverseConverter::*)(IVyImage* pSrc, IVyImage* pDest,
                                                     EVY_FLIPPING_ROTATING_MODE eMode);

  /// Raises BadAllocException when no memory is left.
  CVyReverseConverter();
  ~CVyReverseConverter() override = default;

  /// Raises nothing.
  IVyConverterInfo* GetIVyConverterInfo() const override;
  /// See IVyReverseConverter for what it raises.
  void Convert(IVyImage* pSrc, IVyImageBuffer* pDest) override;

  // The accessors raise what IVyReverseConverter documents.
  size_t GetLinePitchAlignment() const override;
  void SetLinePitchAlignment(size_t nAlignment) override;
  bool GetReverseX() const override;
  void SetReverseX(bool bReverseX) override;
  bool GetReverseY() const override;
  void SetReverseY(bool bReverseY) override;
  EVyRotationMode_t GetRotationMode() const override;
  void SetRotationMode(EVyRotationMode_t eRotationMode) override;
  void Release() override { delete this; }

  /// The mover of the format, or null. Raises nothing.
  static PfnConverter GetConverter(EVyPixelFormatNamingConvention_t eFormat);
  /// True when the format has a mover (a plain copy takes any format). Raises nothing.
  static bool IsSupported(EVyPixelFormatNamingConvention_t eFormat);
  /// The same, for the info object. Raises nothing.
  bool IsSupportedFormat(EVyPixelFormatNamingConvention_t eFormat) const { return IsSupported(eFormat); }

  /// The move of a rotation and the two flags. A rotation above 2 counts as
  /// none; a negative one has no move and gives VY_FLIPPING_ROTATING_MODE_COUNT.
  /// Raises nothing.
  static EVY_FLIPPING_ROTATING_MODE GetMode(int32_t nRotation, bool bReverseX, bool bReverseY);
  /// The destination format of a move: the source format, except that a
  /// Bayer format takes the phase that the flips and the turn give it.
  /// Raises nothing.
  static EVyPixelFormatNamingConvention_t GetDestinationFormat(EVyPixelFormatNamingConvention_t eSource,
                                                              size_t nWidth, size_t nHeight, int32_t nRotation,
                                                              bool bReverseX, bool bReverseY);

protected:
  bool mRead(unsigned char* pBuffer, long Address, long* pLength) override;
  bool mWrite(const unsigned char* pBuffer, long Address, long* pLength) override;

private:
  // The settings as one Convert call saw them.
  struct SSettings {
    int32_t nRotation;
    bool bReverseX;
    bool bReverseY;
  };

  // Sizes pDest for the move (with the Bayer phase the move gives) and runs
  // the format's mover. Raises RuntimeException "Not supported pixelformat %s".
  void mConvert(IVyImage* pSrc, IVyImageBuffer* pDest, EVY_FLIPPING_ROTATING_MODE eMode, const SSettings& settings);

  void ConverterRawOrMono(IVyImage* pSrc, IVyImage* pDest, EVY_FLIPPING_ROTATING_MODE eMode);
  void ConverterRGB(IVyImage* pSrc, IVyImage* pDest, EVY_FLIPPING_ROTATING_MODE eMode);
  void ConverterRGB10p32(IVyImage* pSrc, IVyImage* pDest, EVY_FLIPPING_ROTATING_MODE eMode);

  // The info object comes first so that it exists before anything can ask it.
  mutable CConverterInfo<CVyReverseConverter> m_objConverterInfo{this};
  bool m_bReverseX = false;
  bool m_bReverseY = false;
  EVyRotationMode_t m_eRotationMode = VyRotationMode_OFF;
  size_t m_nLinePitchAlignment = 1;

  static const SVyDispatchRow<EVyPixelFormatNamingConvention_t, PfnConverter> m_cConvArray[];
  static const std::map<EVyPixelFormatNamingConvention_t, PfnConverter> m_mapConverters;
};

}  // namespace VyApi

#endif
