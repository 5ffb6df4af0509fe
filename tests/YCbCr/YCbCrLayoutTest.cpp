// Byte order of every YCbCr and YUV format in both directions, partial
// groups at the end of a line, destination orders and alpha, and the flip.
// The 4:4:4 formats of each family serve as the per-pixel reference; the
// expected byte orders are written out here from the formats' definitions.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "ColorInterpolation/ColorInterpolation_YCbCr.h"
#include "YCbCr/YCbCrTestImage.h"

using namespace VyApi;
using VyApiTest::CYCbCrTestImage;
using VyApiTest::YCbCrMarker;

namespace {

enum EFamily { Plain, BT601, BT709 };

struct SFormatCase {
  EVyPixelFormatNamingConvention_t eFormat;
  EFamily eFamily;
  int nPixels;            // pixels per group
  const char* pPattern;   // bytes of one group
};

const SFormatCase FormatCases[] = {
    {VyPixelFormat_YCbCr8, Plain, 1, "Y0 Cb Cr"},
    {VyPixelFormat_YCbCr8_CbYCr, Plain, 1, "Cb Y0 Cr"},
    {VyPixelFormat_YUV8_UYV, Plain, 1, "Cb Y0 Cr"},
    {VyPixelFormat_YCbCr601_8_CbYCr, BT601, 1, "Cb Y0 Cr"},
    {VyPixelFormat_YCbCr709_8_CbYCr, BT709, 1, "Cb Y0 Cr"},
    {VyPixelFormat_YCbCr422_8, Plain, 2, "Y0 Cb Y1 Cr"},
    {VyPixelFormat_YUV422_8, Plain, 2, "Y0 Cb Y1 Cr"},
    {VyPixelFormat_YCbCr422_8_CbYCrY, Plain, 2, "Cb Y0 Cr Y1"},
    {VyPixelFormat_YUV422_8_UYVY, Plain, 2, "Cb Y0 Cr Y1"},
    {VyPixelFormat_YCbCr601_422_8, BT601, 2, "Y0 Cb Y1 Cr"},
    {VyPixelFormat_YCbCr601_422_8_CbYCrY, BT601, 2, "Cb Y0 Cr Y1"},
    {VyPixelFormat_YCbCr709_422_8, BT709, 2, "Y0 Cb Y1 Cr"},
    {VyPixelFormat_YCbCr709_422_8_CbYCrY, BT709, 2, "Cb Y0 Cr Y1"},
    {VyPixelFormat_YCbCr411_8, Plain, 4, "Y0 Y1 Cb Y2 Y3 Cr"},
    {VyPixelFormat_YCbCr411_8_CbYYCrYY, Plain, 4, "Cb Y0 Y1 Cr Y2 Y3"},
    {VyPixelFormat_YUV411_8_UYYVYY, Plain, 4, "Cb Y0 Y1 Cr Y2 Y3"},
    {VyPixelFormat_YCbCr601_411_8_CbYYCrYY, BT601, 4, "Cb Y0 Y1 Cr Y2 Y3"},
    {VyPixelFormat_YCbCr709_411_8_CbYYCrYY, BT709, 4, "Cb Y0 Y1 Cr Y2 Y3"},
};

std::vector<std::string> Tokens(const char* p) {
  std::istringstream is(p);
  std::vector<std::string> v;
  for (std::string s; is >> s;) v.push_back(s);
  return v;
}

/// The 4:4:4 format of a family and where its Y, Cb, Cr bytes stand.
EVyPixelFormatNamingConvention_t Reference(EFamily e) {
  return e == Plain ? VyPixelFormat_YCbCr8 : (e == BT601 ? VyPixelFormat_YCbCr601_8_CbYCr : VyPixelFormat_YCbCr709_8_CbYCr);
}
struct SYcc {
  uint8_t y, cb, cr;
};

using Bgr = std::array<uint8_t, 3>;  // B, G, R

SYcc Encode(EFamily e, const Bgr& px) {
  uint8_t b[3];
  EXPECT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, px.data(), 3, 3, true, Reference(e), b, 3, 1, 1, false));
  return e == Plain ? SYcc{b[0], b[1], b[2]} : SYcc{b[1], b[0], b[2]};
}

Bgr Decode(EFamily e, SYcc c) {
  const uint8_t b[3] = {e == Plain ? c.y : c.cb, e == Plain ? c.cb : c.y, c.cr};
  Bgr out{};
  EXPECT_TRUE(TransformYCbCrToColor(Reference(e), b, 3, out.data(), 3, 3, true, 1, 1, false));
  return out;
}

