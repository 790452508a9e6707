# shellcheck shell=bash disable=SC2034
# Sourced by the tests here, which get: CMAKE BUILD_FOLDER CXX CC SETTING... (BUILD_FOLDER's -D...)
. "$(dirname "$0")/../support/begin.sh"
source=$(dirname "$tests")
cmake=$1 build=$2 CXX=$3 CC=$4
shift 4
export CXX CC
cp "$source"/examples/data/*.bin .

# quietly COMMAND...: shows what it prints only when it fails.
quietly() { "$@" > "$scratch/log" 2>&1 || { cat "$scratch/log" >&2; fail "$*"; }; }
