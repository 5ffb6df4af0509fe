// GetIVyPixelFormatInfo: the objects are made once, on the first call, from
// the constant table; afterwards a call is a binary search over a sorted
// index, without any lock.
#include <algorithm>
#include <array>
#include <memory>
#include <vector>

#include <VyApi_IP/IVyPixelFormatInfo.h>

#include "VyApi_TL/VyPixelFormatInfo.h"

namespace VyApi {

namespace {

class CVyPixelFormatService {
public:
  CVyPixelFormatService() {
    m_Infos.reserve(g_nPixelFormatRowCount);
    for (size_t i = 0; i < g_nPixelFormatRowCount; ++i) {
      const SVyPixelFormatRow& row = g_cPixelFormatRows[i];
      const SVyPixelFormatRow* pSiblings =
          row.eKind == VyFormatKind_Bayer ? &g_cPixelFormatRows[i - row.nBayerPhase] : nullptr;
      m_Infos.emplace_back(row, pSiblings);
    }
    for (size_t i = 0; i < g_nPixelFormatRowCount; ++i) m_Index[i] = &m_Infos[i];
    std::sort(m_Index.begin(), m_Index.end(),
              [](const CVyPixelFormatInfo* a, const CVyPixelFormatInfo* b) { return a->GetCode() < b->GetCode(); });
  }

  IVyPixelFormatInfo* Find(EVyPixelFormatNamingConvention_t code) const {
    auto it = std::lower_bound(m_Index.begin(), m_Index.end(), code,
                               [](const CVyPixelFormatInfo* a, EVyPixelFormatNamingConvention_t c) {
                                 return a->GetCode() < c;
                               });
    return (it != m_Index.end() && (*it)->GetCode() == code) ? *it : nullptr;
  }

private:
  std::vector<CVyPixelFormatInfo> m_Infos;
  std::array<CVyPixelFormatInfo*, g_nPixelFormatRowCount> m_Index{};
};

const CVyPixelFormatService& Service() {
  // Made on first use, so that other libraries' static initialisation may
  // ask, and never destroyed, so that their static destructors may ask too.
  static const CVyPixelFormatService* const s_pService = new CVyPixelFormatService();
  return *s_pService;
}

}  // namespace

IVyPixelFormatInfo* GetIVyPixelFormatInfo(EVyPixelFormatNamingConvention_t format) {
  return Service().Find(format);
}

}  // namespace VyApi
