#include "VyRawWriter.h"

#include <cstring>

#include <VyApi_IP/VyReporter.h>

namespace VyApi {

const char pszRawHeader[5] = "VYRW";

namespace {

// Little-endian fields, written and read one by one so that the struct needs
// no packing.
template <typename T>
void Put(uint8_t*& p, T v) {
  for (size_t i = 0; i < sizeof(T); ++i) p[i] = static_cast<uint8_t>(static_cast<uint64_t>(v) >> (8 * i));
  p += sizeof(T);
}

template <typename T>
T Get(const uint8_t*& p) {
  uint64_t v = 0;
  for (size_t i = 0; i < sizeof(T); ++i) v |= static_cast<uint64_t>(p[i]) << (8 * i);
  p += sizeof(T);
  return static_cast<T>(v);
}

void PutHeader(uint8_t* p, const SVyRawHeader& h) {
  std::memcpy(p, h.szMagic, sizeof h.szMagic);
  p += sizeof h.szMagic;
  for (uint32_t n : h.nStamp) Put(p, n);
  Put(p, h.nHeaderSize);
  Put(p, h.nDataSize);
  Put(p, h.nWidth);
  Put(p, h.nHeight);
  Put(p, h.nLinePitch);
  Put(p, h.nPixelFormat);
  Put(p, h.nReserved);
}

// Reads the fields that lie within the first nBytes bytes; the others keep
// their defaults.
SVyRawHeader GetHeader(const uint8_t* p, size_t nBytes) {
  const uint8_t* const pEnd = p + nBytes;
  SVyRawHeader h;
  std::memcpy(h.szMagic, p, sizeof h.szMagic);
  p += sizeof h.szMagic;
  for (uint32_t& n : h.nStamp) n = Get<uint32_t>(p);
  h.nHeaderSize = Get<uint64_t>(p);
  h.nDataSize = Get<uint64_t>(p);
  h.nWidth = Get<uint64_t>(p);
  h.nHeight = Get<uint64_t>(p);
  h.nLinePitch = Get<uint64_t>(p);
  h.nPixelFormat = 0;
  if (p + 4 <= pEnd) h.nPixelFormat = Get<uint32_t>(p);
  if (p + 4 <= pEnd) h.nReserved = Get<uint32_t>(p);
  return h;
}

}  // namespace

void WriteRaw(IVyImage* pImage, const GenICam_3_0::gcstring& strName, FILE* pFile) {
  IVyImageInside* pSrcIVyImageInside = dynamic_cast<IVyImageInside*>(pImage);
  VY_ASSERT_NOT_NULL(pSrcIVyImageInside);
  const size_t nPitch = pSrcIVyImageInside->GetImageLinePitch();
  const size_t nHeight = pSrcIVyImageInside->GetImageHeight();

  SVyRawHeader header;
  header.nDataSize = static_cast<uint64_t>(nPitch) * nHeight;
  header.nWidth = pSrcIVyImageInside->GetImageWidth();
  header.nHeight = nHeight;
  header.nLinePitch = nPitch;
  header.nPixelFormat = pSrcIVyImageInside->GetImagePixelFormat();
  uint8_t bytes[SVyRawHeader::c_nSize];
  PutHeader(bytes, header);
  if (std::fwrite(bytes, 1, sizeof bytes, pFile) != sizeof bytes)
    throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());

  const size_t nData = nPitch * nHeight;
  if (std::fwrite(pSrcIVyImageInside->GetImageBuffer(), 1, nData, pFile) != nData)
    throw VY_RUNTIME_EXCEPTION("File %s is unwritable.", strName.c_str());
}

void LoadRaw(IVyImageBuffer* pBuffer, const GenICam_3_0::gcstring& strName, FILE* pFile) {
  auto unreadable = [&strName]() { return VY_RUNTIME_EXCEPTION("File %s is unreadable.", strName.c_str()); };

  uint8_t bytes[SVyRawHeader::c_nSize];
  size_t nHeaderBytes = SVyRawHeader::c_nMinSize;
  if (std::fseek(pFile, 0, SEEK_SET) != 0) throw unreadable();
  if (std::fread(bytes, 1, nHeaderBytes, pFile) != nHeaderBytes) throw unreadable();
  const uint64_t nHeaderSize = GetHeader(bytes, nHeaderBytes).nHeaderSize;
  if (nHeaderSize < SVyRawHeader::c_nMinSize || nHeaderSize > SVyRawHeader::c_nSize) throw unreadable();
  if (nHeaderSize > nHeaderBytes) {
    nHeaderBytes = static_cast<size_t>(nHeaderSize);
    if (std::fseek(pFile, 0, SEEK_SET) != 0) throw unreadable();
    if (std::fread(bytes, 1, nHeaderBytes, pFile) != nHeaderBytes) throw unreadable();
  }
  // The data start right behind the header; the stream stands there now.
  const SVyRawHeader header = GetHeader(bytes, nHeaderBytes);

  IVyImageBufferInside* pBufferInside = dynamic_cast<IVyImageBufferInside*>(pBuffer);
  VY_ASSERT_NOT_NULL(pBufferInside);
  // Aligning lines to the file's own pitch gives back exactly that pitch
  // whenever a line of the width fits in it.
  pBufferInside->SetSize(static_cast<size_t>(header.nWidth), static_cast<size_t>(header.nHeight),
                         static_cast<EVyPixelFormatNamingConvention_t>(header.nPixelFormat),
                         static_cast<size_t>(header.nLinePitch));
  IVyImage* pImage = pBuffer->GetIVyImage();
  const size_t nPitch = pImage->GetImageLinePitch();
  const size_t nHeight = pImage->GetImageHeight();
  if (nPitch != header.nLinePitch || nPitch * nHeight != header.nLinePitch * header.nHeight) throw unreadable();

  const size_t nData = nPitch * nHeight;
  if (std::fread(pImage->GetImageBuffer(), 1, nData, pFile) != nData) throw unreadable();
}

}  // namespace VyApi
