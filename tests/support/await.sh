# shellcheck shell=bash
# Sourced by tests that wait for what other processes do.

# await WHAT COMMAND...: until the command succeeds, at most 50 seconds after the start of the test;
# then shows the ends of the logs in the scratch folder and fails.
await() {
  until "${@:2}" > /dev/null 2>&1; do
    # shellcheck disable=SC2154  # the test makes it
    [ $SECONDS -lt 50 ] || { tail -n 20 "$scratch"/*.log >&2; fail "no $1"; }
    sleep 0.1
  done
}
