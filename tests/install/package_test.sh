#!/usr/bin/env bash
# Builds the sources again in another folder, later and in another time zone: the same Debian
# packages to the byte, in which CMake finds what a consumer needs.
. "$(dirname "$0")/begin.sh"
command -v dpkg-shlibdeps > log || { echo "Skipped: no packages without dpkg-dev"; exit; }
again=$scratch/another/folder
rebuilt=$again/$(basename "$build")  # debugging information tells this name
mkdir -p first "$again"
(cd "$source" && cp -r CMakeLists.txt cmake completions debian docs python src "$again")
quietly "$cmake" -S "$again" -B "$rebuilt" "$@"
quietly "$cmake" --build "$rebuilt" --parallel "$(nproc)"
(cd "$rebuilt" && LC_ALL=C.UTF-8 TZ=Asia/Tokyo quietly cpack -G DEB)
quietly cpack -G DEB --config "$build/CPackConfig.cmake" -B first
expect "packages" "$(echo first/*.deb | wc -w)" 5
for package in first/*.deb; do
  cmp "$package" "$rebuilt/${package#first/}" || fail "the builds differ"
  dpkg -x "$package" root
done
CMAKE_PREFIX_PATH=$scratch/root/usr quietly "$cmake" -S "$source/examples/consumer" -B consumer
quietly "$cmake" --build consumer
expect "consumer" "$(consumer/consumer target.bin query_v7.bin)" "0.031250"
