#include "VyGammaComponent.h"

#include <cmath>
#include <cstring>

namespace VyApi {

CVyGammaComponent::~CVyGammaComponent() {
  if (m_pTable) m_pTable->Release();
}

double CVyGammaComponent::GetGamma() const {
  GenApi_3_0::AutoLock lock(m_GammaLock);
  return m_dblGamma;
}

bool CVyGammaComponent::SetGamma(double dblGamma) {
  GenApi_3_0::AutoLock lock(m_GammaLock);
  // A NaN never equals itself, so it is always stored.
  if (m_dblGamma == dblGamma) return false;
  m_dblGamma = dblGamma;
  return true;
}

CVyGammaComponent::Table* CVyGammaComponent::LockTable(unsigned long nBits, unsigned short nMin, unsigned short nMax) {
  const double g = GetGamma();
  if (g == 1.0) return nullptr;
  if (m_pTable && m_nTableBits == nBits && m_dblTableGamma == g) {
    m_pTable->AddRef();
    return m_pTable;
  }
  if (m_pTable) {
    m_pTable->Release();
    m_pTable = nullptr;
  }
  m_nTableBits = nBits;
  m_dblTableGamma = g;

  const size_t n = size_t(1) << nBits;
  if (nMax == 0) nMax = static_cast<unsigned short>(n - 1);
  Table* pTable = Table::Create(n);
  uint16_t* pEntries = pTable->Data();
  // Entries below nMin are never produced by the curve; they are zero so that
  // the table's content is the same on every run.
  std::memset(pEntries, 0, n * sizeof(uint16_t));
  const unsigned short r = static_cast<unsigned short>(nMax - nMin);
  for (unsigned int i = nMin; i <= nMax; ++i) {
    const double v = std::fma(std::pow(double(i - nMin) / double(r), g), double(r), double(nMin)) + 0.5;
    pEntries[i] = (v < double(nMax)) ? static_cast<uint16_t>(v) : nMax;
  }
  pTable->AddRef();
  m_pTable = pTable;
  pTable->AddRef();
  return pTable;
}

}  // namespace VyApi
