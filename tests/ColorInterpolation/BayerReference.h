// Straightforward per-pixel reference of the Bayer kernels, written from the
// formulas and border rules of each method, pixel by pixel, with no shared
// code from the library. The kernels must match it byte for byte over the
// whole destination buffer (padding and alpha included).
#ifndef TESTS_COLORINTERPOLATION_BAYERREFERENCE_H
#define TESTS_COLORINTERPOLATION_BAYERREFERENCE_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace BayerRef {

enum Colour { R = 0, G = 1, B = 2 };

// Site colour for colour filter 2 (RG), 3 (GR), 4 (GB), 5 (BG).
inline Colour Site(int nFilter, size_t r, size_t c) {
  static const Colour k[4][2][2] = {{{R, G}, {G, B}}, {{G, R}, {B, G}}, {{G, B}, {R, G}}, {{B, G}, {G, R}}};
  return k[nFilter - 2][r & 1][c & 1];
}

// One test image: a mosaic (or colour source) and a destination with its
// own pitches, both addressed in samples.
template <typename T>
struct Image {
  size_t w = 0, h = 0;
  size_t nSrcPitch = 0, nDstPitch = 0;  // in samples
  size_t n = 3;                         // components of the colour side
  bool bBGR = true, bFlip = false;
  int nFilter = 2;
  unsigned nDepth = 8;
  std::vector<T> src, dst;

  unsigned S(size_t r, size_t c) const { return src[r * nSrcPitch + c]; }
  size_t Index(Colour e) const { return e == G ? 1 : (e == R) == bBGR ? 2 : 0; }
  size_t Line(size_t r) const { return bFlip ? h - 1 - r : r; }
  // Component e of output pixel P[r][c].
  T& P(size_t r, size_t c, Colour e) { return dst[Line(r) * nDstPitch + c * n + Index(e)]; }
  void Set(size_t r, size_t c, Colour e, unsigned v) { P(r, c, e) = static_cast<T>(v); }
  // Component e of the pixel q pixels behind the start of destination line d.
  T& Mem(size_t d, size_t q, Colour e) { return dst[d * nDstPitch + q * n + Index(e)]; }
};

template <typename T>
void None(Image<T>& im) {
  for (size_t r = 0; r < im.h; ++r)
    for (size_t c = 0; c < im.w; ++c)
      for (Colour e : {R, G, B}) im.Set(r, c, e, Site(im.nFilter, r, c) == e ? im.S(r, c) : 0);
}

template <typename T>
void NearestNeighbor(Image<T>& im) {
  for (size_t r = 0; r < im.h; ++r)
    for (size_t c = 0; c < im.w; ++c) {
      const size_t r0 = r & ~size_t(1), c0 = c & ~size_t(1);
      const size_t r1 = r0 + 1 < im.h ? r0 + 1 : r0 - 1, c1 = c0 + 1 < im.w ? c0 + 1 : c0 - 1;
      for (size_t rr : {r0, r1})
        for (size_t cc : {c0, c1}) {
          const Colour e = Site(im.nFilter, rr, cc);
          if (e != G || rr == r) im.Set(r, c, e, im.S(rr, cc));
        }
    }
}

// The 2 x 2 window of NearestNeighbor2 on lines r, rr and columns from c.
template <typename T>
void Window(const Image<T>& im, size_t r, size_t rr, size_t c, unsigned out[3]) {
  unsigned g = 0;
  for (size_t l : {r, rr})
    for (size_t k : {c, c + 1}) {
      const Colour e = Site(im.nFilter, l, k);
      if (e == G)
        g += im.S(l, k);
      else
        out[e] = im.S(l, k);
    }
  out[G] = g >> 1;
}

// NearestNeighbor2 colours of pixel (r, c) with window partner line rr.
template <typename T>
void NN2Pixel(const Image<T>& im, size_t r, size_t rr, size_t c, unsigned out[3]) {
  const size_t w = im.w;
  if (c + 1 < w) {
    Window(im, r, rr, c, out);
  } else if (w % 2 == 0) {
    Window(im, r, rr, w - 2, out);
    if (Site(im.nFilter, r, w - 1) == G) out[G] = im.S(r, w - 1);
  } else {
    NN2Pixel(im, r, rr, w - 2, out);
  }
}

template <typename T>
void NearestNeighbor2(Image<T>& im) {
  for (size_t r = 0; r < im.h; ++r)
    for (size_t c = 0; c < im.w; ++c) {
      unsigned v[3];
      NN2Pixel(im, r, r + 1 < im.h ? r + 1 : r - 1, c, v);
      for (Colour e : {R, G, B}) im.Set(r, c, e, v[e]);
    }
}

