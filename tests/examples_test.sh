#!/usr/bin/env bash
# Runs the examples as the documentation shows them.
# examples_test.sh EXAMPLES_FOLDER BUILD_FOLDER PYTHON
. "$(dirname "$0")/support/begin.sh"
examples=$1 build=$2 python=$3
target=$examples/data/target.bin query=$examples/data/query.bin v7=$examples/data/query_v7.bin

"$build/make_bitstream" samples .
for sample in target query query_v7; do
  cmp "$sample.bin" "$examples/data/$sample.bin" || fail "the generator's $sample.bin"
done
# The script of the manual page, on a far, a near and a truncated query.
script=$(sed -n '/^case/,/^esac/p' "$examples/../docs/Vorquell.1")
outcome() { PATH=$build:$PATH sh -c "$script" 2>&1 || true; }
expect "the manual's script: far" "$(outcome)" "far"
cp "$target" query.bin
expect "the manual's script: near" "$(outcome)" "near"
head -c 300 "$v7" > query.bin
expect "the manual's script: truncated" "$(outcome)" "not compared"

# What the comments say that each family prints.
mkdir families
expect "families" "$(cd families && "$build/families" | sed 's/ *$//')" \
  "$(sed -n 's|.*printf(.*;  *// ||p' "$examples/families.cpp")"

"$build/make_bitstream" wrap wrapped.bin "$query" /dev/null "$target"
expect "wrapped features" "$("$build/Vorquell" "$target" wrapped.bin)" \
  "main: Return distance = 0.000000"

if "$build/make_bitstream" wrap mixed.bin "$target" "$v7" 2> why; then
  fail "features of two lengths are wrapped"
fi
expect "mixed lengths" "$(cat why)" \
  "make_bitstream: all features must have the same length, or none"
[ ! -e mixed.bin ] || fail "a refused bitstream is written"

export PYTHONPATH="$examples/../python" VORQUELL_LIBRARY_DIR="$build" PYTHONDONTWRITEBYTECODE=1
compare_py() { "$python" "$examples/compare.py" "$@"; }
expect "C" "$("$build/compare_c" "$target" "$v7")" "version 1.0.0.0:20180102: 0.031250"
expect "Python" "$(compare_py "$target" "$v7")" "distance 0.031250, frame 3"

# A truncated bitstream.
head -c 300 "$v7" > cut.bin
expect "C, truncated" "$("$build/compare_c" "$target" cut.bin 2>&1 || echo $?)" \
  "compare_c: The bitstream is cut short
1"
expect "Python, truncated" "$(compare_py "$target" cut.bin 2>&1 || echo $?)" \
  "compare.py: The bitstream is cut short
1"

# As the README has it.
cd "$examples/.."
expect "search" "$("$build/VorquellSearch" examples/data/target.bin examples/data/*.bin)" \
  "$(sed -n '/VorquellSearch examples/,/^```/ { /^0/ s/  */	/gp }' README.md)"
echo "examples: all as documented"
