// Three planar line buffers (red, green, blue) of one output line, and the
// store that interleaves them into the destination in its component order.
// The demosaicing kernels compute a line into the planes with unit-stride,
// vectorisable loops, fix up the border columns, then store once.
#ifndef VYAPI_IP_COLORINTERPOLATION_BAYERLINEPLANES_H
#define VYAPI_IP_COLORINTERPOLATION_BAYERLINEPLANES_H

#include <cstddef>
#include <vector>

#include "ColorInterpolation/BayerJob.h"
#include "ColorInterpolation/BayerLineStore.h"
#include "ColorInterpolation/BayerPhase.h"

namespace VyApi {

template <typename Sample>
class CBayerLinePlanes {
public:
  /// Raises std::bad_alloc when the line buffers cannot be had.
  explicit CBayerLinePlanes(const SBayerJob& job)
      : m_vecBuffer(3 * (job.nWidth + 1)), m_nWidth(job.nWidth),
        m_pfStore(CBayerLineStore::Select<Sample>(job.nComponents)) {
    for (unsigned k = 0; k < 3; ++k) m_pPlane[k] = m_vecBuffer.data() + k * (job.nWidth + 1);
    m_pOrdered[0] = m_pPlane[job.bBGROrder ? BayerColour_B : BayerColour_R];
    m_pOrdered[1] = m_pPlane[BayerColour_G];
    m_pOrdered[2] = m_pPlane[job.bBGROrder ? BayerColour_R : BayerColour_B];
  }

  Sample* Plane(EBayerColour_t eColour) { return m_pPlane[eColour]; }

  /// Writes the line's nWidth pixels to pDestLine; alpha stays as it was.
  void Store(Sample* pDestLine) const { m_pfStore(pDestLine, m_pOrdered, m_nWidth); }

private:
  std::vector<Sample> m_vecBuffer;
  size_t m_nWidth;
  typename CBayerLineStore::PFStore<Sample> m_pfStore;
  Sample* m_pPlane[3];
  const Sample* m_pOrdered[3];
};

}  // namespace VyApi

#endif