// Step 1 of BilinearSimple (and pass 1 of BiCubic with bCubic).
template <typename T>
unsigned AlongLine(const Image<T>& im, size_t r, size_t c, Colour e, bool bCubic, unsigned m) {
  const size_t w = im.w;
  if (Site(im.nFilter, r, c) == e) return im.S(r, c);
  if (c == 0) return im.S(r, 1);
  if (c == w - 1) return im.S(r, w - 2);
  if (bCubic && c >= 3 && c + 3 <= w - 1) {
    const int s = int(im.S(r, c - 1) + im.S(r, c + 1)), t = int(im.S(r, c - 3) + im.S(r, c + 3)) >> 3;
    const int p = (s >> 3) + (s >> 1);
    if (p <= t) return 0;
    return p - t < int(m) ? unsigned(p - t) : m;
  }
  return (im.S(r, c - 1) + im.S(r, c + 1)) >> 1;
}

inline Colour LineColour(int nFilter, size_t r) {
  return Site(nFilter, r, 0) == G ? Site(nFilter, r, 1) : Site(nFilter, r, 0);
}

template <typename T>
void BilinearSimple(Image<T>& im) {
  const size_t w = im.w, h = im.h;
  const int f = im.nFilter;
  auto H = [&](size_t r, size_t c) { return AlongLine(im, r, c, LineColour(f, r), false, 0); };
  const bool bOddPairs = (f == 2 || f == 5) && h % 2 == 1;
  for (size_t r = 0; r < h; ++r)
    for (size_t c = 0; c < w; ++c) {
      im.Set(r, c, G, AlongLine(im, r, c, G, false, 0));
      im.Set(r, c, LineColour(f, r), H(r, c));
      const Colour t = LineColour(f, r + 1);
      if (f == 4 && h % 2 == 0 && !im.bBGR && r == h - 1 && c == 0) continue;  // blue not written
      unsigned v;
      if (r == 0)
        v = H(1, c);
      else if (r == h - 1 || (bOddPairs && r == h - 2))
        v = H(r - 1, c);
      else if (f == 3 && (c == 0 || (c == w - 1 && w % 2 == 0)))
        v = H(r + 1, c);
      else
        v = (H(r - 1, c) + H(r + 1, c)) >> 1;
      im.Set(r, c, t, v);
    }
  if (f == 3 && w % 2 == 0 && !im.bBGR) {
    im.Set(1, w - 1, B, im.src[1 * im.nSrcPitch + w]);
    im.Set(0, w - 1, B, im.src[1 * im.nSrcPitch + w]);
  }
  if (bOddPairs) {
    const Colour X = f == 2 ? R : B, Y = f == 2 ? B : R;
    const size_t r0 = h - 3, r2 = h - 1, W = 2 * (w >> 1);
    for (size_t c = 0; c < w; ++c) {
      const size_t q = W - 1 + c;
      im.P(r2, c, Y) = im.Mem(im.Line(r0), q, Y);
      im.Mem(im.Line(r0), q, X) = T((im.Mem(im.Line(r0 - 1), q, X) + im.P(r2, c, X)) >> 1);
    }
  }
}

// Near and far site around i + 1/2 on an axis of n positions, sites of parity p.
inline void Bracket(size_t i, size_t p, size_t n, size_t& N, size_t& F) {
  long nn, ff;
  if (i % 2 == p) {
    nn = long(i);
    ff = long(i) + 2;
  } else {
    nn = long(i) + 1;
    ff = long(i) - 1;
  }
  if (nn >= long(n)) {
    nn = ff;
    ff = nn;
  } else if (ff < 0 || ff >= long(n)) {
    ff = nn;
  }
  N = size_t(nn);
  F = size_t(ff);
}

template <typename T>
void BilinearFalseColorReduction(Image<T>& im) {
  const size_t w = im.w, h = im.h;
  const int f = im.nFilter;
  for (size_t r = 0; r < h; ++r)
    for (size_t c = 0; c < w; ++c) {
      const size_t rr = r + 1 < h ? r + 1 : r - 1;
      unsigned v[3];
      NN2Pixel(im, r, rr, c, v);
      if ((f == 3 || f == 4) && w % 2 == 1 && r % 2 == 1 && c == w - 1)
        v[G] = (3 * im.S(rr, w - 1) + im.S(r, w - 2)) >> 2;
      im.Set(r, c, G, v[G]);
      for (Colour e : {R, B}) {
        size_t p = 0, q = 0;
        for (size_t a = 0; a < 2; ++a)
          for (size_t b = 0; b < 2; ++b)
            if (Site(f, a, b) == e) p = a, q = b;
        size_t Nl, Fl, Nc, Fc;
        Bracket(r, p, h, Nl, Fl);
        Bracket(c, q, w, Nc, Fc);
        if ((f == 3 || f == 4) && c == 0 && q == 0) Fc = Nc;
        im.Set(r, c, e, (9 * im.S(Nl, Nc) + 3 * im.S(Nl, Fc) + 3 * im.S(Fl, Nc) + im.S(Fl, Fc)) >> 4);
      }
    }
}

