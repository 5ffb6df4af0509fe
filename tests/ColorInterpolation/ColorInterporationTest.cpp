#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include <Base/GCException.h>

#include "BayerReference.h"
#include "BayerTestImage.h"
#include "ColorInterpolation/ColorInterporation.h"

using namespace VyApi;
using BayerTest::JobOf;
using BayerTest::MakeImage;
using BayerTest::Shape;

namespace {

template <typename T>
void Reference(int nMethod, BayerRef::Image<T>& im) {
  if (im.w <= 3 || im.h <= 3) nMethod = nMethod == 0 ? 0 : 1;
  switch (nMethod) {
    case 0: BayerRef::None(im); break;
    case 1: BayerRef::NearestNeighbor(im); break;
    case 2: BayerRef::NearestNeighbor2(im); break;
    case 3: BayerRef::BilinearSimple(im); break;
    case 4: BayerRef::BilinearFalseColorReduction(im); break;
    default: BayerRef::BiCubic(im); break;
  }
}

std::string Describe(int nMethod, const Shape& s) {
  return "method " + std::to_string(nMethod) + " filter " + std::to_string(s.nFilter) + " " + std::to_string(s.w) +
         "x" + std::to_string(s.h) + " n=" + std::to_string(s.n) + (s.bBGR ? " BGR" : " RGB") +
         (s.bFlip ? " flip" : "") + " pads " + std::to_string(s.nSrcPad) + "/" + std::to_string(s.nDstPad) +
         " depth " + std::to_string(s.nDepth);
}

// Runs the kernel and the reference on the same image and compares every
// destination sample, padding and alpha included. Returns false on the first
// mismatch, having reported it.
template <typename T>
bool MatchesReference(int nMethod, const Shape& s, uint32_t nSeed) {
  BayerRef::Image<T> expected = MakeImage<T>(s, nSeed);
  BayerRef::Image<T> actual = expected;
  Reference(nMethod, expected);
  EXPECT_EQ(0u, CColorInterporation<T>::Run(nMethod, static_cast<uint32_t>(s.nFilter), JobOf(actual)));
  for (size_t i = 0; i < expected.dst.size(); ++i) {
    if (expected.dst[i] != actual.dst[i]) {
      ADD_FAILURE() << Describe(nMethod, s) << ": line " << i / expected.nDstPitch << " sample "
                    << i % expected.nDstPitch << " is " << actual.dst[i] << ", expected " << expected.dst[i];
      return false;
    }
  }
  return true;
}

template <typename T>
void SweepShapes(const std::vector<size_t>& widths, const std::vector<size_t>& heights, unsigned nDepth) {
  uint32_t nSeed = 1;
  for (int nMethod = 0; nMethod <= 5; ++nMethod)
    for (int nFilter = 2; nFilter <= 5; ++nFilter)
      for (size_t w : widths)
        for (size_t h : heights)
          for (size_t n : {3, 4})
            for (bool bBGR : {true, false})
              for (bool bFlip : {false, true}) {
                const size_t nPad = (w + h) % 3;  // tight and padded lines, also odd pads
                const Shape s{w, h, nFilter, n, bBGR, bFlip, nPad, nPad * 2, nDepth};
                if (!MatchesReference<T>(nMethod, s, nSeed++)) return;
              }
}

}  // namespace

TEST(ColorInterporationMatchesReference, EveryMethodPhaseOrderAndFlip8Bit) {
  SweepShapes<uint8_t>({2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 16, 19}, {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13}, 8);
}

TEST(ColorInterporationMatchesReference, EveryMethodPhaseOrderAndFlip16Bit) {
  // 12 bits bounds BiCubic at 4095; 16 bits exercises the full cell.
  SweepShapes<uint16_t>({2, 4, 5, 7, 8, 11, 20}, {3, 4, 5, 6, 7, 8, 9, 12}, 12);
  SweepShapes<uint16_t>({7, 10}, {8, 11}, 16);
}

TEST(ColorInterporationMatchesReference, LongLinesUseTheVectorisedMiddle) {
  uint32_t nSeed = 99;
  for (int nMethod = 0; nMethod <= 5; ++nMethod)
    for (int nFilter = 2; nFilter <= 5; ++nFilter) {
      EXPECT_TRUE(MatchesReference<uint8_t>(nMethod, Shape{131, 9, nFilter, 3, true, false, 0, 0, 8}, nSeed++));
      EXPECT_TRUE(MatchesReference<uint16_t>(nMethod, Shape{100, 10, nFilter, 4, false, true, 1, 2, 10}, nSeed++));
    }
}

