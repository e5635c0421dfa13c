# Sourced by run.sh and test.sh, with packages.sh and build.sh: on a fresh machine what can be compiled is compiled while
# packages come: the core while Qt's do, and the program while those do that it needs only to run.
# shellcheck shell=bash
# shellcheck disable=SC2154

program_alone=(-DTESSAVIEW_TESTS=OFF -DTESSAVIEW_BENCH=OFF)
# Of each part that is compiled meanwhile, in turn: the process group that compiles it, what it is, and where it says
# how far it is.
groups=() parts=() logs=()

# compile_meanwhile PART TARGET [OPTION...]: goes on by itself, after what was begun before, until finish_compiling or
# end_compiling.
compile_meanwhile() {
  local part=$1 log=$root/build/$2.log before=
  [ ${#groups[@]} = 0 ] || before=${groups[-1]}
  shift
  echo "Meanwhile $part is compiled. How far it is stands in $log" >&2
  mkdir -p "$root/build"
  # The packages come one after the other and go first. In a group of its own it ends whole, down to each compiler.
  # Linux shares the processors among sessions first, and this is a new one.
  # One after the other, in this order: the program's build files are made of the core's.
  # shellcheck disable=SC2016 # the other shell's variables
  setsid nice -n 5 bash -c 'root=$1 before=$2; . "$root/scripts/build.sh"; shift 2
    { nice >/proc/self/autogroup; } 2>/dev/null
    while [ -n "$before" ] && kill -0 "$before" 2>/dev/null; do sleep 0.1; done
    build "$root/build" "$@"' bash "$root" "$before" "$@" </dev/null >"$log" 2>&1 &
  groups+=($!) parts+=("$part") logs+=("$log")
  trap end_compiling EXIT
}

# end_compiling: when something else failed, or the user has had enough.
end_compiling() {
  local group
  trap - EXIT
  for group in "${groups[@]}"; do
    # The group is there a moment after its first process.
    until kill -TERM -- "-$group" 2>/dev/null || ! kill -0 "$group" 2>/dev/null; do sleep 0.05; done
    wait "$group" 2>/dev/null || true
  done
}

# finish_compiling: waits for it, and shows meanwhile how far it is. Fails, with all that was said, when something did
# not compile.
finish_compiling() {
  local i
  for i in "${!groups[@]}"; do
    if kill -0 "${groups[i]}" 2>/dev/null; then
      echo "Now ${parts[i]} is compiled to its end" >&2
      tail -n 1 -f -s 0.2 --pid="${groups[i]}" "${logs[i]}" >&2
    fi
    if ! wait "${groups[i]}"; then
      end_compiling
      cat "${logs[i]}" >&2
      echo "${parts[i]^} could not be built; why stands above." >&2
      return 1
    fi
  done
  trap - EXIT
  groups=() parts=() logs=()
}

# only_of LIST...: those of `missing` that are among the packages; others_of: those that are not.
only_of() { local each; for each in "${missing[@]}"; do [[ " $* " != *" $each "* ]] || echo "$each"; done; }
others_of() { local each; for each in "${missing[@]}"; do [[ " $* " == *" $each "* ]] || echo "$each"; done; }

# install_and_compile [--svg] PACKAGE...: as install_missing. What was never compiled here needs not all of them, so it
# is compiled while the rest comes.
install_and_compile() {
  local missing compilers qt rest options=()
  prepare_install "$@" || return
  mapfile -t compilers < <(only_of "${compiler_packages[@]}")
  mapfile -t qt < <(only_of "${program_packages[@]}" | grep -vxF -f <(printf '%s\n' "${compiler_packages[@]}"))
  mapfile -t rest < <(others_of "${program_packages[@]}")
  if ! is_configured "$root/build"; then
    options=("${program_alone[@]}")
  elif has_option "$root/build" TESSAVIEW_QT=ON; then
    compilers=("${missing[@]}") qt=() rest=()
  fi
  apt_install "${compilers[@]}" || return
  need_commands cmake ninja c++ || return
  if [ ${#qt[@]} -gt 0 ]; then
    compile_meanwhile "the core" tessa_core -DTESSAVIEW_QT=OFF "${options[@]}"
    apt_install "${qt[@]}" || return
  fi
  if [ ${#rest[@]} -gt 0 ]; then
    compile_meanwhile "the program" tessaview -DTESSAVIEW_QT=ON "${options[@]}"
    apt_install "${rest[@]}" || return
  fi
  finish_compiling
}