uint8_t DecodeMono(EFamily e, uint8_t y) {
  const uint8_t b[3] = {y, y, y};
  uint8_t out = 0;
  EXPECT_TRUE(TransformYCbCrToMono(Reference(e), b, 3, &out, 1, 1, 1, false));
  return out;
}

/// Per-channel mean of pixels [first, first + n), truncated.
Bgr Mean(const std::vector<Bgr>& v, size_t first, size_t n) {
  Bgr m{};
  for (int c = 0; c < 3; ++c) {
    int s = 0;
    for (size_t i = first; i < first + n; ++i) s += v[i][c];
    m[c] = static_cast<uint8_t>(s / static_cast<int>(n));
  }
  return m;
}

std::vector<Bgr> TestPixels(size_t n) {
  std::vector<Bgr> v;
  for (size_t i = 0; i < n; ++i)
    v.push_back({static_cast<uint8_t>(20 + 37 * i), static_cast<uint8_t>(200 - 23 * i), static_cast<uint8_t>(90 + 51 * i)});
  return v;
}

size_t LineBytes(const SFormatCase& f, size_t nWidth) { return (nWidth * 8 * (f.nPixels + 2) / f.nPixels + 7) / 8; }

std::string Name(EVyPixelFormatNamingConvention_t e) {
  std::ostringstream os;
  os << "format 0x" << std::hex << e;
  return os.str();
}

}  // namespace

TEST(YCbCrLayout, WriteOrderOfEveryFormat) {
  for (const SFormatCase& f : FormatCases) {
    SCOPED_TRACE(Name(f.eFormat));
    const std::vector<std::string> pattern = Tokens(f.pPattern);
    const size_t nWidth = 2 * f.nPixels;  // two whole groups
    const std::vector<Bgr> px = TestPixels(nWidth);
    std::vector<uint8_t> src;
    for (const Bgr& p : px) src.insert(src.end(), p.begin(), p.end());
    CYCbCrTestImage dst(LineBytes(f, nWidth), 1);
    ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, src.data(), src.size(), 3, true, f.eFormat, dst.Data(),
                                 dst.m_nPitch, nWidth, 1, false));
    std::vector<uint8_t> expected;
    for (size_t g = 0; g < 2; ++g) {
      const SYcc chroma = Encode(f.eFamily, Mean(px, g * f.nPixels, f.nPixels));
      for (const std::string& t : pattern) {
        if (t == "Cb") expected.push_back(chroma.cb);
        else if (t == "Cr") expected.push_back(chroma.cr);
        else expected.push_back(Encode(f.eFamily, px[g * f.nPixels + (t[1] - '0')]).y);
      }
    }
    EXPECT_EQ(dst.Bytes(0), expected);
    EXPECT_TRUE(dst.PaddingIntact());
  }
}

TEST(YCbCrLayout, ReadOrderOfEveryFormat) {
  const uint8_t anY[4] = {40, 120, 180, 230};
  const uint8_t anCb[2] = {90, 170}, anCr[2] = {200, 60};
  for (const SFormatCase& f : FormatCases) {
    SCOPED_TRACE(Name(f.eFormat));
    const size_t nWidth = 2 * f.nPixels;
    std::vector<uint8_t> src;
    for (size_t g = 0; g < 2; ++g)
      for (const std::string& t : Tokens(f.pPattern))
        src.push_back(t == "Cb" ? anCb[g] : (t == "Cr" ? anCr[g] : anY[(g * f.nPixels + (t[1] - '0')) % 4]));

    CYCbCrTestImage bgr(3 * nWidth, 1), mono(nWidth, 1);
    ASSERT_TRUE(TransformYCbCrToColor(f.eFormat, src.data(), src.size(), bgr.Data(), bgr.m_nPitch, 3, true, nWidth, 1,
                                      false));
    ASSERT_TRUE(TransformYCbCrToMono(f.eFormat, src.data(), src.size(), mono.Data(), mono.m_nPitch, nWidth, 1, false));
    std::vector<uint8_t> expectedBgr, expectedMono;
    for (size_t i = 0; i < nWidth; ++i) {
      const size_t g = i / f.nPixels;
      const Bgr p = Decode(f.eFamily, {anY[i % 4], anCb[g], anCr[g]});
      expectedBgr.insert(expectedBgr.end(), p.begin(), p.end());
      expectedMono.push_back(DecodeMono(f.eFamily, anY[i % 4]));
    }
    EXPECT_EQ(bgr.Bytes(0), expectedBgr);
    EXPECT_EQ(mono.Bytes(0), expectedMono);
    EXPECT_TRUE(bgr.PaddingIntact());
    EXPECT_TRUE(mono.PaddingIntact());
  }
}

