#include <VyApi_IP/VyFilterPtrList.h>

namespace VyApi {

CIVyFilterPtrArray::~CIVyFilterPtrArray() {
  try {
    Release();
  } catch (...) {
  }
}

IVyImage* CIVyFilterPtrArray::Filter(IVyImage* pImage) {
  const size_t n = GetSize();
  for (size_t i = 0; i < n; ++i) pImage = (*this)[i]->Filter(pImage);
  return pImage;
}

void CIVyFilterPtrArray::Release() {
  while (GetSize() != 0) Deregister(0)->Release();
}

}  // namespace VyApi
