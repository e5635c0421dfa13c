#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test:  ./test.sh [--core]
# --core leaves out everything that needs Qt or a display. Ends with a summary; fails when any section failed.
set -uo pipefail
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)
. "$root/scripts/packages.sh"
. "$root/scripts/build.sh"
. "$root/scripts/meanwhile.sh"

core_only=no
case "${1:-}" in
  "") ;;
  --core) core_only=yes ;;
  *) echo "usage: ./test.sh [--core]" >&2; exit 2 ;;
esac

# The version of Debian 12, which the house is formatted with; others break lines differently.
format_version=14
build_folder=$root/build
options=()
if [ $core_only = yes ]; then
  build_folder=$root/build-core options=(-DTESSAVIEW_QT=OFF)
else
  # run.sh makes the same folder for the program alone, and when it was ended early, for the core alone.
  # The core's tests run with the sanitizers.
  options=(-DTESSAVIEW_QT=ON -DTESSAVIEW_TESTS=ON -DTESSAVIEW_CORE_TESTS=OFF -DTESSAVIEW_BENCH=ON)
fi
# One more than there are processors: many tests wait for the program most of their time.
jobs=$(($(nproc) + 1))
summary=()
failed=no

# section NAME COMMAND...: runs one section and keeps how it went. A section that says something with `note` has it
# repeated in the summary.
section() {
  local name=$1 start=$SECONDS result=ok
  shift
  note=
  printf '\n== %s\n' "$name"
  "$@" || { result=FAILED failed=yes; }
  summary+=("$(printf '%-6s %4d s  %s%s' "$result" $((SECONDS - start)) "$name" "${note:+ ($note)}")")
  printf -- '-- %s: %s, %d s\n' "$name" "$result" $((SECONDS - start))
  [ "$result" = ok ]
}

note() {
  note=$1
  echo "$1"
}

# What cannot run for want of an earlier section is a failure too, never silently left out.
not_run() {
  failed=yes
  summary+=("$(printf '%-6s %4s    %s (not run: %s)' FAILED - "$1" "$2")")
}

install_packages() {
  install_all_packages && need_commands cmake ninja ctest c++ clang-format
}

install_all_packages() {
  local packages=("${core_packages[@]}" "${format_packages[@]}")
  [ $core_only = no ] || { install_missing "${packages[@]}"; return; }
  install_and_compile --svg "${packages[@]}" "${build_packages[@]}" "${run_packages[@]}" "${display_packages[@]}" \
    "${test_packages[@]}" "${packaging_packages[@]}"
}

tracked_sources() {
  if git -C "$root" rev-parse --git-dir >/dev/null 2>&1; then
    git -C "$root" ls-files -z -- '*.h' '*.cpp'
  else
    find . -path './build*' -prune -o \( -name '*.h' -o -name '*.cpp' \) -print0
  fi
}

check_format() {
  local tool=clang-format version files
  ! command -v "clang-format-$format_version" >/dev/null || tool=clang-format-$format_version
  version=$("$tool" --version) || return 1
  mapfile -d '' -t files < <(cd "$root" && tracked_sources)
  [ ${#files[@]} -gt 0 ] || { echo "There are no sources to check."; return 1; }
  echo "${#files[@]} files, $version"
  (cd "$root" && "$tool" --dry-run -Werror "${files[@]}") && return
  [[ $version == *"version $format_version."* ]] && return 1
  note "differences, but not by clang-format $format_version: only a warning"
}

check_layers() {
  local tests=$build_folder/tests/house_tests
  "$tests" --gtest_list_tests --gtest_filter='Layers.*' | grep -q EveryInclude || { echo "The layer test is missing."; return 1; }
  "$tests" --gtest_brief=1 --gtest_filter='Layers.*'
}

# What a test program leaves out as a whole it says in a line that begins with SKIPPED; the summary repeats it.
run_tests() {
  local result=0 skipped
  ctest --test-dir "$1" --output-on-failure --no-tests=error -j "$jobs" || result=$?
  skipped=$(sed -n 's/^SKIPPED: //p' "$1/Testing/Temporary/LastTest.log")
  [ -z "$skipped" ] || note "left out: $skipped"
  return $result
}

if section "Packages" install_packages; then
  section "Format" check_format
  if section "Build (Release)" build "$build_folder" all "${options[@]}"; then
    section "Layers" check_layers
    if [ $core_only = yes ]; then
      section "Tests: core" run_tests "$build_folder"
    else
      section "Tests: Qt, engine, end-to-end" run_tests "$build_folder"
    fi
  else
    not_run "Layers" "the build failed"
    not_run "Tests" "the build failed"
  fi
  if section "Build with sanitizers (core)" build "$root/build-sanitize" all -DTESSAVIEW_QT=OFF -DTESSAVIEW_SANITIZE=ON; then
    section "Tests with sanitizers (core)" run_tests "$root/build-sanitize"
  else
    not_run "Tests with sanitizers (core)" "the build failed"
  fi
else
  not_run "Everything else" "what it needs is missing"
fi

printf '\n== Summary\n'
printf '%s\n' "${summary[@]}"
[ $core_only = no ] || echo "Only the core was tested (--core)."
if [ $failed = yes ]; then echo "FAILED"; exit 1; fi
echo "All passed, $SECONDS s."
