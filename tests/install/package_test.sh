#!/bin/sh
# Builds the sources in two folders, compares what they install, and uses the Debian package.
# package_test.sh CMAKE CXX
set -eu
cmake=$1 cxx=$2
source=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
fail() { echo "FAILED: $1" >&2; exit 1; }

for folder in one another/folder; do
  mkdir -p "$scratch/$folder"
  cp -r "$source/CMakeLists.txt" "$source/cmake" "$source/completions" "$source/docs" \
    "$source/src" "$scratch/$folder"
  "$cmake" -S "$scratch/$folder" -B "$scratch/$folder/build" -DCMAKE_CXX_COMPILER="$cxx" \
    -DCMAKE_INSTALL_PREFIX=/usr > "$scratch/log"
  "$cmake" --build "$scratch/$folder/build" --parallel "$(nproc)" > "$scratch/log"
  DESTDIR=$scratch/$folder/root "$cmake" --install "$scratch/$folder/build" > "$scratch/log"
done
diff -r "$scratch/one/root" "$scratch/another/folder/root" || fail "the builds differ"

if command -v dpkg > /dev/null; then
  (cd "$scratch/one/build" && cpack -G DEB > "$scratch/log")
  dpkg -x "$scratch"/one/build/*.deb "$scratch/clean"
  samples=$source/examples/data
  out=$("$scratch/clean/usr/bin/Vorquell" "$samples/target.bin" "$samples/query_v7.bin")
  [ "$out" = "main: Return distance = 0.031250" ] || fail "the package's tool: $out"
  "$cmake" -S "$source/examples/consumer" -B "$scratch/consumer" -DCMAKE_CXX_COMPILER="$cxx" \
    -DCMAKE_PREFIX_PATH="$scratch/clean/usr" > "$scratch/log"
  "$cmake" --build "$scratch/consumer" > "$scratch/log"
  out=$("$scratch/consumer/consumer" "$samples/target.bin" "$samples/query_v7.bin")
  [ "$out" = "0.031250" ] || fail "the package's consumer: $out"
fi
echo "package: reproducible, and works where it is unpacked"
