#!/usr/bin/env bash
# Runs the line of docs/many.md over hosts with GNU parallel, on this host alone.
# parallel_test.sh BUILD_FOLDER
set -euo pipefail
. "$(dirname "$0")/../support/expect.sh"
. "$(dirname "$0")/../support/documented.sh"
. "$(dirname "$0")/data.sh"
tests=$(cd "$(dirname "$0")/.." && pwd)
parallel --version 2> /dev/null | grep -q GNU ||
  { echo "skipped: GNU parallel is not installed"; exit 77; }
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
export PATH=$1:$PATH HOME=$scratch

make_data
documented "$tests/../docs/many.md" 'parallel -k' | sed 's/host1,host2,:/:/' > run
bash run > found
cmp found wanted || fail "the merged answer is not that of a single run"
echo "parallel: the answer of a single run"
