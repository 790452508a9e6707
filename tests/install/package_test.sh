#!/bin/sh
# Builds the sources again in another folder, compares what the two builds install, and uses the
# Debian package.
# package_test.sh CMAKE BUILD_FOLDER CXX SETTING...   (-D..., those with which BUILD_FOLDER was made)
set -eu
. "$(dirname "$0")/../support/expect.sh"
cmake=$1 build=$2 cxx=$3
shift 3
source=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
again=$scratch/another/folder
rebuilt=$again/$(basename "$build")  # debugging information tells this name
samples=$source/examples/data

mkdir -p "$again"
cp -r "$source/CMakeLists.txt" "$source/cmake" "$source/completions" "$source/src" \
  "$source/docs" "$again"
"$cmake" -S "$again" -B "$rebuilt" -DCMAKE_CXX_COMPILER="$cxx" "$@" > "$scratch/log"
"$cmake" --build "$rebuilt" --parallel "$(nproc)" > "$scratch/log"
"$cmake" --install "$rebuilt" --prefix "$again/root" > "$scratch/log"
"$cmake" --install "$build" --prefix "$scratch/root" > "$scratch/log"
diff -r "$scratch/root" "$again/root" || fail "the builds differ"

if command -v dpkg > /dev/null; then
  (cd "$rebuilt" && cpack -G DEB > "$scratch/log")
  dpkg -x "$rebuilt"/*.deb "$scratch/clean"
  expect "the package's tool" \
    "$("$scratch/clean/usr/bin/Vorquell" "$samples/target.bin" "$samples/query_v7.bin")" \
    "main: Return distance = 0.031250"
  "$cmake" -S "$source/examples/consumer" -B "$scratch/consumer" -DCMAKE_CXX_COMPILER="$cxx" \
    -DCMAKE_PREFIX_PATH="$scratch/clean/usr" > "$scratch/log"
  "$cmake" --build "$scratch/consumer" > "$scratch/log"
  expect "the package's consumer" \
    "$("$scratch/consumer/consumer" "$samples/target.bin" "$samples/query_v7.bin")" "0.031250"
fi
echo "package: the same from every folder, and works where it is unpacked"
