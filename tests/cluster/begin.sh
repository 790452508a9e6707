# shellcheck shell=bash disable=SC2034
# Sourced by the tests of searches over several machines, which get: BUILD_FOLDER PYTHON
. "$(dirname "$0")/../support/begin.sh"
build=$1 python=$2

skip() { echo "skipped: $1 is not installed"; exit 77; }

# await WHAT COMMAND...: until the command succeeds, at most 50 seconds after the start of the test;
# then shows the ends of the logs in the scratch folder and fails.
await() {
  until "${@:2}" > /dev/null 2>&1; do
    [ $SECONDS -lt 50 ] || { tail -n 20 "$scratch"/*.log >&2; fail "no $1"; }
    sleep 0.1
  done
}

# Ends what was started.
end() {
  set +e
  # shellcheck disable=SC2046
  kill -KILL $(jobs -p)
  wait
  rm -rf "$scratch"
}
trap 'end 2> /dev/null' EXIT
chmod 711 "$scratch"  # as munged wants it
export PATH=$build:$tests/../examples/cluster:$PATH

# A target, packed features in parts, and in `wanted` what a single run finds. Features are of three
# bytes, so that many are equally close, in one part and across parts.
"$python" - <<'END'
import random
random.seed(2)
open("target.bin", "wb").write(random.randbytes(3))
for part in ("aa", "ab", "a c", "ad"):
    open(f"part.{part}", "wb").write(random.randbytes(3000))
END
parts=(part.*)
VorquellSearch -k 10 "${parts[@]/#/--packed=}" target.bin > wanted
