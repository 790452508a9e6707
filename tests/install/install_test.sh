#!/usr/bin/env bash
# Installs into a scratch prefix and uses what lies there as a stranger would.
. "$(dirname "$0")/begin.sh"
quietly "$cmake" --install "$build" --prefix "$scratch/prefix"
mv prefix moved && prefix=$scratch/moved  # the tree may be moved after it was installed
lib=$(dirname "$(find "$prefix" -name 'libORV_CompareFeatures.so')")
expect "programs" "$("$prefix/bin/Vorquell" target.bin query_v7.bin
  "$prefix/bin/VorquellSearch" target.bin query.bin)" "main: Return distance = 0.031250
0.125000	0	query.bin"
expect "manual pages, completion" "$(find "$prefix/share" -name 'Vorquell*' | wc -l)" 4
[ -z "$(find "$prefix" -name Bitstream.h -o -name detail)" ] || fail "a private header is installed"

expect "exports" "$(nm -DA --defined-only "$lib"/libORV_*.so | cut -d' ' -f3 | xargs)" \
  "ORV_CompareFeatures ORV_GetCompareFeaturesVersion \
ORV_Distances ORV_MatchQuery ORV_Nearest ORV_SearchText"
for library in ORV_CompareFeatures ORV_Search; do
  readelf -d "$lib/lib$library.so" | grep -q "SONAME.*\[lib$library\.so\.1\]" || fail "soname"
done

# Hardened: guarded stacks, ready for shadow stacks, position-independent, all addresses bound and
# read-only from the start.
is_set() { grep -qE "^$1:.*=(ON|1)" "$build/CMakeCache.txt"; }
set --
if is_set VORQUELL_HARDEN; then
  set -- "$lib"/libORV_*.so
  nm "$lib/libBrindle.a" | grep -q __stack_chk_fail || fail "guarded stacks"
  readelf -n "$lib"/*.a | grep -q SHSTK || fail "shadow stacks"
fi
is_set VORQUELL_HARDEN && is_set VORQUELL_CAN_LINK_STATIC_PIE && set -- "$@" "$prefix"/bin/*
for file; do
  expect "$file, hardening" \
    "$(readelf -hldW "$file" | grep -cE '^ *Type: +DYN|^ *GNU_RELRO|\(FLAGS_1\).*NOW')" 3
done

# Every header compiles alone; the newest standard includes the least by the way.
headers=$(cd "$prefix/include" && find . -name '*.h')
for compiler in "$CXX" "clang++ -stdlib=libc++"; do
  echo "#include <version>" | $compiler -std=c++20 -E -x c++ - > log 2>&1 || continue
  read -ra compile <<< "$compiler"
  compile+=(-fsyntax-only -Wall -Wextra -Werror -I"$prefix/include" -x c++)
  for header in $headers; do
    echo "#include <$header>" | "${compile[@]}" -std=c++2b - || fail "$compiler: $header"
  done
  for standard in 17 20; do
    echo "$headers" | sed 's/.*/#include <&>/' | "${compile[@]}" -std=c++$standard - ||
      fail "$compiler: C++$standard"
  done
done

# find_package
export CMAKE_PREFIX_PATH="$prefix"
quietly "$cmake" -S "$source/examples/consumer" -B consumer
quietly "$cmake" --build consumer
expect "find_package, C++ and C" \
  "$(consumer/consumer target.bin query.bin; consumer/compare_c target.bin query.bin)" "0.125000
version 1.0.0.0:20180102: 0.125000"
sed 's/COMPONENTS/& Brundle/' "$source/examples/consumer/CMakeLists.txt" > CMakeLists.txt
"$cmake" -S . -B none 2>&1 | grep -q 'Vorquell has no component "Brundle"' || fail "no component"

# pkg-config; the C compiler links only what it is told to.
export PKG_CONFIG_PATH="$lib/pkgconfig" LD_LIBRARY_PATH="$lib"
# shellcheck disable=SC2046  # pkg-config prints words
"$CC" "$source/examples/compare.c" -o shared \
  $(pkg-config --cflags --libs ORV_CompareFeatures ORV_Search)
expect "shared" "$(./shared target.bin query.bin)" "version 1.0.0.0:20180102: 0.125000"
# shellcheck disable=SC2046
"$CC" "$source/examples/consumer/consumer.cpp" -static -Wl,-u,ORV_Nearest -o static \
  $(pkg-config --static --cflags --libs ORV_CompareFeatures ORV_Search Brindle)
expect "static" "$(./static target.bin query_v7.bin)" "0.031250"
