#include "PixelConversion/VyLookUpTableManager.h"

#include <cmath>
#include <new>

#include <VyApi_IP/VyReporter.h>

namespace VyApi {

void SharedTable::Release() noexcept {
  // acq_rel on the decrement orders every read of the table before the free
  // on the thread that drops the last reference (a stand-alone fence would do
  // the same, but ThreadSanitizer does not model fences).
  if (m_nRefCount.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    delete[] m_pTable;
    delete this;
  }
}

CVyLookUpTableManager::~CVyLookUpTableManager() {
  if (m_pSharedTable != nullptr) {
    m_pSharedTable->Release();
    m_pSharedTable = nullptr;
  }
}

void CVyLookUpTableManager::FillTable(unsigned short* pTable, size_t nSourceBits, size_t nDestinationBits,
                                      double dGamma, EVyBitExpansionMode_t eMode) {
  const size_t s = nSourceBits;
  const size_t d = nDestinationBits;
  const uint32_t n = uint32_t(1) << s;
  const uint32_t nMax = (uint32_t(1) << d) - 1;

  if (dGamma == 1.0 && s >= d) {
    const unsigned shift = unsigned(s - d);
    for (uint32_t i = 0; i < n; ++i) pTable[i] = static_cast<unsigned short>(i >> shift);
    return;
  }
  if (eMode == VyBitExpansionMode_Gamma || s >= d) {
    const double dMax = double(nMax);
    const double dLast = double(n - 1);
    for (uint32_t i = 0; i < n; ++i) {
      const double y = std::fma(std::pow(double(i) / dLast, dGamma), dMax, 0.5);
      pTable[i] = (y >= dMax) ? static_cast<unsigned short>(nMax) : static_cast<unsigned short>(y);
    }
    return;
  }
  const unsigned shift = unsigned(d - s);
  if (eMode == VyBitExpansionMode_Fixed) {
    for (uint32_t i = 0; i < n; ++i) pTable[i] = static_cast<unsigned short>(i);
  } else if (eMode == VyBitExpansionMode_LeftShiftBy1) {
    const uint32_t ones = (uint32_t(1) << shift) - 1;
    for (uint32_t i = 0; i < n; ++i) pTable[i] = static_cast<unsigned short>((i << shift) | ones);
  } else {
    for (uint32_t i = 0; i < n; ++i) pTable[i] = static_cast<unsigned short>(i << shift);
  }
}

SharedTable* CVyLookUpTableManager::LockTable(size_t nSourceBits, size_t nDestinationBits) {
  VY_ASSERT(nSourceBits >= 1 && nSourceBits <= 16);
  VY_ASSERT(nDestinationBits >= 1 && nDestinationBits <= 16);

  GenApi_3_0::AutoLock lock(m_Lock_LUT);
  const double g = m_dGammaValue.load(std::memory_order_relaxed);
  const EVyBitExpansionMode_t m = m_eBitExpansionMode.load(std::memory_order_relaxed);

  if (m_pSharedTable != nullptr && m_nTableSourceBits == nSourceBits &&
      m_nTableDestinationBits == nDestinationBits && m_dTableGamma == g &&
      (nSourceBits >= nDestinationBits || m_eTableBitExpansionMode == m)) {
    m_pSharedTable->m_nRefCount.fetch_add(1, std::memory_order_relaxed);
    return m_pSharedTable;
  }

  if (m_pSharedTable != nullptr) {
    m_pSharedTable->Release();
    m_pSharedTable = nullptr;
  }

  SharedTable* pNew = nullptr;
  try {
    pNew = new SharedTable;
    pNew->m_nDestinationBits = nDestinationBits;
    pNew->m_pTable = new unsigned short[size_t(1) << nSourceBits];
  } catch (const std::bad_alloc& e) {
    delete pNew;
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
  FillTable(pNew->m_pTable, nSourceBits, nDestinationBits, g, m);

  pNew->m_nRefCount.store(1, std::memory_order_relaxed);
  m_pSharedTable = pNew;
  m_nTableSourceBits = nSourceBits;
  m_nTableDestinationBits = nDestinationBits;
  m_dTableGamma = g;
  m_eTableBitExpansionMode = m;
  pNew->m_nRefCount.fetch_add(1, std::memory_order_relaxed);
  return pNew;
}

}  // namespace VyApi
