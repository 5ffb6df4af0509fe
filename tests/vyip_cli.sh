#!/usr/bin/env bash
# The command-line tool end to end: the demo writes files that independent
# readers accept, convert round-trips a RAW file, and bad input gives clear
# messages with exit code 2.
set -euo pipefail
vyip=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() { echo "FAIL: $*" >&2; exit 1; }

"$vyip" demo --out "$work/demo" > "$work/demo.txt"
grep -q "32 files written" "$work/demo.txt" || fail "demo table"
for f in "$work"/demo/*.png; do pngcheck -q "$f" > /dev/null || fail "pngcheck $f"; done
for f in "$work"/demo/*.tiff; do tiffinfo -D "$f" > /dev/null 2>&1 || fail "tiffinfo $f"; done
for f in "$work"/demo/*.jpeg; do djpeg -strict "$f" > /dev/null || fail "djpeg $f"; done
/usr/bin/python3 - "$work/demo" <<'PY'
import sys, glob, cv2, numpy as np
d = sys.argv[1]
for stem in ["none", "nearest-neighbor", "nearest-neighbor2", "bilinear", "bilinear2", "bicubic"]:
    png = cv2.imread(f"{d}/{stem}.png", cv2.IMREAD_UNCHANGED)
    for ext in ["tiff", "bmp"]:
        other = cv2.imread(f"{d}/{stem}.{ext}", cv2.IMREAD_UNCHANGED)
        assert other is not None and np.array_equal(png, other), (stem, ext)
    jpg = cv2.imread(f"{d}/{stem}.jpeg", cv2.IMREAD_UNCHANGED)
    assert jpg is not None and jpg.shape == png.shape, stem
    # Method "none" leaves the mosaic's single-colour sites, a pattern JPEG at
    # quality 75 cannot hold; the interpolated images are smooth.
    if stem != "none":
        mse = ((jpg.astype(float) - png.astype(float)) ** 2).mean()
        assert 10 * np.log10(255 ** 2 / max(mse, 1e-9)) > 30, (stem, mse)
PY

# RAW -> RAW through the same format is byte-identical; through another and back too.
"$vyip" convert "$work/demo/mosaic-BayerRG8.raw" "$work/copy.raw" --to BayerRG8 > /dev/null
cmp "$work/demo/mosaic-BayerRG8.raw" "$work/copy.raw" || fail "raw round trip"
"$vyip" convert "$work/demo/mosaic-BayerRG8.raw" "$work/deep.raw" --to BayerRG16 --set BitExpansionMode=LeftShiftBy0 > /dev/null
"$vyip" convert "$work/deep.raw" "$work/back.raw" --to BayerRG8 > /dev/null
cmp "$work/demo/mosaic-BayerRG8.raw" "$work/back.raw" || fail "raw 8-16-8 round trip"
"$vyip" info "$work/deep.raw" | grep -q "640 x 480, BayerRG16, line pitch 1280 bytes" || fail "info"

# Help on every command, and clear refusals.
for c in demo convert info formats features; do "$vyip" "$c" --help | grep -q "usage: vyip $c" || fail "help $c"; done
set +e
"$vyip" convert "$work/copy.raw" "$work/x.png" --to NoSuchFormat 2> "$work/err.txt"; rc=$?
[ $rc -eq 2 ] && grep -q "unknown pixel format 'NoSuchFormat'" "$work/err.txt" || fail "bad format rc=$rc"
"$vyip" info "$work/missing.raw" 2> "$work/err.txt"; rc=$?
[ $rc -eq 1 ] && grep -q "could not be opened" "$work/err.txt" || fail "missing file rc=$rc"
"$vyip" frobnicate 2> /dev/null; rc=$?
[ $rc -eq 2 ] || fail "unknown command rc=$rc"
set -e
echo "vyip end to end: ok"