TEST(ColorInterporationSizes, TooSmallImagesRaise) {
  BayerRef::Image<uint8_t> im = MakeImage<uint8_t>(Shape{1, 8, 2, 3, true, false, 0, 0, 8}, 5);
  const std::vector<uint8_t> before = im.dst;
  try {
    CColorInterporation<uint8_t>::Run(BayerMethod_BiCubic, 2, JobOf(im));
    FAIL() << "no exception";
  } catch (const GenICam_3_0::RuntimeException& e) {
    EXPECT_STREQ("Not supported image size 1 x 8", e.GetDescription());
  }
  EXPECT_EQ(before, im.dst);
  im = MakeImage<uint8_t>(Shape{8, 1, 2, 3, true, false, 0, 0, 8}, 5);
  EXPECT_THROW(CColorInterporation<uint8_t>::Run(BayerMethod_None, 2, JobOf(im)), GenICam_3_0::RuntimeException);
}

TEST(ColorInterporationSizes, SmallImagesHandOver) {
  // 2 x 2 with BiCubic is NearestNeighbor; 4 x 4 with BiCubic is
  // BilinearFalseColorReduction; 7 x 4 runs BiCubic itself.
  auto run = [](int nMethod, size_t w, size_t h) {
    BayerRef::Image<uint8_t> im = MakeImage<uint8_t>(Shape{w, h, 3, 3, true, false, 0, 0, 8}, 11);
    CColorInterporation<uint8_t>::Run(nMethod, 3, JobOf(im));
    return im.dst;
  };
  EXPECT_EQ(run(BayerMethod_NearestNeighbor, 2, 2), run(BayerMethod_BiCubic, 2, 2));
  EXPECT_EQ(run(BayerMethod_BilinearFalseColorReduction, 4, 4), run(BayerMethod_BiCubic, 4, 4));
  EXPECT_NE(run(BayerMethod_BilinearFalseColorReduction, 7, 4), run(BayerMethod_BiCubic, 7, 4));
}

TEST(ColorInterporationFailures, OtherColourFilterSetsErrnoAndWritesNothing) {
  BayerRef::Image<uint16_t> im = MakeImage<uint16_t>(Shape{8, 8, 2, 3, true, false, 0, 0, 12}, 3);
  const std::vector<uint16_t> before = im.dst;
  errno = 0;
  EXPECT_EQ(10087u, CColorInterporation<uint16_t>::Run(BayerMethod_BilinearSimple, 1, JobOf(im)));
  EXPECT_EQ(10087, errno);
  EXPECT_EQ(before, im.dst);
}

TEST(ColorInterporationFailuresDeathTest, MethodOutOfRangeStops) {
  BayerRef::Image<uint8_t> im = MakeImage<uint8_t>(Shape{8, 8, 2, 3, true, false, 0, 0, 8}, 3);
  EXPECT_DEATH(CColorInterporation<uint8_t>::Run(6, 2, JobOf(im)), "false");
}

TEST(ColorInterporationValues, FlatMosaicGivesFlatPixelsAndKeepsAlpha) {
  for (int nMethod = 0; nMethod <= 5; ++nMethod)
    for (int nFilter = 2; nFilter <= 5; ++nFilter)
      for (size_t w : {4, 7, 12})
        for (size_t h : {4, 8, 10}) {
          BayerRef::Image<uint16_t> im = MakeImage<uint16_t>(Shape{w, h, nFilter, 4, true, false, 0, 0, 16}, 1);
          for (auto& v : im.src) v = 40000;
          for (auto& v : im.dst) v = 7;
          CColorInterporation<uint16_t>::Run(nMethod, nFilter, JobOf(im));
          for (size_t r = 0; r < h; ++r)
            for (size_t c = 0; c < w; ++c) {
              for (BayerRef::Colour e : {BayerRef::R, BayerRef::G, BayerRef::B})
                if (nMethod != 0 || BayerRef::Site(nFilter, r, c) == e) {
                  ASSERT_EQ(40000, im.P(r, c, e)) << "method " << nMethod << " at " << r << "," << c;
                }
              ASSERT_EQ(7, im.dst[r * im.nDstPitch + c * 4 + 3]);
            }
        }
}

