// The cell-wise road from an 8-bit Bayer mosaic to YCbCr422_8.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "ColorInterpolation/ColorInterpolation_YCbCr.h"
#include "YCbCr/YCbCrTestImage.h"

using namespace VyApi;
using VyApiTest::CYCbCrTestImage;
using VyApiTest::YCbCrMarker;

namespace {

/// The values of one 2 x 2 cell: red, blue, the green that stands first in
/// its line and the green that stands second.
struct SCell {
  uint8_t r, b, ga, gb;
};

struct SPhase {
  EVyPixelFormatNamingConvention_t eFormat;
  const char* pEven;  // colours of an even line's cell, left to right
  const char* pOdd;
};

const SPhase Phases[] = {
    {VyPixelFormat_BayerGR8, "GR", "BG"},
    {VyPixelFormat_BayerRG8, "RG", "GB"},
    {VyPixelFormat_BayerGB8, "GB", "RG"},
    {VyPixelFormat_BayerBG8, "BG", "GR"},
};

uint8_t Sample(const SCell& c, char colour, int column) {
  if (colour == 'R') return c.r;
  if (colour == 'B') return c.b;
  return column == 0 ? c.ga : c.gb;
}

/// A mosaic of the phase: line y takes, for each cell k, the two samples
/// that its parity holds from lines[y][k], so the two lines of a pair may
/// come from different cells.
CYCbCrTestImage Mosaic(const SPhase& p, const std::vector<std::vector<SCell>>& lines) {
  const size_t w = 2 * lines[0].size();
  CYCbCrTestImage m(w, lines.size());
  for (size_t y = 0; y < lines.size(); ++y) {
    const char* colours = (y & 1) ? p.pOdd : p.pEven;
    for (size_t k = 0; k < lines[y].size(); ++k)
      for (int c = 0; c < 2; ++c) m.Line(y)[2 * k + c] = Sample(lines[y][k], colours[c], c);
  }
  return m;
}

CYCbCrTestImage Convert(const SPhase& p, const CYCbCrTestImage& m, size_t w, bool bFlip = false) {
  CYCbCrTestImage out(2 * w, m.m_nHeight);
  EXPECT_TRUE(TransformToYCbCr(p.eFormat, m.m_vecData.data(), m.m_nPitch, 1, true, VyPixelFormat_YCbCr422_8,
                               out.Data(), out.m_nPitch, w, m.m_nHeight, bFlip));
  return out;
}

}  // namespace

TEST(YCbCrBayer, UniformCellsGiveHandComputedValuesInEveryPhase) {
  // R 200, G 100, B 50: Y 124.2, Cb 86.1, Cr 182.1 with the plain coefficients.
  const SCell cell{200, 50, 100, 100};
  for (const SPhase& p : Phases) {
    SCOPED_TRACE(p.pEven);
    const CYCbCrTestImage m = Mosaic(p, std::vector<std::vector<SCell>>(4, std::vector<SCell>(3, cell)));
    const CYCbCrTestImage out = Convert(p, m, 6);
    for (size_t y = 0; y < 4; ++y)
      EXPECT_EQ(out.Bytes(y), (std::vector<uint8_t>{124, 86, 124, 182, 124, 86, 124, 182, 124, 86, 124, 182}));
  }
}

TEST(YCbCrBayer, GreensOfACellAndItsNeighbour) {
  // R and B zero; Ga 100, Gb 60 then 140. Cell 0: g0 80, g1 100, gm 90;
  // cell 1 (the last, its own Gb twice): g0 120, g1 140, gm 130.
  const std::vector<SCell> row{{0, 0, 100, 60}, {0, 0, 100, 140}};
  const CYCbCrTestImage out = Convert(Phases[1], Mosaic(Phases[1], {row, row}), 4);
  // Y = 0.587 g, Cb = 128 - 0.33126 gm, Cr = 128 - 0.41869 gm, truncated.
  const std::vector<uint8_t> expected{46, 98, 58, 90, 70, 84, 82, 73};
  EXPECT_EQ(out.Bytes(0), expected);
  EXPECT_EQ(out.Bytes(1), expected);
}

TEST(YCbCrBayer, PhasesPlaceTheSamePlaneValues) {
  // Both lines of a pair carry the same cells, so every phase reads them into
  // the same roles. Output lines that mix two pairs (the odd ones but the
  // last) see each phase take other samples from each pair, and differ.
  std::vector<std::vector<SCell>> lines(4, std::vector<SCell>(4));
  for (size_t y = 0; y < lines.size(); ++y)
    for (size_t k = 0; k < 4; ++k) {
      const size_t n = y / 2;
      lines[y][k] = {static_cast<uint8_t>(30 + 41 * n + 13 * k), static_cast<uint8_t>(220 - 17 * n - 29 * k),
                     static_cast<uint8_t>(60 + 23 * k + 5 * n), static_cast<uint8_t>(150 - 31 * k + 11 * n)};
    }
  const CYCbCrTestImage first = Convert(Phases[0], Mosaic(Phases[0], lines), 8);
  for (const SPhase& p : Phases) {
    SCOPED_TRACE(p.pEven);
    const CYCbCrTestImage out = Convert(p, Mosaic(p, lines), 8);
    for (const size_t y : {0, 2, 3}) EXPECT_EQ(out.Bytes(y), first.Bytes(y)) << y;
  }
}

