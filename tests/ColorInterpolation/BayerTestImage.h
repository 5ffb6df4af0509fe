// Builders of test images for the Bayer kernels: random mosaics, padded
// pitches and a destination prefilled with a marker so that every byte the
// kernel must not touch is checked too.
#ifndef TESTS_COLORINTERPOLATION_BAYERTESTIMAGE_H
#define TESTS_COLORINTERPOLATION_BAYERTESTIMAGE_H

#include <random>

#include "BayerReference.h"
#include "ColorInterpolation/BayerJob.h"

namespace BayerTest {

struct Shape {
  size_t w, h;
  int nFilter;
  size_t n;
  bool bBGR, bFlip;
  size_t nSrcPad, nDstPad;  // extra samples per line
  unsigned nDepth;
};

template <typename T>
BayerRef::Image<T> MakeImage(const Shape& s, uint32_t nSeed) {
  BayerRef::Image<T> im;
  im.w = s.w;
  im.h = s.h;
  im.n = s.n;
  im.bBGR = s.bBGR;
  im.bFlip = s.bFlip;
  im.nFilter = s.nFilter;
  im.nDepth = s.nDepth;
  im.nSrcPitch = s.w + s.nSrcPad;
  im.nDstPitch = s.w * s.n + s.nDstPad;
  std::mt19937 gen(nSeed);
  std::uniform_int_distribution<unsigned> sample(0, (1u << s.nDepth) - 1), marker(0, 0xFFFF);
  im.src.resize(im.nSrcPitch * s.h);
  for (auto& v : im.src) v = static_cast<T>(sample(gen));
  im.dst.resize(im.nDstPitch * s.h);
  for (auto& v : im.dst) v = static_cast<T>(marker(gen));
  return im;
}

template <typename T>
VyApi::SBayerJob JobOf(BayerRef::Image<T>& im) {
  VyApi::SBayerJob job;
  job.pSrc = im.src.data();
  job.nSrcPitch = im.nSrcPitch * sizeof(T);
  job.pDest = im.dst.data();
  job.nDestPitch = im.nDstPitch * sizeof(T);
  job.nWidth = im.w;
  job.nHeight = im.h;
  job.nComponents = im.n;
  job.bBGROrder = im.bBGR;
  job.bReverseY = im.bFlip;
  job.nBitDepth = im.nDepth;
  return job;
}

}  // namespace BayerTest

#endif
