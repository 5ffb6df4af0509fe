#include "ColorInterpolation/ColorInterporation.h"

#include <cerrno>
#include <new>

#include <VyApi_IP/VyReporter.h>

#include "ColorInterpolation/ColorInterpolationBiCubic.h"
#include "ColorInterpolation/ColorInterpolationBilinearFalseColorReduction.h"
#include "ColorInterpolation/ColorInterpolationBilinearSimple.h"
#include "ColorInterpolation/ColorInterpolationNearestNeighbor.h"
#include "ColorInterpolation/ColorInterpolationNearestNeighbor2.h"
#include "ColorInterpolation/ColorInterpolationNone.h"

namespace VyApi {
namespace {

template <typename Sample>
using PFKernel = void (*)(const SBayerJob&);

// One row per method (by value), one column per phase (RG, GR, GB, BG).
template <typename Sample, template <typename, EBayerPhase_t> class Kernel>
constexpr PFKernel<Sample> PhaseRow[4] = {&Kernel<Sample, BayerPhase_RG>::Run, &Kernel<Sample, BayerPhase_GR>::Run,
                                          &Kernel<Sample, BayerPhase_GB>::Run, &Kernel<Sample, BayerPhase_BG>::Run};

template <typename Sample>
PFKernel<Sample> KernelFor(int eMethod, uint32_t eFilter) {
  static const PFKernel<Sample>* const s_aTable[6] = {
      PhaseRow<Sample, CColorInterpolationNone>,
      PhaseRow<Sample, CColorInterpolationNearestNeighbor>,
      PhaseRow<Sample, CColorInterpolationNearestNeighbor2>,
      PhaseRow<Sample, CColorInterpolationBilinearSimple>,
      PhaseRow<Sample, CColorInterpolationBilinearFalseColorReduction>,
      PhaseRow<Sample, CColorInterpolationBiCubic>};
  return s_aTable[eMethod][eFilter - BayerPhase_RG];
}

}  // namespace

template <typename Sample>
unsigned int CColorInterporation<Sample>::Run(int eMethod, uint32_t eColorFilter, const SBayerJob& job) {
  const size_t w = job.nWidth, h = job.nHeight;
  if (w <= 1 || h <= 1)
    throw VY_RUNTIME_EXCEPTION("Not supported image size %u x %u", static_cast<unsigned>(w),
                               static_cast<unsigned>(h));
  int eRun = eMethod;
  if (w <= 3 || h <= 3)
    eRun = eMethod == BayerMethod_None ? BayerMethod_None : BayerMethod_NearestNeighbor;
  else if (eRun < BayerMethod_None || eRun > BayerMethod_BiCubic)
    VY_ASSERT(false);
  if (!IsBayerPhase(eColorFilter)) {
    errno = static_cast<int>(nNotBayerError);
    return nNotBayerError;
  }
  try {
    KernelFor<Sample>(eRun, eColorFilter)(job);
  } catch (const std::bad_alloc& e) {
    throw VY_BAD_ALLOC_EXCEPTION("%s", e.what());
  }
  return 0;
}

template class CColorInterporation<uint8_t>;
template class CColorInterporation<uint16_t>;

}  // namespace VyApi
