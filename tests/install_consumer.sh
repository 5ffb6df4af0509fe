#!/usr/bin/env bash
# Installs the build into a scratch prefix and builds and runs an application
# outside the source tree against it with find_package(VyApi_IP), then checks
# the pkg-config file.
set -euo pipefail
src=$1; build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cmake --install "$build" --prefix "$work/prefix" >/dev/null
cmake -S "$src/examples/consumer" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/consumer" >/dev/null
LD_LIBRARY_PATH="$work/prefix/lib" "$work/consumer/consumer"
PKG_CONFIG_PATH="$work/prefix/lib/pkgconfig" pkg-config --libs vyapi_ip | grep -q -- -lVyApi_IP
