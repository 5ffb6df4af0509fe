// Gamma-corrects a grey ramp through the node map and prints a few values.
#include <cstdio>
#include <cstring>

#include <VyApi_IP/VyApi_IP.h>

int main() {
  using namespace VyApi;
  try {
    CVyApiAutoInit kit;
    CVyAutoPtr<IVyFilterReleasable, IVyGammaCorrectionFilter> gamma(CreateIVyFilter(VyFilterType_GammaCorrection));
    GenApi::CFloatPtr node = gamma->GetINodeMap()->GetNode("Gamma");
    node->SetValue(2.0);

    CVyAutoPtr<IVyImageBufferReleasable, IVyImageBuffer> buffer(CreateIVyImageBuffer(nullptr));
    buffer->CreateBuffer(256, 1, VyPixelFormat_Mono8, VyMemoryInitialization_Zero);
    IVyImage* image = buffer->GetIVyImage();
    unsigned char* p = static_cast<unsigned char*>(image->GetImageBuffer());
    for (int x = 0; x < 256; ++x) p[x] = static_cast<unsigned char>(x);
    gamma->Filter(image);
    std::printf("gamma %.1f: 128 -> %d, 255 -> %d\n", gamma->GetGammaValue(), p[128], p[255]);
    return p[128] == 64 && p[255] == 255 ? 0 : 1;
  } catch (const GenICam::GenericException& e) {
    std::fprintf(stderr, "error: %s\n", e.what());
    return 1;
  }
}
