#!/usr/bin/env bash
# Runs a test program of GoogleTest and prints its output when it has ended, what failed before everything else:
#   failures-first.sh SECONDS COMMAND [ARGUMENT ...]
# A log that somebody cuts off after its first lines still names the test that failed. The exit code is the
# command's; after SECONDS it is ended, and 124 is the exit code.
set -uo pipefail
[ $# -ge 2 ] || { echo "usage: failures-first.sh SECONDS COMMAND [ARGUMENT ...]" >&2; exit 2; }
seconds=$1
shift
output=$(mktemp)
trap 'rm -f "$output"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

result=0
timeout --kill-after=20 "$seconds" "$@" >"$output" 2>&1 <&0 &
wait $! || result=$?
if [ $result -ne 0 ]; then
  echo "== What failed (exit code $result)"
  # From a failed expectation to the line that ends its test; a crash leaves none.
  LC_ALL=C awk '/: Failure$/ { inside = 1 } inside || /^\[  FAILED  \]/ { print } /^\[  (FAILED |     OK) \]/ { inside = 0 }' "$output"
  echo "== Where it ended"
  grep -a '^\[ RUN ' "$output" | tail -n 1
  tail -n 15 "$output"
  echo "== The whole output"
fi
cat "$output"
exit $result
