// The still-image filer: saves one image to one file (RAW, BMP, JPEG, TIFF,
// PNG or CSV) and loads RAW and BMP files back into an image buffer.
#ifndef VYAPI_IVYSTILLIMAGEFILER_H
#define VYAPI_IVYSTILLIMAGEFILER_H

#include <cstdint>

#include <Base/GCString.h>
#include <VyApi_IP/EVyPixelFormatNamingConvention.h>
#include <VyApi_IP/IVyFiler.h>
#include <VyApi_IP/IVyImage.h>
#include <VyApi_IP/IVyImageBuffer.h>

namespace VyApi {

/// File formats of the still-image filer.
enum EVyStillImageFileFormat_t : int32_t {
  VyStillImageFileFormat_Raw = 0,
  VyStillImageFileFormat_BMP = 1,
  VyStillImageFileFormat_JPEG = 2,
  VyStillImageFileFormat_TIFF = 3,
  VyStillImageFileFormat_PNG = 4,
  VyStillImageFileFormat_CSV = 5
};

class IVyStillImageFiler : public IVyFiler {
public:
  /// True when Save has a way to write that pixel format in that file format:
  /// always for RAW; for the others as the writer's table says. A true answer
  /// does not promise that the file routine takes the format (the JPEG row of
  /// YCbCr422_8 and the CSV rows of the 14p formats are refused by Save).
  /// Raises nothing.
  virtual bool IsSaveSupported(EVyPixelFormatNamingConvention_t ePixelFormat,
                               EVyStillImageFileFormat_t eFileFormat) const = 0;
  /// True for RAW whatever the pixel format, false otherwise, although Load
  /// reads BMP files too. Raises nothing.
  virtual bool IsLoadSupported(EVyPixelFormatNamingConvention_t ePixelFormat,
                               EVyStillImageFileFormat_t eFileFormat) const = 0;
  /// Writes pImage to the file strName, converting it first where the file
  /// format needs another pixel format. The last directory level of the name
  /// is made if missing (a name without "/" becomes a directory itself, and
  /// the open then fails). A null image stops the process.
  /// Raises RuntimeException "Not supported pixelformat %s" (nothing written)
  /// when the pair has no row, or from the file routine; RuntimeException
  /// "File %s is unwritable." when the file cannot be opened or written;
  /// BadAllocException when memory runs out; and what the pixel-format
  /// converter raises for a converted row. A file that was opened stays on
  /// the disk with what was written to it.
  virtual void Save(IVyImage* pImage, EVyStillImageFileFormat_t eFileFormat,
                    const GenICam_3_0::gcstring& strName) const = 0;
  /// Reads a RAW or BMP file into pBuffer, which is resized to the file's
  /// image; the format comes from the file's first bytes, not from its name.
  /// Raises InvalidArgumentException "IVyImageBuffer pointer is NULL.",
  /// RuntimeException "File %s could not be opened.", RuntimeException
  /// "File %s is unreadable." for a file that is short, of another kind or
  /// inconsistent, and what the image buffer raises when sized. A pixel
  /// format code that the image buffer does not know stops the process.
  virtual void Load(IVyImageBuffer* pBuffer, const GenICam_3_0::gcstring& strName) const = 0;
  /// The JPEG quality (75 after construction). Raises nothing.
  virtual unsigned int GetQuality() const = 0;
  /// Sets the JPEG quality, 0 to 100. Raises OutOfRangeException
  /// "nValue = %lld must be equal or smaller than Max = 100" above 100, and
  /// LogicalErrorException "NULL pointer dereferenced" if the node map exists
  /// but cannot be reached.
  virtual void SetQuality(unsigned int nValue) = 0;
};

}  // namespace VyApi

#endif
