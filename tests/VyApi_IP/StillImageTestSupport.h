// Helpers of the still-image tests: a scratch directory, whole files as
// bytes, little-endian fields.
#ifndef VYAPI_TESTS_STILLIMAGETESTSUPPORT_H
#define VYAPI_TESTS_STILLIMAGETESTSUPPORT_H

#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "TestSupport.h"

namespace VyApiTest {

/// A fresh directory, removed with its contents at the end of the scope.
class ScratchDir {
public:
  ScratchDir() {
    std::string strTemplate = testing::TempDir() + "vy_still_XXXXXX";
    std::vector<char> buf(strTemplate.begin(), strTemplate.end());
    buf.push_back('\0');
    m_strPath = ::mkdtemp(buf.data()) ? std::string(buf.data()) : std::string();
  }
  ~ScratchDir() {
    if (!m_strPath.empty()) (void)std::system(("rm -rf '" + m_strPath + "'").c_str());
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;
  std::string operator/(const std::string& strName) const { return m_strPath + "/" + strName; }
  const std::string& path() const { return m_strPath; }

private:
  std::string m_strPath;
};

inline std::vector<uint8_t> ReadBytes(const std::string& strPath) {
  std::ifstream is(strPath, std::ios::binary);
  return std::vector<uint8_t>(std::istreambuf_iterator<char>(is), std::istreambuf_iterator<char>());
}

inline void WriteBytes(const std::string& strPath, const std::vector<uint8_t>& v) {
  std::ofstream os(strPath, std::ios::binary | std::ios::trunc);
  os.write(reinterpret_cast<const char*>(v.data()), static_cast<std::streamsize>(v.size()));
}

inline std::string ReadText(const std::string& strPath) {
  const std::vector<uint8_t> v = ReadBytes(strPath);
  return std::string(v.begin(), v.end());
}

inline uint64_t LE(const std::vector<uint8_t>& v, size_t nOffset, size_t nBytes) {
  uint64_t n = 0;
  for (size_t i = 0; i < nBytes; ++i) n |= static_cast<uint64_t>(v.at(nOffset + i)) << (8 * i);
  return n;
}

inline void PutLE(std::vector<uint8_t>& v, size_t nOffset, uint64_t n, size_t nBytes) {
  for (size_t i = 0; i < nBytes; ++i) v.at(nOffset + i) = static_cast<uint8_t>(n >> (8 * i));
}

inline bool IsDirectory(const std::string& strPath) {
  struct stat st;
  return ::stat(strPath.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

inline bool Exists(const std::string& strPath) {
  struct stat st;
  return ::stat(strPath.c_str(), &st) == 0;
}

/// An image whose line pitch is a multiple of nAlignment bytes.
inline void SizeWithAlignment(Image& im, size_t w, size_t h, VyApi::EVyPixelFormatNamingConvention_t f,
                              size_t nAlignment) {
  auto* pInside = dynamic_cast<VyApi::IVyImageBufferInside*>(im.buffer.Get());
  ASSERT_NE(pInside, nullptr);
  pInside->SetSize(w, h, f, nAlignment);
}

/// Every byte of the image set to a pattern of its position, masked to the
/// bits of the format's 16-bit cells where it has them (packed formats keep
/// every bit).
inline void FillPattern(Image& im, unsigned nSeed = 1) {
  VyApi::IVyImage* p = im.img();
  const VyApi::IVyPixelFormatInfo* pInfo = VyApi::GetIVyPixelFormatInfo(p->GetImagePixelFormat());
  const size_t nDepth = pInfo->GetPixelBitCount() % 16 == 0 ? pInfo->GetComponentBitDepth() : 8;
  const size_t nPitch = p->GetImageLinePitch();
  for (size_t y = 0; y < p->GetImageHeight(); ++y)
    for (size_t i = 0; i < nPitch; ++i) im.line(y)[i] = static_cast<uint8_t>(nSeed * 37 + y * 11 + i * 7);
  if (nDepth > 8 && nDepth < 16)
    for (size_t y = 0; y < p->GetImageHeight(); ++y)
      for (size_t i = 0; i < nPitch / 2; ++i) im.line16(y)[i] &= static_cast<uint16_t>((1u << nDepth) - 1);
}

}  // namespace VyApiTest

#endif