TEST(YCbCrLayout, MonoIsLumaCopiedOrStretched) {
  const uint8_t src[6] = {0, 16, 100, 235, 240, 255};  // YCbCr411_8: Y0 Y1 Cb Y2 Y3 Cr
  uint8_t out[4];
  ASSERT_TRUE(TransformYCbCrToMono(VyPixelFormat_YCbCr411_8, src, 6, out, 4, 4, 1, false));
  EXPECT_EQ(std::vector<uint8_t>(out, out + 4), (std::vector<uint8_t>{0, 16, 235, 240}));
  const uint8_t studio[6] = {100, 0, 16, 200, 235, 255};  // Cb Y0 Y1 Cr Y2 Y3
  ASSERT_TRUE(TransformYCbCrToMono(VyPixelFormat_YCbCr601_411_8_CbYYCrYY, studio, 6, out, 4, 4, 1, false));
  EXPECT_EQ(std::vector<uint8_t>(out, out + 4), (std::vector<uint8_t>{0, 0, 254, 254}));
}

TEST(YCbCrLayout, ColourOrdersAndAlpha) {
  const uint8_t ycc[3] = {100, 60, 200};  // YCbCr8: a reddish pixel
  uint8_t bgr[3], rgb[3];
  ASSERT_TRUE(TransformYCbCrToColor(VyPixelFormat_YCbCr8, ycc, 3, bgr, 3, 3, true, 1, 1, false));
  ASSERT_TRUE(TransformYCbCrToColor(VyPixelFormat_YCbCr8, ycc, 3, rgb, 3, 3, false, 1, 1, false));
  EXPECT_GT(bgr[2], bgr[0]);
  EXPECT_EQ(rgb[0], bgr[2]);
  EXPECT_EQ(rgb[1], bgr[1]);
  EXPECT_EQ(rgb[2], bgr[0]);
  for (const bool bBGR : {true, false}) {
    uint8_t four[8];
    std::fill(four, four + 8, YCbCrMarker);
    const uint8_t two[6] = {100, 60, 200, 100, 60, 200};
    ASSERT_TRUE(TransformYCbCrToColor(VyPixelFormat_YCbCr8, two, 6, four, 8, 4, bBGR, 2, 1, false));
    const uint8_t* ref = bBGR ? bgr : rgb;
    for (int p = 0; p < 2; ++p) {
      EXPECT_EQ(std::vector<uint8_t>(four + 4 * p, four + 4 * p + 3), std::vector<uint8_t>(ref, ref + 3));
      EXPECT_EQ(four[4 * p + 3], YCbCrMarker) << "alpha written";
    }
  }

  // Every source order gives the same YCbCr; alpha of a source is ignored.
  const uint8_t srcBGR[3] = {30, 140, 220}, srcRGB[3] = {220, 140, 30};
  const uint8_t srcBGRa[4] = {30, 140, 220, 7}, srcRGBa[4] = {220, 140, 30, 99};
  uint8_t a[3], b[3];
  ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, srcBGR, 3, 3, true, VyPixelFormat_YCbCr709_8_CbYCr, a, 3, 1, 1, false));
  for (const auto& s : {std::pair<const uint8_t*, std::pair<size_t, bool>>{srcRGB, {3, false}},
                        {srcBGRa, {4, true}},
                        {srcRGBa, {4, false}}}) {
    ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_RGB8, s.first, 4, s.second.first, s.second.second,
                                 VyPixelFormat_YCbCr709_8_CbYCr, b, 3, 1, 1, false));
    EXPECT_EQ(std::vector<uint8_t>(a, a + 3), std::vector<uint8_t>(b, b + 3));
  }
}

