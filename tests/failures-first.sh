#!/usr/bin/env bash
# Runs a test program of GoogleTest and prints its output when it has ended, what failed before everything else:
#   failures-first.sh SECONDS COMMAND [ARGUMENT ...]
# Tests that have failed run once more, alone. When all pass then, the program has not failed, and names them in lines
# that begin with UNSTEADY.
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

run() {
  timeout --kill-after=20 "$seconds" "$@" <&0 &
  wait $!
}

result=0
run "$@" >"$output" 2>&1 || result=$?
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

# Each names itself with its time in milliseconds; after a crash nobody knows which tests are left to run.
failed=$(LC_ALL=C sed -n 's/^\[  FAILED  \] \([^ ,]*\).* ([0-9]* ms)$/\1/p' "$output" | sort -u)
if [ $result -eq 1 ] && [ -n "$failed" ]; then
  echo "== What failed, once more and alone"
  unset GTEST_TOTAL_SHARDS GTEST_SHARD_INDEX
  if run "$@" "--gtest_filter=$(echo "$failed" | paste -sd :)"; then
    echo "$failed" | sed 's/^/UNSTEADY: /'
    result=0
  fi
fi
exit $result
