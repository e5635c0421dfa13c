# Sourced by run.sh, with packages.sh and build.sh: on a fresh machine the core is compiled while Qt's packages come.
# shellcheck shell=bash
# shellcheck disable=SC2154

program_alone=(-DTESSAVIEW_TESTS=OFF -DTESSAVIEW_BENCH=OFF)
core_log=$root/build/core.log
# The process group that compiles the core.
core=

# compile_core: goes on by itself, until finish_core or end_core.
compile_core() {
  local options=()
  is_configured "$root/build" || options=(-DTESSAVIEW_QT=OFF "${program_alone[@]}")
  echo "Meanwhile the core is compiled, which needs no Qt. How far it is stands in $core_log" >&2
  mkdir -p "$root/build"
  # The packages come one after the other and go first. In a group of its own it ends whole, down to each compiler.
  # shellcheck disable=SC2016 # the other shell's variables
  setsid nice -n 5 bash -c 'root=$1; . "$root/scripts/build.sh"; shift; build "$root/build" tessa_core "$@"' \
    bash "$root" "${options[@]}" </dev/null >"$core_log" 2>&1 &
  core=$!
  trap end_core EXIT
}

# end_core: when something else failed, or the user has had enough.
end_core() {
  trap - EXIT
  # The group is there a moment after its first process.
  until kill -TERM -- "-$core" 2>/dev/null || ! kill -0 "$core" 2>/dev/null; do sleep 0.05; done
  wait "$core" 2>/dev/null || true
}

# finish_core: waits for it, and shows meanwhile how far it is. Fails, with all that was said, when the core did not
# compile.
finish_core() {
  if kill -0 "$core" 2>/dev/null; then
    echo "The packages are there; the core is compiled to its end" >&2
    tail -n 1 -f -s 0.2 --pid="$core" "$core_log" >&2
  fi
  if ! wait "$core"; then
    cat "$core_log" >&2
    echo "The core could not be built; why stands above." >&2
    return 1
  fi
  trap - EXIT
}

# install_and_compile_core [--svg] PACKAGE...: as install_missing. A core that was never compiled here needs the
# compilers alone, so these come first, and it is compiled while the rest comes.
install_and_compile_core() {
  local missing first=() rest=() package
  prepare_install "$@"
  for package in "${missing[@]}"; do
    if [[ " ${compiler_packages[*]} " == *" $package "* ]]; then first+=("$package"); else rest+=("$package"); fi
  done
  if [ ${#rest[@]} = 0 ] || { is_configured "$root/build" && has_option "$root/build" TESSAVIEW_QT=ON; }; then
    apt_install "${missing[@]}"
    need_commands cmake ninja c++
    return
  fi
  apt_install "${first[@]}"
  need_commands cmake ninja c++
  compile_core
  apt_install "${rest[@]}"
  finish_core
}
