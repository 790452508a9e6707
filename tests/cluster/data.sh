# shellcheck shell=bash
# Sourced by the tests of searches over several machines.

# Makes a target, packed features in parts, and in `wanted` what a single run finds. Features are of
# three bytes, so that many are equally close, in one part and across parts.
make_data() {
  local part packed=()
  python3 - <<'END'
import random
random.seed(2)
open("target.bin", "wb").write(random.randbytes(3))
for part in ("aa", "ab", "a c", "ad"):
    open(f"part.{part}", "wb").write(random.randbytes(3000))
END
  for part in part.*; do packed+=(--packed "$part"); done
  VorquellSearch -k 10 "${packed[@]}" target.bin > wanted
}
