// CVyLookUpTableManager: the single place where samples change depth.
//
// A table maps every value of the source depth to a 16-bit value of the
// destination depth, gamma included, so that a pixel pass costs one load a
// sample. The manager caches the most recent table and hands it out counted:
// a pixel pass holds its own reference while a setter on another thread may
// cause the next LockTable call to replace the cached table; the last holder
// frees it.
//
// The converter module owns one manager and keeps its gamma value and bit
// expansion mode in it (m_dGammaValue, m_eBitExpansionMode), reading and
// writing them directly. They are atomics only so that a set during a running
// conversion is not a data race; the pair is not updated as a unit.
#ifndef VYAPI_PIXELCONVERSION_VYLOOKUPTABLEMANAGER_H
#define VYAPI_PIXELCONVERSION_VYLOOKUPTABLEMANAGER_H

#include <atomic>
#include <cstddef>
#include <cstdint>

#include <GenApi/Synch.h>

#include "PixelConversion/EVyBitExpansionMode.h"

namespace VyApi {

/// A published table with its reference count. Contents never change after
/// LockTable has returned it.
struct SharedTable {
  unsigned short* m_pTable = nullptr;      ///< 2^source-bits entries, array new
  std::atomic<int64_t> m_nRefCount{0};     ///< the manager and each caller
  size_t m_nDestinationBits = 0;           ///< depth of the entries

  /// Drops one reference; the last one frees the array and the holder.
  /// Raises nothing.
  void Release() noexcept;
};

class CVyLookUpTableManager {
public:
  CVyLookUpTableManager() = default;
  CVyLookUpTableManager(const CVyLookUpTableManager&) = delete;
  CVyLookUpTableManager& operator=(const CVyLookUpTableManager&) = delete;
  /// Drops the manager's reference on the cached table. Raises nothing.
  ~CVyLookUpTableManager();

  /// Returns the table from nSourceBits to nDestinationBits for the current
  /// gamma and expansion mode, with one reference for the caller, who must
  /// call Release() on it. Reuses the cached table when its key matches (the
  /// mode counts only for expansions), otherwise builds a new one.
  /// nSourceBits and nDestinationBits lie in 1..16 (asserted).
  /// Raises GenICam::BadAllocException when the table cannot be allocated.
  SharedTable* LockTable(size_t nSourceBits, size_t nDestinationBits);

  /// Fills pTable (2^nSourceBits entries) by the table rules; used by
  /// LockTable and exposed so that the rules can be checked entry by entry.
  /// Raises nothing.
  static void FillTable(unsigned short* pTable, size_t nSourceBits, size_t nDestinationBits, double dGamma,
                        EVyBitExpansionMode_t eMode);

  /// Gamma of the next table; the exponent applied to the normalised value.
  std::atomic<double> m_dGammaValue{1.0};
  /// Expansion mode of the next table.
  std::atomic<EVyBitExpansionMode_t> m_eBitExpansionMode{VyBitExpansionMode_Gamma};

private:
  GenApi_3_0::CLock m_Lock_LUT;
  SharedTable* m_pSharedTable = nullptr;
  size_t m_nTableSourceBits = 0;
  size_t m_nTableDestinationBits = 0;
  double m_dTableGamma = 0.0;
  EVyBitExpansionMode_t m_eTableBitExpansionMode = VyBitExpansionMode_Gamma;
};

}  // namespace VyApi

#endif
