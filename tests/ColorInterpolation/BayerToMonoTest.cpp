#include <gtest/gtest.h>

#include "BayerReference.h"
#include "BayerTestImage.h"
#include "ColorInterpolation/BayerToMono.h"
#include "ColorInterpolation/ColorInterporation.h"
#include "ColorInterpolation/ColorToBayer.h"

using namespace VyApi;
using BayerTest::JobOf;
using BayerTest::MakeImage;
using BayerTest::Shape;

namespace {

// A mono destination of the image's size with its own padded pitch.
template <typename T>
struct MonoCase {
  BayerRef::Image<T> im;
  size_t nPitch;
  std::vector<T> expected, actual;
};

template <typename T>
MonoCase<T> RunMono(const Shape& s, uint32_t nSeed) {
  MonoCase<T> m{MakeImage<T>(s, nSeed), s.w + s.nDstPad, {}, {}};
  m.expected.assign(m.nPitch * s.h, T(0x5A5A));
  m.actual = m.expected;
  BayerRef::BayerToMono(m.im, m.expected, m.nPitch);
  SBayerJob job = JobOf(m.im);
  job.pDest = m.actual.data();
  job.nDestPitch = m.nPitch * sizeof(T);
  CBayerToMono<T>::Run(static_cast<uint32_t>(s.nFilter), job);
  return m;
}

}  // namespace

TEST(BayerToMono, MatchesReferenceForEveryPhaseSizeAndFlip) {
  uint32_t nSeed = 7;
  for (int nFilter = 2; nFilter <= 5; ++nFilter)
    for (size_t w : {4, 5, 6, 7, 8, 9, 33})
      for (size_t h : {4, 5, 6, 7, 8, 9})
        for (bool bFlip : {false, true}) {
          const Shape s{w, h, nFilter, 3, true, bFlip, w % 2, h % 3, 8};
          MonoCase<uint8_t> m8 = RunMono<uint8_t>(s, nSeed++);
          ASSERT_EQ(m8.expected, m8.actual) << "filter " << nFilter << " " << w << "x" << h << " flip " << bFlip;
          Shape s16 = s;
          s16.nDepth = 14;
          MonoCase<uint16_t> m16 = RunMono<uint16_t>(s16, nSeed++);
          ASSERT_EQ(m16.expected, m16.actual) << "filter " << nFilter << " " << w << "x" << h << " flip " << bFlip;
        }
}

TEST(BayerToMono, OddHeightRepeatsLineHMinus3AndFlatGivesFlat) {
  MonoCase<uint8_t> m = RunMono<uint8_t>(Shape{6, 7, 2, 3, true, false, 0, 0, 8}, 3);
  EXPECT_TRUE(std::equal(m.actual.begin() + 4 * 6, m.actual.begin() + 5 * 6, m.actual.begin() + 6 * 6));

  BayerRef::Image<uint16_t> im = MakeImage<uint16_t>(Shape{9, 5, 4, 3, true, true, 0, 0, 16}, 1);
  for (auto& v : im.src) v = 50001;
  std::vector<uint16_t> mono(9 * 5, 0);
  SBayerJob job = JobOf(im);
  job.pDest = mono.data();
  job.nDestPitch = 9 * sizeof(uint16_t);
  CBayerToMono<uint16_t>::Run(4, job);
  for (uint16_t v : mono) EXPECT_EQ(50001, v);  // (2v + 5v + v) >> 3
}

TEST(BayerToMono, TinyImagesStayInsideTheirBuffers) {
  // Results below 4 pixels are of the same form only; they must not read or
  // write outside the buffers (checked under the address sanitizer).
  for (size_t w : {1, 2, 3})
    for (size_t h : {1, 2, 3}) {
      BayerRef::Image<uint8_t> im = MakeImage<uint8_t>(Shape{w, h, 3, 3, true, true, 0, 0, 8}, 2);
      std::vector<uint8_t> mono(w * h);
      SBayerJob job = JobOf(im);
      job.pDest = mono.data();
      job.nDestPitch = w;
      CBayerToMono<uint8_t>::Run(3, job);
    }
}

