# shellcheck shell=bash
# Sourced first by the tests that are scripts: they run in a scratch folder.
set -eu
tests=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." > /dev/null && pwd)
. "$(dirname "${BASH_SOURCE[0]}")/expect.sh"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"

# documented WORD: the fenced block of docs/many.md that holds the word.
documented() {
  awk -v word="$1" '/^```/ { if (inside && index(block, word)) printf "%s", block
      inside = !inside; block = ""; next }
    { block = block $0 "\n" }' "$tests/../docs/many.md"
}
