#!/bin/sh
# Compares one target with many queries on all cores; prints the closest first.
#
#   compare_many.sh TARGET QUERY...
#   find FOLDER -name '*.bin' -print0 | compare_many.sh TARGET -   (any number, names ended by NUL)
#
# Each line is "DISTANCE QUERY"; queries that could not be compared are left out. VORQUELL names the
# tool where it is not on the path.
set -eu
if [ $# -lt 2 ]; then
  echo "usage: compare_many.sh TARGET QUERY... (or - for a NUL-separated list on standard input)" >&2
  exit 2
fi
export VORQUELL="${VORQUELL:-Vorquell}" TARGET="$1"
shift
command -v "$VORQUELL" > /dev/null || { echo "$VORQUELL: no such tool" >&2; exit 2; }

queries() { if [ "$1" = - ]; then cat; else printf '%s\0' "$@"; fi; }

# One shell for many queries. Each line is one short write, so lines of several shells do not mix.
# shellcheck disable=SC2016  # the inner shell expands
queries "$@" | xargs -0 -P "$(nproc)" -n 64 sh -c '
  for query; do
    out=$("$VORQUELL" "$TARGET" "$query")
    case $out in *"main: Return distance = "*) printf "%s %s\n" "${out##*= }" "$query";; esac
  done' sh | LC_ALL=C sort -g
