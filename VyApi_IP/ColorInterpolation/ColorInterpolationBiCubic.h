// Demosaicing method BiCubic, two passes.
// Pass 1 interpolates each line's two colours along the line (the four-tap
// kernel where columns c - 3 and c + 3 exist, the mean or the border copy
// elsewhere) and leaves the third colour unwritten.
// Pass 2 works on destination line numbers d, whatever the flip: it assumes
// that even lines hold colour F and odd lines colour O (F red when
// RGGB/GRBG without flip or GBRG/BGGR with flip, else blue), and fills the
// missing one vertically: the kernel on lines d -+ 1 and d -+ 3 in the
// middle, means and copies near the ends (CColorInterpolationBiCubic::mRule).
// With a flip on an odd height that assumption is false and the pass
// overwrites true samples and leaves components unwritten; heights 6 and 7
// run a short pass that reads positions w pixels behind lines 1 and 3 and
// line 4's unwritten O. Both are kept as they are; they run on the
// destination in place (mPassTwoInPlace). Every other case is computed in
// one sweep with the same rule on pass-1 lines kept in a ring.
// Widths up to 6 hand over to BilinearFalseColorReduction.
// Input: an SBayerJob with source mosaic, 3/4-component destination and the
// destination's component bit depth; w >= 4 and h >= 4.
#ifndef VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONBICUBIC_H
#define VYAPI_IP_COLORINTERPOLATION_COLORINTERPOLATIONBICUBIC_H

#include <cstring>
#include <vector>

#include "ColorInterpolation/BayerLineInterpolation.h"
#include "ColorInterpolation/BayerLinePlanes.h"
#include "ColorInterpolation/ColorInterpolationBilinearFalseColorReduction.h"

namespace VyApi {

template <typename Sample, EBayerPhase_t Phase>
class CColorInterpolationBiCubic {
public:
  /// Raises std::bad_alloc for the line buffers.
  static void Run(const SBayerJob& job) {
    if (job.nWidth <= 6) {
      CColorInterpolationBilinearFalseColorReduction<Sample, Phase>::Run(job);
      return;
    }
    const size_t h = job.nHeight;
    const bool bInPlace = (job.bReverseY && (h & 1)) || h == 6 || h == 7;
    if (bInPlace)
      mRunInPlace(job);
    else
      mRunSweep(job);
  }

private:
  typedef CBayerLineInterpolation<Sample> Interp;

  enum ERuleKind_t { RuleCopy, RuleMean, RuleKernel };
  struct SRule {
    ERuleKind_t eKind;
    size_t a, b, e, f;  // near lines a, b; outer lines e, f
  };

  /// Pass 2 for destination line d of h lines (h >= 4, h not 6 or 7).
  static SRule mRule(size_t d, size_t h) {
    const size_t E = h & ~size_t(1);
    if (d == 0) return {RuleCopy, 1, 0, 0, 0};
    if (d == 1 || d == 2) return {RuleMean, d - 1, d + 1, 0, 0};
    if (h < 6) {  // E = 4
      if (d == 3) return (h & 1) ? SRule{RuleMean, 2, 4, 0, 0} : SRule{RuleCopy, 2, 0, 0, 0};
      return {RuleCopy, 3, 0, 0, 0};
    }
    if (d + 4 <= E) return {RuleKernel, d - 1, d + 1, d - 3, d + 3};
    if (d + 3 == E || d + 2 == E) return {RuleMean, d - 1, d + 1, 0, 0};
    if (d + 1 == E) return (h & 1) ? SRule{RuleMean, d - 1, d + 1, 0, 0} : SRule{RuleCopy, d - 1, 0, 0, 0};
    return {RuleCopy, d - 1, 0, 0, 0};  // d == E, odd h
  }

  static bool mRedFirst(const SBayerJob& job) {
    const bool bRedOnLineZero = Phase == BayerPhase_RG || Phase == BayerPhase_GR;
    return bRedOnLineZero != job.bReverseY;
  }

  /// Pass 1 for source line r: its non-green colour, and its green.
  static void mColourLine(const SBayerJob& job, size_t r, Sample* pOut, typename Interp::Wide nMax) {
    if (r & 1)
      Interp::template Line<BayerLineColourParity(Phase, 1), true>(job.SrcLine<Sample>(r), pOut, job.nWidth, nMax);
    else
      Interp::template Line<BayerLineColourParity(Phase, 0), true>(job.SrcLine<Sample>(r), pOut, job.nWidth, nMax);
  }
  static void mGreenLine(const SBayerJob& job, size_t r, Sample* pOut, typename Interp::Wide nMax) {
    if (r & 1)
      Interp::template Line<1 - BayerLineColourParity(Phase, 1), true>(job.SrcLine<Sample>(r), pOut, job.nWidth,
                                                                        nMax);
    else
      Interp::template Line<1 - BayerLineColourParity(Phase, 0), true>(job.SrcLine<Sample>(r), pOut, job.nWidth,
                                                                        nMax);
  }

  static typename Interp::Wide mMax(const SBayerJob& job) {
    return static_cast<typename Interp::Wide>((1u << job.nBitDepth) - 1u);
  }

