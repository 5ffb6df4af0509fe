// A small byte image for the YCbCr kernel tests: lines with a pitch larger
// than their data, the padding pre-filled with a marker, so that a write
// beyond a line's data is seen.
#ifndef TESTS_YCBCR_YCBCRTESTIMAGE_H
#define TESTS_YCBCR_YCBCRTESTIMAGE_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace VyApiTest {

constexpr uint8_t YCbCrMarker = 0xA5;

struct CYCbCrTestImage {
  CYCbCrTestImage(size_t nLineBytes, size_t nHeight, size_t nPadding = 3)
      : m_nLineBytes(nLineBytes), m_nPitch(nLineBytes + nPadding), m_nHeight(nHeight),
        m_vecData(m_nPitch * nHeight, YCbCrMarker) {}

  uint8_t* Line(size_t y) { return m_vecData.data() + y * m_nPitch; }
  const uint8_t* Line(size_t y) const { return m_vecData.data() + y * m_nPitch; }
  uint8_t* Data() { return m_vecData.data(); }
  /// The data bytes of line y, without padding.
  std::vector<uint8_t> Bytes(size_t y) const { return {Line(y), Line(y) + m_nLineBytes}; }
  /// True when no padding byte has been touched.
  bool PaddingIntact() const {
    for (size_t y = 0; y < m_nHeight; ++y)
      for (size_t i = m_nLineBytes; i < m_nPitch; ++i)
        if (Line(y)[i] != YCbCrMarker) return false;
    return true;
  }

  size_t m_nLineBytes;
  size_t m_nPitch;
  size_t m_nHeight;
  std::vector<uint8_t> m_vecData;
};

}  // namespace VyApiTest

#endif