inline unsigned Kernel(unsigned a, unsigned b, unsigned e, unsigned f, unsigned m) {
  const int s = int(a + b), t = int(e + f) >> 3, p = (s >> 3) + (s >> 1);
  if (p <= t) return 0;
  return p - t < int(m) ? unsigned(p - t) : m;
}

template <typename T>
void BiCubic(Image<T>& im) {
  const size_t w = im.w, h = im.h;
  const int f = im.nFilter;
  const unsigned m = (1u << im.nDepth) - 1;
  if (w <= 6) return BilinearFalseColorReduction(im);
  for (size_t r = 0; r < h; ++r)
    for (size_t c = 0; c < w; ++c) {
      im.Set(r, c, G, AlongLine(im, r, c, G, true, m));
      im.Set(r, c, LineColour(f, r), AlongLine(im, r, c, LineColour(f, r), true, m));
    }
  const bool bRFirst = ((f == 2 || f == 3) && !im.bFlip) || ((f == 4 || f == 5) && im.bFlip);
  const Colour F = bRFirst ? R : B, O = bRFirst ? B : R;
  // Destination line d, column c, colour e, counted from the buffer's start.
  auto D = [&](size_t d, size_t c, Colour e) -> T& { return im.Mem(d, c, e); };
  auto mean = [&](size_t d, Colour e, size_t a, size_t b) {
    for (size_t c = 0; c < w; ++c) D(d, c, e) = T((D(a, c, e) + D(b, c, e)) >> 1);
  };
  auto copy = [&](size_t d, Colour e, size_t a) {
    for (size_t c = 0; c < w; ++c) D(d, c, e) = D(a, c, e);
  };
  auto kernel = [&](size_t d, Colour e, size_t a, size_t b, size_t x, size_t y) {
    for (size_t c = 0; c < w; ++c) D(d, c, e) = T(Kernel(D(a, c, e), D(b, c, e), D(x, c, e), D(y, c, e), m));
  };
  size_t E = 2 * (h >> 1);
  copy(0, O, 1);
  mean(1, F, 0, 2);
  mean(2, O, 1, 3);
  if (h == 4 || h == 5) {
    E = 4;
  } else if (h == 6 || h == 7) {
    for (size_t c = 0; c < w; ++c) D(3, c, F) = T((im.Mem(1, w + c, F) + im.Mem(3, w + c, F)) >> 1);
    mean(3, O, 3, 4);
    if (h == 6) {
      copy(4, F, 3);
    } else {
      mean(4, F, 3, 5);
      copy(5, O, 4);
    }
    return;
  } else {
    for (size_t k = 0; k + 4 <= (h >> 1); ++k) {
      kernel(3 + 2 * k, F, 2 + 2 * k, 4 + 2 * k, 2 * k, 6 + 2 * k);
      kernel(4 + 2 * k, O, 3 + 2 * k, 5 + 2 * k, 1 + 2 * k, 7 + 2 * k);
    }
    mean(E - 3, F, E - 4, E - 2);
    mean(E - 2, O, E - 3, E - 1);
  }
  if (h % 2 == 0) {
    copy(E - 1, F, E - 2);
  } else {
    mean(E - 1, F, E - 2, E);
    copy(E, O, E - 1);
  }
}

// Bayer to mono: the NearestNeighbor2 window with its own last-line rules.
template <typename T>
void BayerToMono(Image<T>& im, std::vector<T>& mono, size_t nMonoPitch) {
  const size_t w = im.w, h = im.h;
  const int f = im.nFilter;
  auto value = [&](size_t r) {
    std::vector<unsigned> line(w);
    size_t rr = r + 1 < h ? r + 1 : r - 1;
    if (h % 2 == 1 && r == h - 2) rr = h - 3;
    for (size_t c = 0; c < w; ++c) {
      unsigned v[3];
      NN2Pixel(im, r, rr, c, v);
      if ((f == 3 || f == 4) && w % 2 == 1 && r % 2 == 1 && c == w - 1) v[G] = (im.S(r, w - 3) + im.S(rr, w - 1)) >> 1;
      line[c] = (2 * v[R] + 5 * v[G] + v[B]) >> 3;
    }
    return line;
  };
  for (size_t r = 0; r < h; ++r) {
    const std::vector<unsigned> line = value(h % 2 == 1 && r == h - 1 ? h - 3 : r);
    for (size_t c = 0; c < w; ++c) mono[im.Line(r) * nMonoPitch + c] = T(line[c]);
  }
}

}  // namespace BayerRef

#endif
