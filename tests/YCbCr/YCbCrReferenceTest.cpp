// The conversions against independent references: the published BT.601,
// BT.709 and JFIF equations evaluated in floating point here, and OpenCV's
// UYVY decoder run through /usr/bin/python3.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <unistd.h>

#include "ColorInterpolation/ColorInterpolation_YCbCr.h"

using namespace VyApi;

namespace {

struct SRgb {
  double r, g, b;
};

double Clamp255(double d) { return std::min(255.0, std::max(0.0, d)); }

/// Decodes one YCbCr pixel of a 4:4:4 format to B, G, R bytes.
void Decode444(EVyPixelFormatNamingConvention_t e, const uint8_t (&in)[3], uint8_t (&bgr)[3]) {
  ASSERT_TRUE(TransformYCbCrToColor(e, in, 3, bgr, 3, 3, true, 1, 1, false));
}

/// Our value is the truncated table sum; the table coefficients agree with
/// the published ones to within 5e-5 per count, and the rounding of table
/// entries adds at most 1.5 units of 2^-22. So ours lies in
/// (exact - 1 - e, exact + e] with a small e; 0.05 covers the coefficient
/// differences over the studio range (at most 112 x 4e-4).
void ExpectTruncationOf(double dExact, int nOurs, const std::string& what) {
  const double d = Clamp255(dExact);
  EXPECT_LE(nOurs, d + 0.05) << what;
  EXPECT_GT(nOurs, d - 1.05) << what;
}

}  // namespace

TEST(YCbCrReference, StudioDecodingFollowsBT601AndBT709) {
  // BT.601: Kr 0.299, Kb 0.114; BT.709: Kr 0.2126, Kb 0.0722; studio range.
  struct SStd {
    EVyPixelFormatNamingConvention_t eFormat;
    double kr, kb;
  };
  for (const SStd& s : {SStd{VyPixelFormat_YCbCr601_8_CbYCr, 0.299, 0.114},
                        SStd{VyPixelFormat_YCbCr709_8_CbYCr, 0.2126, 0.0722}}) {
    const double kg = 1.0 - s.kr - s.kb;
    for (int y = 16; y <= 235; y += 7)
      for (int cb = 16; cb <= 240; cb += 8)
        for (int cr = 16; cr <= 240; cr += 8) {
          const double Y = (y - 16) * 255.0 / 219.0, Pb = (cb - 128) * 255.0 / 224.0, Pr = (cr - 128) * 255.0 / 224.0;
          const double r = Y + 2 * (1 - s.kr) * Pr;
          const double b = Y + 2 * (1 - s.kb) * Pb;
          const double g = Y - (2 * s.kb * (1 - s.kb) * Pb + 2 * s.kr * (1 - s.kr) * Pr) / kg;
          const uint8_t in[3] = {uint8_t(cb), uint8_t(y), uint8_t(cr)};
          uint8_t out[3];
          Decode444(s.eFormat, in, out);
          const std::string what = std::to_string(y) + "," + std::to_string(cb) + "," + std::to_string(cr);
          ExpectTruncationOf(b, out[0], "B " + what);
          ExpectTruncationOf(g, out[1], "G " + what);
          ExpectTruncationOf(r, out[2], "R " + what);
        }
  }
}

TEST(YCbCrReference, StudioEncodingFollowsBT601AndBT709) {
  struct SStd {
    EVyPixelFormatNamingConvention_t eFormat;
    double kr, kb;
  };
  for (const SStd& s : {SStd{VyPixelFormat_YCbCr601_8_CbYCr, 0.299, 0.114},
                        SStd{VyPixelFormat_YCbCr709_8_CbYCr, 0.2126, 0.0722}}) {
    const double kg = 1.0 - s.kr - s.kb;
    for (int r = 0; r < 256; r += 15)
      for (int g = 0; g < 256; g += 15)
        for (int b = 0; b < 256; b += 15) {
          const double Y = s.kr * r + kg * g + s.kb * b;
          const double cb = 128 + (b - Y) / (2 * (1 - s.kb)) * 224.0 / 255.0;
          const double cr = 128 + (r - Y) / (2 * (1 - s.kr)) * 224.0 / 255.0;
          const uint8_t in[3] = {uint8_t(b), uint8_t(g), uint8_t(r)};
          uint8_t out[3];
          ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, in, 3, 3, true, s.eFormat, out, 3, 1, 1, false));
          const std::string what = std::to_string(r) + "," + std::to_string(g) + "," + std::to_string(b);
          ExpectTruncationOf(16 + Y * 219.0 / 255.0, out[1], "Y " + what);
          ExpectTruncationOf(cb, out[0], "Cb " + what);
          ExpectTruncationOf(cr, out[2], "Cr " + what);
        }
  }
}

