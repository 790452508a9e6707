#!/bin/sh
# Runs the examples as the documentation shows them.
# examples_test.sh EXAMPLES_FOLDER BUILD_FOLDER PYTHON
set -eu
. "$(dirname "$0")/support/expect.sh"
examples=$1 build=$2 python=$3
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
target=$examples/data/target.bin query=$examples/data/query.bin v7=$examples/data/query_v7.bin

"$build/make_bitstream" samples "$scratch"
for sample in target query query_v7; do
  cmp "$scratch/$sample.bin" "$examples/data/$sample.bin" || fail "the generator's $sample.bin"
done
# The script of the manual page, on a far, a near and a truncated query.
documented=$(sed -n '/^case/,/^esac/p' "$examples/../docs/Vorquell.1")
outcome() { (cd "$scratch" && PATH=$build:$PATH sh -c "$documented" 2>&1) || true; }
expect "the manual's script: far" "$(outcome)" "far"
cp "$target" "$scratch/query.bin"
expect "the manual's script: near" "$(outcome)" "near"
head -c 300 "$v7" > "$scratch/query.bin"
expect "the manual's script: truncated" "$(outcome)" "not compared"

# What the comments say that each family prints.
mkdir "$scratch/families"
expect "families" "$(cd "$scratch/families" && "$build/families" | sed 's/ *$//')" \
  "$(sed -n 's|.*printf(.*;  *// ||p' "$examples/families.cpp")"

"$build/make_bitstream" wrap "$scratch/wrapped.bin" "$query" /dev/null "$target"
expect "wrapped features" "$("$build/Vorquell" "$target" "$scratch/wrapped.bin")" \
  "main: Return distance = 0.000000"

if "$build/make_bitstream" wrap "$scratch/mixed.bin" "$target" "$v7" 2> "$scratch/why"; then
  fail "features of two lengths are wrapped"
fi
expect "mixed lengths" "$(cat "$scratch/why")" \
  "make_bitstream: all features must have the same length, or none"
[ ! -e "$scratch/mixed.bin" ] || fail "a refused bitstream is written"

export PYTHONPATH="$examples/../python" VORQUELL_LIBRARY_DIR="$build" PYTHONDONTWRITEBYTECODE=1
compare_py() { "$python" "$examples/compare.py" "$@"; }
expect "C" "$("$build/compare_c" "$target" "$v7")" "version 1.0.0.0:20180102: 0.031250"
expect "Python" "$(compare_py "$target" "$v7")" "distance 0.031250, frame 3"

# A truncated bitstream.
head -c 300 "$v7" > "$scratch/cut.bin"
expect "C, truncated" "$("$build/compare_c" "$target" "$scratch/cut.bin" 2>&1 || echo $?)" \
  "compare_c: The bitstream is cut short
1"
expect "Python, truncated" "$(compare_py "$target" "$scratch/cut.bin" 2>&1 || echo $?)" \
  "compare.py: The bitstream is cut short
1"

# As the README has it.
cd "$examples/.."
expect "search" "$("$build/VorquellSearch" examples/data/target.bin examples/data/*.bin)" \
  "$(sed -n '/VorquellSearch examples/,/^```/ { /^0/ s/  */	/gp }' README.md)"
echo "examples: all as documented"