TEST(ColorToBayer, SamplesTheDestinationsMosaicWithFlipAndOrder) {
  uint32_t nSeed = 40;
  for (int nFilter = 2; nFilter <= 5; ++nFilter)
    for (size_t w : {1, 4, 5, 32})
      for (size_t h : {1, 4, 5})
        for (size_t n : {3, 4})
          for (bool bBGR : {true, false})
            for (bool bFlip : {false, true}) {
              // The colour image is the source here; reuse the destination
              // builder for it and a mosaic-sized buffer as destination.
              BayerRef::Image<uint16_t> im = MakeImage<uint16_t>(Shape{w, h, nFilter, n, bBGR, bFlip, 0, 1, 10}, nSeed++);
              const size_t nMosaicPitch = w + 2;
              std::vector<uint16_t> mosaic(nMosaicPitch * h, 0xBEEF), expected = mosaic;
              for (size_t d = 0; d < h; ++d)
                for (size_t c = 0; c < w; ++c) {
                  const size_t r = bFlip ? h - 1 - d : d;
                  expected[d * nMosaicPitch + c] = im.dst[r * im.nDstPitch + c * n + im.Index(BayerRef::Site(nFilter, d, c))];
                }
              SBayerJob job;
              job.pSrc = im.dst.data();
              job.nSrcPitch = im.nDstPitch * 2;
              job.pDest = mosaic.data();
              job.nDestPitch = nMosaicPitch * 2;
              job.nWidth = w;
              job.nHeight = h;
              job.nComponents = n;
              job.bBGROrder = bBGR;
              job.bReverseY = bFlip;
              CColorToBayer<uint16_t>::Run(static_cast<uint32_t>(nFilter), job);
              ASSERT_EQ(expected, mosaic) << nFilter << " " << w << "x" << h << " n " << n << " flip " << bFlip;
            }
}

TEST(ColorToBayer, RoundTripWithNoneKeepsEachSitesComponent) {
  BayerRef::Image<uint8_t> colour = MakeImage<uint8_t>(Shape{6, 4, 2, 3, true, false, 0, 0, 8}, 8);
  std::vector<uint8_t> mosaic(6 * 4), back(6 * 4 * 3, 1);
  SBayerJob toBayer;
  toBayer.pSrc = colour.dst.data();
  toBayer.nSrcPitch = 18;
  toBayer.pDest = mosaic.data();
  toBayer.nDestPitch = 6;
  toBayer.nWidth = 6;
  toBayer.nHeight = 4;
  CColorToBayer<uint8_t>::Run(2, toBayer);
  SBayerJob toColour = toBayer;
  toColour.pSrc = mosaic.data();
  toColour.nSrcPitch = 6;
  toColour.pDest = back.data();
  toColour.nDestPitch = 18;
  CColorInterporation<uint8_t>::Run(BayerMethod_None, 2, toColour);
  for (size_t r = 0; r < 4; ++r)
    for (size_t c = 0; c < 6; ++c) {
      const size_t i = colour.Index(BayerRef::Site(2, r, c));
      for (size_t k = 0; k < 3; ++k)
        EXPECT_EQ(k == i ? colour.dst[r * 18 + c * 3 + k] : 0, back[r * 18 + c * 3 + k]) << r << "," << c << "," << k;
    }
}

TEST(ColorToBayer, FlipOnHeightFourKeepsTheDestinationsPattern) {
  // Destination line 3 holds source line 0 with the pattern of line 3 of
  // BayerRG (G B G B ...).
  const uint8_t src[4 * 2 * 3] = {10, 20, 30, 11, 21, 31, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  uint8_t mosaic[8] = {};
  SBayerJob job;
  job.pSrc = src;
  job.nSrcPitch = 6;
  job.pDest = mosaic;
  job.nDestPitch = 2;
  job.nWidth = 2;
  job.nHeight = 4;
  job.bReverseY = true;
  CColorToBayer<uint8_t>::Run(2, job);
  EXPECT_EQ(20, mosaic[6]);  // green of source pixel (0, 0)
  EXPECT_EQ(11, mosaic[7]);  // blue (component 0 of BGR) of source pixel (0, 1)
}
