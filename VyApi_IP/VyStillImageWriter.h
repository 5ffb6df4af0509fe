// CVyStillImageWriter: saves one image to one file and loads RAW and BMP
// files back. Its logic is one look-up from (pixel format, file format) to a
// writing routine and, for some pairs, a pixel format to convert to first.
#ifndef VYAPI_IP_VYSTILLIMAGEWRITER_H
#define VYAPI_IP_VYSTILLIMAGEWRITER_H

#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <map>
#include <utility>

#include "IVyStillImageFilerInside.h"
#include "VyIPModuleBase.h"
#include "VyModuleInfo.h"

namespace VyApi {

class CVyStillImageWriter : public CVyIPModuleBase<IVyStillImageFilerInside> {
public:
  static constexpr EVyFilerType_t c_eModuleType = VyFilerType_StillImage;
  static constexpr const char* c_szModuleName = "Still Image";
  static constexpr int32_t c_nResourceID = 117;
  /// The target of a row whose image is written as it is.
  static constexpr EVyPixelFormatNamingConvention_t c_eAsItIs = static_cast<EVyPixelFormatNamingConvention_t>(0xFFFFFFFFu);
  static constexpr size_t c_nConvRows = 154;
  static constexpr unsigned int c_nQualityMin = 0;
  static constexpr unsigned int c_nQualityMax = 100;

  using PfnWriter = void (CVyStillImageWriter::*)(IVyImage*, const GenICam_3_0::gcstring&) const;

  /// One row of the writer's table.
  struct SWriterInfo {
    EVyPixelFormatNamingConvention_t ePixelFormat;
    EVyStillImageFileFormat_t eFileFormat;
    PfnWriter pfnWriter;
    EVyPixelFormatNamingConvention_t eTargetPixelFormat;  // c_eAsItIs: no conversion
  };
  using Key = std::pair<EVyPixelFormatNamingConvention_t, EVyStillImageFileFormat_t>;

  /// Raises BadAllocException when no memory is left.
  CVyStillImageWriter();
  ~CVyStillImageWriter() override = default;

  IVyFilerInfo* GetIVyFilerInfo() const override;
  bool IsSaveSupported(EVyPixelFormatNamingConvention_t ePixelFormat,
                       EVyStillImageFileFormat_t eFileFormat) const override;
  bool IsLoadSupported(EVyPixelFormatNamingConvention_t ePixelFormat,
                       EVyStillImageFileFormat_t eFileFormat) const override;
  /// See IVyStillImageFiler::Save.
  void Save(IVyImage* pImage, EVyStillImageFileFormat_t eFileFormat,
            const GenICam_3_0::gcstring& strName) const override;
  /// See IVyStillImageFiler::Load.
  void Load(IVyImageBuffer* pBuffer, const GenICam_3_0::gcstring& strName) const override;
  unsigned int GetQuality() const override;
  /// See IVyStillImageFiler::SetQuality.
  void SetQuality(unsigned int nValue) override;
  void Release() override { delete this; }

  /// The info object of the type, without an instance. Raises nothing.
  static IVyFilerInfo* GetFilerInfo() { return &m_objFilerInfo; }
  /// The row for the pair: the RAW row for file format Raw whatever the pixel
  /// format, else the table's row, or null. Raises nothing.
  const SWriterInfo* GetWriter(EVyPixelFormatNamingConvention_t ePixelFormat,
                               EVyStillImageFileFormat_t eFileFormat) const;
  /// The table, in its order. Raises nothing.
  static const std::array<SWriterInfo, c_nConvRows>& GetConvArray() { return m_cConvArray; }

protected:
  bool mRead(unsigned char* pBuffer, long Address, long* pLength) override;
  bool mWrite(const unsigned char* pBuffer, long Address, long* pLength) override;

private:
  void WriterRaw(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const;
  void WriterBMP(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const;
  void WriterJPG(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const;
  void WriterTIF(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const;
  void WriterPNG(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const;
  void WriterCsv(IVyImage* pImage, const GenICam_3_0::gcstring& strName) const;

  /// Opens strName for writing, runs fnWrite on the stream and closes it on
  /// every path. Raises RuntimeException "File %s is unwritable." when the
  /// file cannot be opened or closed, and what fnWrite raises.
  template <typename Fn>
  static void mWriteFile(const GenICam_3_0::gcstring& strName, Fn fnWrite);

  static constexpr std::array<SWriterInfo, c_nConvRows> mMakeConvArray();

  std::atomic<uint32_t> m_nQuality{75};

  static CFilerInfo<CVyStillImageWriter> m_objFilerInfo;
  static const std::array<SWriterInfo, c_nConvRows> m_cConvArray;
  static const std::map<Key, SWriterInfo> m_mapWriters;
  static const SWriterInfo m_WriterInfoForRaw;
};

}  // namespace VyApi

#endif
