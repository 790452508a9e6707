# shellcheck shell=sh
# Sourced by the tests that run what docs/many.md shows.

# documented PAGE WORD: the page's fenced block that holds the word.
documented() {
  awk -v word="$2" '/^```/ { if (inside && index(block, word)) printf "%s", block
      inside = !inside; block = ""; next }
    { block = block $0 "\n" }' "$1"
}
