#!/usr/bin/env bash
# Runs the line of docs/many.md over hosts with GNU parallel, on this host alone.
. "$(dirname "$0")/begin.sh"
parallel --version 2> /dev/null | grep -q GNU || skip "GNU parallel"
export HOME=$scratch
documented 'parallel -k' | sed 's/host1,host2,:/:/' > run
bash run > found
cmp found wanted || fail "the merged answer is not that of a single run"
echo "parallel: the answer of a single run"
