#!/bin/sh
# Installs into a scratch prefix and uses what lies there as a stranger would.
# install_test.sh CMAKE BUILD_FOLDER CXX CC
set -eu
. "$(dirname "$0")/../support/expect.sh"
cmake=$1 build=$2 cxx=$3 cc=$4
source=$(cd "$(dirname "$0")/../.." && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
prefix=$scratch/prefix
samples=$source/examples/data

"$cmake" --install "$build" --prefix "$prefix" > "$scratch/log"
# The tree may be moved after it was installed.
mv "$prefix" "$scratch/moved" && prefix=$scratch/moved
lib=$(dirname "$(find "$prefix" -name 'libORV_CompareFeatures.so')")

expect "tool" "$("$prefix/bin/Vorquell" "$samples/target.bin" "$samples/query_v7.bin")" \
  "main: Return distance = 0.031250"
expect "exported symbols" "$(nm -D --defined-only "$lib/libORV_CompareFeatures.so" | cut -d' ' -f2-)" \
  "T ORV_CompareFeatures
T ORV_GetCompareFeaturesVersion"
readelf -d "$lib/libORV_CompareFeatures.so" | grep -q 'SONAME.*\[libORV_CompareFeatures\.so\.1\]' ||
  fail "soname"
[ -z "$(find "$prefix" -name Bitstream.h -o -name detail)" ] || fail "a private header is installed"
[ -f "$prefix/share/man/man1/Vorquell.1" ] || fail "manual page"

# Every installed header compiles alone.
(cd "$prefix/include" && find . -name '*.h') | while read -r header; do
  echo "#include <$header>" | "$cxx" -std=c++17 -fsyntax-only -Wall -Wextra -Werror \
    -I"$prefix/include" -x c++ - || fail "header $header"
done

# find_package
"$cmake" -S "$source/examples/consumer" -B "$scratch/consumer" -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_C_COMPILER="$cc" > "$scratch/log"
"$cmake" --build "$scratch/consumer" > "$scratch/log"
expect "find_package, C++" \
  "$("$scratch/consumer/consumer" "$samples/target.bin" "$samples/query.bin")" "0.125000"
expect "find_package, C" \
  "$("$scratch/consumer/compare_c" "$samples/target.bin" "$samples/query.bin")" \
  "version 1.0.0.0:20180102: 0.125000"

# pkg-config
export PKG_CONFIG_PATH="$lib/pkgconfig"
# shellcheck disable=SC2046  # pkg-config prints words
"$cc" "$source/examples/compare.c" $(pkg-config --cflags --libs ORV_CompareFeatures) \
  -o "$scratch/by_pkg_config"
expect "pkg-config, shared" \
  "$(LD_LIBRARY_PATH=$lib "$scratch/by_pkg_config" "$samples/target.bin" "$samples/query.bin")" \
  "version 1.0.0.0:20180102: 0.125000"
# shellcheck disable=SC2046
"$cxx" "$source/examples/consumer/consumer.cpp" -static -o "$scratch/static" \
  $(pkg-config --static --cflags --libs ORV_CompareFeatures Brindle)
expect "pkg-config, static" \
  "$("$scratch/static" "$samples/target.bin" "$samples/query_v7.bin")" "0.031250"
echo "installed package: all as it should be"
