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
expect "exported symbols of the search" \
  "$(nm -D --defined-only "$lib/libORV_Search.so" | cut -d' ' -f2- | tr '\n' ' ')" \
  "T ORV_Distances T ORV_MatchQuery T ORV_Nearest T ORV_SearchText "
for library in ORV_CompareFeatures ORV_Search; do
  readelf -d "$lib/lib$library.so" | grep -q "SONAME.*\[lib$library\.so\.1\]" || fail "soname"
done
expect "search" "$("$prefix/bin/VorquellSearch" "$samples/target.bin" "$samples/query.bin")" \
  "0.125000	0	$samples/query.bin"
[ -z "$(find "$prefix" -name Bitstream.h -o -name detail)" ] || fail "a private header is installed"
for program in Vorquell VorquellSearch; do
  [ -f "$prefix/share/man/man1/$program.1" ] || fail "manual page"
  [ -f "$prefix/share/bash-completion/completions/$program" ] || fail "completion"
done

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
"$cc" "$source/examples/compare.c" -o "$scratch/by_pkg_config" \
  $(pkg-config --cflags --libs ORV_CompareFeatures ORV_Search)
expect "pkg-config, shared" \
  "$(LD_LIBRARY_PATH=$lib "$scratch/by_pkg_config" "$samples/target.bin" "$samples/query.bin")" \
  "version 1.0.0.0:20180102: 0.125000"
# shellcheck disable=SC2046
echo '#include <ORV_Search.h>
int main(void) { ORV_Match m; return ORV_Nearest("a", 1, "ba", 2, 1, 1, 2, &m) + (int)m.index; }' |
  "$cc" -xc -std=c99 - -xnone -static -o "$scratch/search" \
    $(pkg-config --static --cflags --libs ORV_Search)
expect "pkg-config, static search" "$("$scratch/search" || echo $?)" 1
# shellcheck disable=SC2046
"$cxx" "$source/examples/consumer/consumer.cpp" -static -o "$scratch/static" \
  $(pkg-config --static --cflags --libs ORV_CompareFeatures Brindle)
expect "pkg-config, static" \
  "$("$scratch/static" "$samples/target.bin" "$samples/query_v7.bin")" "0.031250"
echo "installed package: all as it should be"