TEST(YCbCrBayer, EachLineMixesItselfWithTheNextAndTheLastRepeats) {
  const SPhase& p = Phases[3];
  const std::vector<SCell> l0(2, SCell{10, 200, 90, 40}), l1(2, SCell{250, 30, 180, 120}),
      l2(2, SCell{120, 120, 20, 230});
  const CYCbCrTestImage out = Convert(p, Mosaic(p, {l0, l1, l2}), 4);
  // Line 1 holds the even samples of line 2 with the odd samples of line 1:
  // the first line of the two-line image (line 2, line 1).
  const CYCbCrTestImage pair = Convert(p, Mosaic(p, {l2, l1}), 4);
  EXPECT_EQ(out.Bytes(1), pair.Bytes(0));
  EXPECT_EQ(out.Bytes(2), out.Bytes(1));
  EXPECT_NE(out.Bytes(0), out.Bytes(1));
  // Line 0 holds lines 0 and 1 alone.
  EXPECT_EQ(out.Bytes(0), Convert(p, Mosaic(p, {l0, l1}), 4).Bytes(0));

  // A single line: the rows of the other parity are zero.
  const std::vector<SCell> zero(2, SCell{0, 0, 0, 0});
  const CYCbCrTestImage one = Convert(p, Mosaic(p, {l0}), 4);
  EXPECT_EQ(one.Bytes(0), Convert(p, Mosaic(p, {l0, zero}), 4).Bytes(0));
}

TEST(YCbCrBayer, FlipAndOddWidth) {
  const SPhase& p = Phases[0];
  std::vector<std::vector<SCell>> lines(4, std::vector<SCell>(3));
  for (size_t y = 0; y < 4; ++y)
    for (size_t k = 0; k < 3; ++k) lines[y][k] = {uint8_t(50 * y + k), uint8_t(200 - 40 * y), uint8_t(30 * y), 90};
  CYCbCrTestImage m = Mosaic(p, lines);
  const CYCbCrTestImage up = Convert(p, m, 6), down = Convert(p, m, 6, true);
  for (size_t y = 0; y < 4; ++y) EXPECT_EQ(up.Bytes(y), down.Bytes(3 - y));

  // Width 5: two cells, the fifth pixel's bytes stay as they were.
  CYCbCrTestImage odd(10, 4);
  ASSERT_TRUE(TransformBayer8ToYCbCr422(p.eFormat, m.Data(), m.m_nPitch, odd.Data(), odd.m_nPitch, 5, 4, false));
  for (size_t y = 0; y < 4; ++y) {
    const std::vector<uint8_t> b = odd.Bytes(y);
    EXPECT_EQ(std::vector<uint8_t>(b.begin(), b.begin() + 8), std::vector<uint8_t>(up.Line(y), up.Line(y) + 8));
    EXPECT_EQ(b[8], YCbCrMarker);
    EXPECT_EQ(b[9], YCbCrMarker);
  }
  EXPECT_TRUE(odd.PaddingIntact());

  // Width 1 has no cell and writes nothing.
  CYCbCrTestImage none(2, 2);
  ASSERT_TRUE(TransformBayer8ToYCbCr422(p.eFormat, m.Data(), m.m_nPitch, none.Data(), none.m_nPitch, 1, 2, false));
  EXPECT_EQ(none.Bytes(0), (std::vector<uint8_t>{YCbCrMarker, YCbCrMarker}));
}

TEST(YCbCrBayer, OtherSourcesAndDestinationsWriteNothing) {
  uint8_t src[16] = {};
  uint8_t dst[16];
  std::memset(dst, YCbCrMarker, sizeof dst);
  EXPECT_FALSE(TransformBayer8ToYCbCr422(VyPixelFormat_BGR8, src, 8, dst, 8, 4, 2, false));
  EXPECT_FALSE(TransformBayer8ToYCbCr422(VyPixelFormat_BayerRG16, src, 8, dst, 8, 4, 2, false));
  EXPECT_FALSE(TransformToYCbCr(VyPixelFormat_BayerRG8, src, 8, 1, true, VyPixelFormat_YCbCr8, dst, 8, 4, 2, false));
  EXPECT_FALSE(
      TransformToYCbCr(VyPixelFormat_BayerGB16, src, 8, 1, true, VyPixelFormat_YCbCr422_8, dst, 8, 4, 2, false));
  EXPECT_FALSE(TransformToYCbCr(VyPixelFormat_Mono8, src, 8, 1, true, VyPixelFormat_YCbCr422_8, dst, 8, 4, 2, false));
  for (uint8_t b : dst) EXPECT_EQ(b, YCbCrMarker);
}