  /// Both passes in one sweep over destination lines; pass-1 colours of the
  /// lines d - 3 .. d + 3 are kept in a ring of eight lines.
  VY_KERNEL_CLONES static void mRunSweep(const SBayerJob& job) {
    const size_t w = job.nWidth, h = job.nHeight;
    const typename Interp::Wide nMax = mMax(job);
    CBayerLinePlanes<Sample> planes(job);
    std::vector<Sample> vecRing(8 * w);
    auto ring = [&](size_t d) { return vecRing.data() + (d & 7) * w; };
    auto srcLine = [&](size_t d) { return job.bReverseY ? h - 1 - d : d; };
    const EBayerColour_t eF = mRedFirst(job) ? BayerColour_R : BayerColour_B;
    const EBayerColour_t eO = eF == BayerColour_R ? BayerColour_B : BayerColour_R;
    size_t nReady = 0;  // ring holds lines below nReady
    for (size_t d = 0; d < h; ++d) {
      for (; nReady < h && nReady <= d + 3; ++nReady)
        mColourLine(job, srcLine(nReady), ring(nReady), nMax);
      mGreenLine(job, srcLine(d), planes.Plane(BayerColour_G), nMax);
      const EBayerColour_t eOwn = (d & 1) ? eO : eF;
      const EBayerColour_t eMissing = (d & 1) ? eF : eO;
      std::memcpy(planes.Plane(eOwn), ring(d), w * sizeof(Sample));
      Sample* __restrict pOut = planes.Plane(eMissing);
      const SRule rule = mRule(d, h);
      const Sample* __restrict pa = ring(rule.a);
      if (rule.eKind == RuleCopy) {
        std::memcpy(pOut, pa, w * sizeof(Sample));
      } else if (rule.eKind == RuleMean) {
        const Sample* __restrict pb = ring(rule.b);
        for (size_t c = 0; c < w; ++c) pOut[c] = Interp::Mean(pa[c], pb[c]);
      } else {
        const Sample* __restrict pb = ring(rule.b);
        const Sample* __restrict pe = ring(rule.e);
        const Sample* __restrict pf = ring(rule.f);
        size_t c = 0;
        if constexpr (sizeof(Sample) == 1) c = CBayerLineSimd::BiCubicColumn8(pa, pb, pe, pf, pOut, w, nMax);
        for (; c < w; ++c) pOut[c] = Interp::Kernel(pa[c], pb[c], pe[c], pf[c], nMax);
      }
      planes.Store(job.DestLineAt<Sample>(d));
    }
  }

  /// Pass 1 into the destination (two components per pixel), then pass 2
  /// in place on destination memory, step by step.
  static void mRunInPlace(const SBayerJob& job) {
    const size_t w = job.nWidth, h = job.nHeight, n = job.nComponents;
    const typename Interp::Wide nMax = mMax(job);
    std::vector<Sample> vecGreen(w), vecColour(w);
    for (size_t r = 0; r < h; ++r) {
      mGreenLine(job, r, vecGreen.data(), nMax);
      mColourLine(job, r, vecColour.data(), nMax);
      const EBayerColour_t eOwn = BayerLineColour(Phase, r & 1);
      const size_t iOwn = eOwn == BayerColour_R ? job.RedIndex() : job.BlueIndex();
      Sample* pDest = job.DestLine<Sample>(r);
      for (size_t c = 0; c < w; ++c) {
        pDest[c * n + 1] = vecGreen[c];
        pDest[c * n + iOwn] = vecColour[c];
      }
    }
    const size_t iF = mRedFirst(job) ? job.RedIndex() : job.BlueIndex();
    const size_t iO = mRedFirst(job) ? job.BlueIndex() : job.RedIndex();
    auto line = [&](size_t d) { return job.DestLineAt<Sample>(d); };
    if (h != 6 && h != 7) {
      for (size_t d = 0; d < h; ++d) {
        const size_t i = (d & 1) ? iF : iO;
        const SRule rule = mRule(d, h);
        Sample* pOut = line(d);
        const Sample *pa = line(rule.a), *pb = line(rule.b), *pe = line(rule.e), *pf = line(rule.f);
        for (size_t c = 0; c < w; ++c) {
          const size_t k = c * n + i;
          pOut[k] = rule.eKind == RuleCopy   ? pa[k]
                    : rule.eKind == RuleMean ? Interp::Mean(pa[k], pb[k])
                                             : Interp::Kernel(pa[k], pb[k], pe[k], pf[k], nMax);
        }
      }
      return;
    }
    // Heights 6 and 7: the short pass, each step over all columns in turn.
    auto step = [&](size_t d, size_t i, auto value) {
      for (size_t c = 0; c < w; ++c) line(d)[c * n + i] = value(c * n + i);
    };
    step(0, iO, [&](size_t k) { return line(1)[k]; });
    step(1, iF, [&](size_t k) { return Interp::Mean(line(0)[k], line(2)[k]); });
    step(2, iO, [&](size_t k) { return Interp::Mean(line(1)[k], line(3)[k]); });
    // w pixels behind the start of lines 1 and 3, as if lines were tight.
    step(3, iF, [&](size_t k) { return Interp::Mean(line(1)[w * n + k], line(3)[w * n + k]); });
    step(3, iO, [&](size_t k) { return Interp::Mean(line(3)[k], line(4)[k]); });
    if (h == 6) {
      step(4, iF, [&](size_t k) { return line(3)[k]; });
    } else {
      step(4, iF, [&](size_t k) { return Interp::Mean(line(3)[k], line(5)[k]); });
      step(5, iO, [&](size_t k) { return line(4)[k]; });
    }
  }
};

}  // namespace VyApi

#endif