TEST(YCbCrReference, PlainRoundTripFollowsJFIF) {
  // The plain family is JFIF: full range, no offsets on Y.
  int nWorstTrip = 0;
  for (int r = 0; r < 256; r += 5)
    for (int g = 0; g < 256; g += 5)
      for (int b = 0; b < 256; b += 5) {
        const uint8_t bgr[3] = {uint8_t(b), uint8_t(g), uint8_t(r)};
        uint8_t ycc[3], back[3];
        ASSERT_TRUE(TransformToYCbCr(VyPixelFormat_BGR8, bgr, 3, 3, true, VyPixelFormat_YCbCr8, ycc, 3, 1, 1, false));
        const std::string what = std::to_string(r) + "," + std::to_string(g) + "," + std::to_string(b);
        // Forward: within one count of the equations, from below.
        ExpectTruncationOf(0.299 * r + 0.587 * g + 0.114 * b, ycc[0], "Y " + what);
        ExpectTruncationOf(128 - 0.168736 * r - 0.331264 * g + 0.5 * b, ycc[1], "Cb " + what);
        ExpectTruncationOf(128 + 0.5 * r - 0.418688 * g - 0.081312 * b, ycc[2], "Cr " + what);

        // Back: within one count of the inverse equations applied to our bytes.
        Decode444(VyPixelFormat_YCbCr8, ycc, back);
        const double y = ycc[0], cb = ycc[1] - 128.0, cr = ycc[2] - 128.0;
        ExpectTruncationOf(y + 1.772 * cb, back[0], "B' " + what);
        ExpectTruncationOf(y - 0.344136 * cb - 0.714136 * cr, back[1], "G' " + what);
        ExpectTruncationOf(y + 1.402 * cr, back[2], "R' " + what);
        for (int c = 0; c < 3; ++c) nWorstTrip = std::max(nWorstTrip, std::abs(back[c] - bgr[c]));
      }
  // Each of Y, Cb, Cr loses less than one count going in, the way back loses
  // less than one more; the largest chroma factor, 1.772, amplifies one of
  // them: 1 + 1.772 x 1 + 1 < 4, so the round trip stays within 3 counts.
  EXPECT_LE(nWorstTrip, 3);
}

TEST(YCbCrReference, UYVYMatchesOpenCV) {
  if (access("/usr/bin/python3", X_OK) != 0) GTEST_SKIP() << "/usr/bin/python3 not found";
  if (std::system("/usr/bin/python3 -c 'import cv2, numpy' >/dev/null 2>&1") != 0)
    GTEST_SKIP() << "python3 has no cv2 or numpy";

  // Studio-range samples only: OpenCV clamps Y below 16 but not above 235 and
  // never clamps chroma, while our tables clamp all indices.
  const size_t w = 64, h = 16;
  std::vector<uint8_t> uyvy(2 * w * h);
  unsigned nSeed = 12345;
  const auto next = [&](int lo, int hi) {
    nSeed = nSeed * 1103515245u + 12345u;
    return static_cast<uint8_t>(lo + (nSeed >> 16) % (hi - lo + 1));
  };
  for (size_t i = 0; i < uyvy.size(); ++i) uyvy[i] = (i % 2) ? next(16, 235) : next(16, 240);

  const std::string dir = testing::TempDir();
  const std::string in = dir + "ycbcr_uyvy_" + std::to_string(getpid()) + ".raw";
  const std::string out = in + ".bgr";
  const std::string script = in + ".py";
  {
    std::ofstream f(in, std::ios::binary);
    f.write(reinterpret_cast<const char*>(uyvy.data()), static_cast<std::streamsize>(uyvy.size()));
    std::ofstream p(script);
    p << "import sys, numpy as np, cv2\n"
         "w, h = int(sys.argv[3]), int(sys.argv[4])\n"
         "a = np.fromfile(sys.argv[1], dtype=np.uint8).reshape(h, w, 2)\n"
         "cv2.cvtColor(a, cv2.COLOR_YUV2BGR_UYVY).tofile(sys.argv[2])\n";
  }
  const std::string cmd = "/usr/bin/python3 " + script + " " + in + " " + out + " " + std::to_string(w) + " " +
                          std::to_string(h) + " 2>&1";
  FILE* pipe = popen(cmd.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string log;
  char buf[256];
  while (fgets(buf, sizeof buf, pipe) != nullptr) log += buf;
  const int rc = pclose(pipe);
  ASSERT_EQ(rc, 0) << log;
  std::ifstream f(out, std::ios::binary);
  const std::vector<uint8_t> cv((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
  std::remove(in.c_str());
  std::remove(out.c_str());
  std::remove(script.c_str());
  ASSERT_EQ(cv.size(), 3 * w * h);

  std::vector<uint8_t> ours(3 * w * h);
  ASSERT_TRUE(TransformYCbCrToColor(VyPixelFormat_YCbCr601_422_8_CbYCrY, uyvy.data(), 2 * w, ours.data(), 3 * w, 3,
                                    true, w, h, false));
  // OpenCV rounds to nearest with 20-bit coefficients of three decimals
  // (1.164, 1.596, 0.813, 0.391, 2.018); we truncate with five. The
  // coefficient differences stay below 0.2 of a count over the studio range,
  // so OpenCV's value is ours or ours + 1, never below ours.
  int nDiffOne = 0;
  for (size_t i = 0; i < ours.size(); ++i) {
    const int d = int(cv[i]) - int(ours[i]);
    EXPECT_TRUE(d == 0 || d == 1) << "byte " << i << ": OpenCV " << int(cv[i]) << ", ours " << int(ours[i]);
    nDiffOne += d == 1;
  }
  // Roughly half the values round up in OpenCV; all of them would mean an
  // offset in our tables.
  EXPECT_LT(nDiffOne, static_cast<int>(ours.size()));
}
