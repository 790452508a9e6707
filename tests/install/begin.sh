# shellcheck shell=sh disable=SC2034
# Sourced by the tests here, which get: CMAKE BUILD_FOLDER CXX CC SETTING... (BUILD_FOLDER's -D...)
set -eu
source=$(cd "$(dirname "$0")/../.." && pwd)
. "$source/tests/support/expect.sh"
cmake=$1 build=$2 CXX=$3 CC=$4
shift 4
export CXX CC
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp "$source"/examples/data/*.bin "$scratch" && cd "$scratch"

# quietly COMMAND...: shows what it prints only when it fails.
quietly() { "$@" > "$scratch/log" 2>&1 || { cat "$scratch/log" >&2; fail "$*"; }; }