TEST(ColorInterporationValues, NearestNeighborGivesEqualPairsInACell) {
  BayerRef::Image<uint8_t> im = MakeImage<uint8_t>(Shape{8, 6, 5, 3, false, false, 0, 0, 8}, 21);
  CColorInterporation<uint8_t>::Run(BayerMethod_NearestNeighbor, 5, JobOf(im));
  for (size_t r = 0; r < 6; ++r)
    for (size_t c = 0; c < 8; c += 2)
      for (BayerRef::Colour e : {BayerRef::R, BayerRef::G, BayerRef::B}) EXPECT_EQ(im.P(r, c, e), im.P(r, c + 1, e));
}

TEST(ColorInterporationValues, BiCubicStaysWithinRangeAtABrightEdge) {
  // A bright column stripe on black: the kernel undershoots to 0 and is
  // limited to m = 1023 for a 10-bit destination.
  BayerRef::Image<uint16_t> im = MakeImage<uint16_t>(Shape{16, 8, 2, 3, true, false, 0, 0, 10}, 1);
  for (size_t r = 0; r < 8; ++r)
    for (size_t c = 0; c < 16; ++c) im.src[r * 16 + c] = (c >= 6 && c <= 9) ? 1023 : 0;
  CColorInterporation<uint16_t>::Run(BayerMethod_BiCubic, 2, JobOf(im));
  EXPECT_EQ(1023, im.P(0, 7, BayerRef::R));  // s = 2046: p = 255 + 1023 = 1278 > m
  EXPECT_EQ(0, im.P(0, 11, BayerRef::R));    // near 0 + 0, outer 1023: p = 0 is not above t
  for (uint16_t v : im.dst) EXPECT_LE(v, 1023);
}

TEST(ColorInterporationValues, BilinearSimpleGrbgHasNoVerticalMeanInColumnZero) {
  // GRBG: line 2 (G R) lacks blue; column 0 takes line 3's H alone.
  BayerRef::Image<uint8_t> im = MakeImage<uint8_t>(Shape{6, 6, 3, 3, true, false, 0, 0, 8}, 1);
  for (size_t r = 0; r < 6; ++r)
    for (size_t c = 0; c < 6; ++c) im.src[r * 6 + c] = static_cast<uint8_t>(10 * r + c);
  CColorInterporation<uint8_t>::Run(BayerMethod_BilinearSimple, 3, JobOf(im));
  EXPECT_EQ(30, im.P(2, 0, BayerRef::B));  // S[3][0], not (S[1][0] + S[3][0]) >> 1 = 20
  EXPECT_EQ(22, im.P(2, 2, BayerRef::B));  // an inner column averages S[1][2] and S[3][2]
}

TEST(ColorInterporationValues, BilinearSimpleGrbgRgbReadsBehindLineOne) {
  BayerRef::Image<uint8_t> im = MakeImage<uint8_t>(Shape{6, 4, 3, 3, false, false, 0, 0, 8}, 1);
  for (size_t i = 0; i < im.src.size(); ++i) im.src[i] = static_cast<uint8_t>(i);
  CColorInterporation<uint8_t>::Run(BayerMethod_BilinearSimple, 3, JobOf(im));
  EXPECT_EQ(12, im.P(1, 5, BayerRef::B));  // S[1][6] is S[2][0] in a tight mosaic
  EXPECT_EQ(12, im.P(0, 5, BayerRef::B));
}

TEST(ColorInterporationValues, BilinearSimpleGbrgRgbLeavesLastFirstBlue) {
  BayerRef::Image<uint8_t> im = MakeImage<uint8_t>(Shape{6, 6, 4, 3, false, true, 0, 0, 8}, 1);
  for (auto& v : im.dst) v = 201;
  for (auto& v : im.src) v = 9;
  CColorInterporation<uint8_t>::Run(BayerMethod_BilinearSimple, 4, JobOf(im));
  EXPECT_EQ(201, im.P(5, 0, BayerRef::B));
  EXPECT_EQ(9, im.P(5, 1, BayerRef::B));
}