TEST(YCbCrLayout, OddWidthTailsWhenWriting) {
  const std::vector<Bgr> px = TestPixels(7);
  std::vector<uint8_t> src;
  for (const Bgr& p : px) src.insert(src.end(), p.begin(), p.end());
  const auto y = [&](size_t i) { return Encode(Plain, px[i]).y; };

  // 4:2:2, width 3: the last pixel writes its Y and its own Cb; its Cr
  // would lie beyond the line's six bytes and is not written.
  for (const bool bCbFirst : {false, true}) {
    CYCbCrTestImage d(6, 1);
    ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, src.data(), src.size(), 3, true,
                                 bCbFirst ? VyPixelFormat_YCbCr422_8_CbYCrY : VyPixelFormat_YCbCr422_8, d.Data(),
                                 d.m_nPitch, 3, 1, false));
    const SYcc c01 = Encode(Plain, Mean(px, 0, 2)), c2 = Encode(Plain, px[2]);
    const std::vector<uint8_t> expected = bCbFirst ? std::vector<uint8_t>{c01.cb, y(0), c01.cr, y(1), c2.cb, y(2)}
                                                   : std::vector<uint8_t>{y(0), c01.cb, y(1), c01.cr, y(2), c2.cb};
    EXPECT_EQ(d.Bytes(0), expected);
    EXPECT_TRUE(d.PaddingIntact()) << "Cr of the last pair written";
  }

  // 4:1:1 with 1, 2 and 3 pixels after a whole group: the mean of the pixels
  // present, and the chroma bytes that fall inside the line.
  struct SCase {
    size_t nWidth;
    bool bCbFirst;
    const char* pTail;  // bytes after the whole group; "-" stays unwritten
  };
  const SCase cases[] = {
      {5, false, "Y4 -"},         {6, false, "Y4 Y5 Cb"},       {7, false, "Y4 Y5 Cb Y6 -"},
      {5, true, "Cb Y4"},         {6, true, "Cb Y4 Y5"},        {7, true, "Cb Y4 Y5 Cr Y6"},
  };
  for (const SCase& c : cases) {
    SCOPED_TRACE(std::to_string(c.nWidth) + (c.bCbFirst ? " CbYYCrYY" : " YYCbYYCr"));
    const std::vector<std::string> tail = Tokens(c.pTail);
    CYCbCrTestImage d(6 + tail.size(), 1);
    ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, src.data(), src.size(), 3, true,
                                 c.bCbFirst ? VyPixelFormat_YCbCr411_8_CbYYCrYY : VyPixelFormat_YCbCr411_8, d.Data(),
                                 d.m_nPitch, c.nWidth, 1, false));
    const SYcc ct = Encode(Plain, Mean(px, 4, c.nWidth - 4));
    std::vector<uint8_t> expected = d.Bytes(0);
    expected.resize(6);
    for (const std::string& t : tail) {
      if (t == "Cb") expected.push_back(ct.cb);
      else if (t == "Cr") expected.push_back(ct.cr);
      else if (t == "-") expected.push_back(YCbCrMarker);
      else expected.push_back(y(t[1] - '0'));
    }
    EXPECT_EQ(d.Bytes(0), expected);
    EXPECT_TRUE(d.PaddingIntact());
  }
}

TEST(YCbCrLayout, OddWidthTailsWhenReading) {
  // YCbCr422_8, width 3: Y0 Cb Y1 Cr Y2 Cb'. The last pixel takes its own Cb
  // and the Cr of the pair before.
  const uint8_t src[6] = {50, 100, 60, 180, 200, 30};
  uint8_t out[9];
  ASSERT_TRUE(TransformYCbCrToColor(VyPixelFormat_YCbCr422_8, src, 6, out, 9, 3, true, 3, 1, false));
  Bgr last = Decode(Plain, {200, 30, 180});
  EXPECT_EQ(std::vector<uint8_t>(out + 6, out + 9), std::vector<uint8_t>(last.begin(), last.end()));

  // Width 1 has no pair before: the missing Cr is neutral.
  const uint8_t one[2] = {90, 200};
  ASSERT_TRUE(TransformYCbCrToColor(VyPixelFormat_YCbCr422_8, one, 2, out, 3, 3, true, 1, 1, false));
  last = Decode(Plain, {90, 200, 128});
  EXPECT_EQ(std::vector<uint8_t>(out, out + 3), std::vector<uint8_t>(last.begin(), last.end()));

  // YCbCr411_8, width 5: the tail (Y4, then a luma slot) holds no chroma,
  // so the fifth pixel takes both from the group before.
  const uint8_t s411[8] = {10, 20, 70, 30, 40, 210, 150, 0};
  uint8_t o411[15];
  ASSERT_TRUE(TransformYCbCrToColor(VyPixelFormat_YCbCr411_8, s411, 8, o411, 15, 3, true, 5, 1, false));
  last = Decode(Plain, {150, 70, 210});
  EXPECT_EQ(std::vector<uint8_t>(o411 + 12, o411 + 15), std::vector<uint8_t>(last.begin(), last.end()));
}

