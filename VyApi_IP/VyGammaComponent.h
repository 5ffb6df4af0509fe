// The gamma value of a module and the counted look-up table built from it.
#ifndef VYAPI_IP_VYGAMMACOMPONENT_H
#define VYAPI_IP_VYGAMMACOMPONENT_H

#include <cstdint>

#include <GenApi/Synch.h>

#include "VyCountedTable.h"

namespace VyApi {

class CVyGammaComponent {
public:
  using Table = CVyCountedTable<uint16_t>;

  CVyGammaComponent() = default;
  CVyGammaComponent(const CVyGammaComponent&) = delete;
  CVyGammaComponent& operator=(const CVyGammaComponent&) = delete;
  /// Drops the component's reference to a cached table.
  ~CVyGammaComponent();

  /// The current gamma, read under the gamma lock. Raises nothing.
  double GetGamma() const;
  /// Stores the gamma under the gamma lock; true when it changed. Raises nothing.
  bool SetGamma(double dblGamma);

  /// The table for nBits-bit samples, range nMin..nMax (nMax 0 meaning the
  /// depth's maximum), with one reference for the caller; null when the gamma
  /// is exactly 1.0. A cached table of the same depth and gamma is handed out
  /// whatever range it was built for. The caller holds the module lock.
  /// Raises BadAllocException when no memory is left.
  Table* LockTable(unsigned long nBits, unsigned short nMin, unsigned short nMax);

private:
  Table* m_pTable = nullptr;
  uint64_t m_nTableBits = 8;
  double m_dblTableGamma = 1.0;
  double m_dblGamma = 1.0;
  mutable GenApi_3_0::CLock m_GammaLock;
};

}  // namespace VyApi

#endif
