// CSharedTableHolder: a pixel pass's reference on a look-up table.
//
// A conversion takes a table only when the two component depths differ; with
// equal depths it copies samples and no table is made, so that gamma has no
// effect there. The holder encodes that rule: Get() is null for equal depths,
// which is what the kernels take as "copy".
#ifndef VYAPI_PIXELCONVERSION_SHAREDTABLEHOLDER_H
#define VYAPI_PIXELCONVERSION_SHAREDTABLEHOLDER_H

#include <cstddef>
#include <cstdint>

#include "PixelConversion/VyLookUpTableManager.h"

namespace VyApi {
namespace PixelConversion {

class CSharedTableHolder {
public:
  /// Locks the table nSourceBits -> nDestinationBits when they differ.
  /// Raises what CVyLookUpTableManager::LockTable raises.
  CSharedTableHolder(CVyLookUpTableManager& manager, size_t nSourceBits, size_t nDestinationBits)
      : m_pShared(nSourceBits != nDestinationBits ? manager.LockTable(nSourceBits, nDestinationBits) : nullptr) {}
  CSharedTableHolder(CSharedTableHolder&& other) noexcept : m_pShared(other.m_pShared) { other.m_pShared = nullptr; }
  CSharedTableHolder(const CSharedTableHolder&) = delete;
  CSharedTableHolder& operator=(const CSharedTableHolder&) = delete;
  CSharedTableHolder& operator=(CSharedTableHolder&&) = delete;
  ~CSharedTableHolder() {
    if (m_pShared != nullptr) m_pShared->Release();
  }

  /// The entries, or null when no table was needed. Raises nothing.
  const uint16_t* Get() const { return m_pShared != nullptr ? m_pShared->m_pTable : nullptr; }

private:
  SharedTable* m_pShared;
};

}  // namespace PixelConversion
}  // namespace VyApi

#endif
