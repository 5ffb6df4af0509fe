// Helpers shared by the library's tests.
#ifndef VYAPI_TESTS_TESTSUPPORT_H
#define VYAPI_TESTS_TESTSUPPORT_H

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <VyApi_IP/VyApi_IP.h>

namespace VyApiTest {

/// Keeps the kit initialised for the length of a test.
class KitTest : public ::testing::Test {
protected:
  void SetUp() override { VyApi::InitializeVyApi(); }
  void TearDown() override { VyApi::TerminateVyApi(); }
};

/// An owning image made through the kit's factory.
struct Image {
  VyApi::CVyAutoPtr<VyApi::IVyImageBufferReleasable, VyApi::IVyImageBuffer> buffer{VyApi::CreateIVyImageBuffer(nullptr)};

  Image(size_t w, size_t h, VyApi::EVyPixelFormatNamingConvention_t f) {
    buffer->CreateBuffer(w, h, f, VyApi::VyMemoryInitialization_Zero);
  }
  VyApi::IVyImage* img() { return buffer->GetIVyImage(); }
  uint8_t* line(size_t y) { return static_cast<uint8_t*>(img()->GetImageBuffer()) + y * img()->GetImageLinePitch(); }
  uint16_t* line16(size_t y) { return reinterpret_cast<uint16_t*>(line(y)); }
  /// Every byte of every line, pitch padding excluded.
  std::vector<uint8_t> bytes() {
    std::vector<uint8_t> v;
    const size_t n = VyApi::GetIVyPixelFormatInfo(img()->GetImagePixelFormat())->GetPixelBitCount() *
                     img()->GetImageWidth() / 8;
    for (size_t y = 0; y < img()->GetImageHeight(); ++y) v.insert(v.end(), line(y), line(y) + n);
    return v;
  }
};

/// The description of a GenICam exception, for message checks.
template <typename F>
std::string MessageOf(F&& f) {
  try {
    f();
  } catch (const GenICam::GenericException& e) {
    return e.GetDescription();
  }
  return "(nothing raised)";
}

}  // namespace VyApiTest

#endif