TEST(YCbCrLayout, NoWidthTouchesBytesBeyondTheLine) {
  for (const SFormatCase& f : FormatCases) {
    for (size_t nWidth = 1; nWidth <= 9; ++nWidth) {
      SCOPED_TRACE(Name(f.eFormat) + " width " + std::to_string(nWidth));
      const size_t nLine = LineBytes(f, nWidth);
      CYCbCrTestImage bgr(3 * nWidth, 2), ycc(nLine, 2), back(4 * nWidth, 2), mono(nWidth, 2);
      for (size_t y = 0; y < 2; ++y)
        for (size_t i = 0; i < 3 * nWidth; ++i) bgr.Line(y)[i] = static_cast<uint8_t>(i * 29 + y * 7);
      ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, bgr.Data(), bgr.m_nPitch, 3, true, f.eFormat, ycc.Data(),
                                   ycc.m_nPitch, nWidth, 2, false));
      EXPECT_TRUE(ycc.PaddingIntact());
      ASSERT_TRUE(TransformYCbCrToColor(f.eFormat, ycc.Data(), ycc.m_nPitch, back.Data(), back.m_nPitch, 4, false,
                                        nWidth, 2, false));
      EXPECT_TRUE(back.PaddingIntact());
      ASSERT_TRUE(TransformYCbCrToMono(f.eFormat, ycc.Data(), ycc.m_nPitch, mono.Data(), mono.m_nPitch, nWidth, 2,
                                       false));
      EXPECT_TRUE(mono.PaddingIntact());
    }
  }
}

TEST(YCbCrLayout, FlipWritesTheDestinationBottomUp) {
  const size_t w = 4, h = 3;
  CYCbCrTestImage bgr(3 * w, h);
  for (size_t y = 0; y < h; ++y)
    for (size_t i = 0; i < 3 * w; ++i) bgr.Line(y)[i] = static_cast<uint8_t>(40 * y + 9 * i);
  for (const EVyPixelFormatNamingConvention_t e :
       {VyPixelFormat_YCbCr8_CbYCr, VyPixelFormat_YCbCr601_422_8, VyPixelFormat_YCbCr709_411_8_CbYYCrYY}) {
    SCOPED_TRACE(Name(e));
    const size_t nLine = LineBytes(FormatCases[0], w);  // 4:4:4 size, enough for all
    CYCbCrTestImage up(nLine, h), down(nLine, h);
    ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, bgr.Data(), bgr.m_nPitch, 3, true, e, up.Data(), up.m_nPitch, w,
                                 h, false));
    ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, bgr.Data(), bgr.m_nPitch, 3, true, e, down.Data(),
                                 down.m_nPitch, w, h, true));
    CYCbCrTestImage c1(3 * w, h), c2(3 * w, h), m1(w, h), m2(w, h);
    ASSERT_TRUE(TransformYCbCrToColor(e, up.Data(), up.m_nPitch, c1.Data(), c1.m_nPitch, 3, true, w, h, false));
    ASSERT_TRUE(TransformYCbCrToColor(e, up.Data(), up.m_nPitch, c2.Data(), c2.m_nPitch, 3, true, w, h, true));
    ASSERT_TRUE(TransformYCbCrToMono(e, up.Data(), up.m_nPitch, m1.Data(), m1.m_nPitch, w, h, false));
    ASSERT_TRUE(TransformYCbCrToMono(e, up.Data(), up.m_nPitch, m2.Data(), m2.m_nPitch, w, h, true));
    for (size_t y = 0; y < h; ++y) {
      EXPECT_EQ(up.Bytes(y), down.Bytes(h - 1 - y));
      EXPECT_EQ(c1.Bytes(y), c2.Bytes(h - 1 - y));
      EXPECT_EQ(m1.Bytes(y), m2.Bytes(h - 1 - y));
    }
    EXPECT_NE(up.Bytes(0), up.Bytes(1));
  }
}

TEST(YCbCrLayout, OtherFormatsWriteNothing) {
  uint8_t src[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  uint8_t dst[12];
  std::fill(dst, dst + 12, YCbCrMarker);
  EXPECT_FALSE(TransformYCbCrToColor(VyPixelFormat_BGR8, src, 12, dst, 12, 3, true, 4, 1, false));
  EXPECT_FALSE(TransformYCbCrToMono(VyPixelFormat_Mono8, src, 12, dst, 12, 4, 1, false));
  EXPECT_FALSE(TransformToYCbCr(VyPixelFormat_BGR8, src, 12, 3, true, VyPixelFormat_BGR8, dst, 12, 4, 1, false));
  EXPECT_FALSE(TransformToYCbCr(VyPixelFormat_BGR8, src, 12, 3, true, VyPixelFormat_Mono8, dst, 12, 4, 1, false));
  for (uint8_t b : dst) EXPECT_EQ(b, YCbCrMarker);
}
