#!/usr/bin/env bash
# Builds the core for the other desktop platform and tests it under Wine:  scripts/other-platform.sh
# Installs what is missing, which is about a gigabyte; so nothing else runs it. docs/other-platform.md says more.
set -uo pipefail
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
. "$root/scripts/packages.sh"
. "$root/scripts/build.sh"

folder=$root/build-other
failed=no

step() { printf '\n== %s of 4: %s\n' "$1" "$2"; }

build_other() {
  local target
  for target in core_tests profile profile_real; do
    build "$folder" $target "-DCMAKE_TOOLCHAIN_FILE=$root/scripts/other-platform.cmake" -DTESSAVIEW_QT=OFF \
      -DTESSAVIEW_BOOKMARKS=OFF -DTESSAVIEW_FILTERS=OFF -DTESSAVIEW_BENCH=OFF -DTESSAVIEW_TESTS=ON \
      -DTESSAVIEW_GOOGLETEST=/usr/src/googletest/googletest || return
  done
}

# prepare_wine: a home of its own for Wine, gone with the script.
prepare_wine() {
  WINEPREFIX=$(mktemp -d) || return
  # No window asks whether more is to be fetched.
  export WINEPREFIX WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
  trap 'wineserver -k 2>/dev/null || "$(dirname "$(readlink -f "$(command -v wine)")")/wineserver" -k 2>/dev/null
        rm -rf "$WINEPREFIX"' EXIT
  wine wineboot -i 2>/dev/null
}

# Which tests did not run, and why: those that were not built, and those that say so themselves.
print_left_out() {
  cat "$folder/left-out.txt"
  awk '{ sub(/\r$/, "") } /: Skipped$/ { getline; sub(/\r$/, ""); reason = $0 }
       /^\[  SKIPPED \] .* \(/ { print "Left out: " $4 " (" reason ")" }' "$1"
}

run_core_tests() {
  local log=$folder/core-tests.log result
  # Paths of the sources begin with a slash, which is of the drive that the program starts on.
  (cd "$root" && wine "$folder/tests/core_tests.exe" --gtest_color=no >"$log" 2>/dev/null)
  result=$?
  print_left_out "$log"
  tr -d '\r' <"$log" | grep -vE '^\[( RUN|       OK|  SKIPPED|-----)|: Skipped$' | tail -n 60
  # Who dies says nothing of it.
  grep -q 'Global test environment tear-down' "$log" || echo "It ended in: $(grep '^\[ RUN ' "$log" | tail -n 1)"
  tr -d '\r' <"$log" | grep -q '^\[  PASSED  \] [1-9]' && [ $result = 0 ]
}

step 1 "Packages"
install_missing "${other_platform_packages[@]}" || exit 1
need_commands cmake ninja x86_64-w64-mingw32-g++-posix wine || exit 1
step 2 "Build of core, tests and profile tool"
build_other || exit 1
prepare_wine || { echo "Wine does not start." >&2; exit 1; }
step 3 "Tests of the core"
run_core_tests || failed=yes
step 4 "The profile tool, held against the real functions"
python3 "$root/tests/tools/profile_compare.py" "$folder/tests" wine 2>&1 || failed=yes

[ $failed = no ] && echo "Everything passed." || { echo "Something failed." >&2; exit 1; }
