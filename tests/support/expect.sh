# shellcheck shell=sh
# Sourced by the tests that are scripts.

fail() { echo "FAILED: $1" >&2; exit 1; }

# expect WHAT GOT WANTED
expect() { [ "$2" = "$3" ] || fail "$1: got '$2', wanted '$3'"; }
