# Sourced by run.sh and test.sh, which set `root`, the project's folder: builds into a folder beside the sources.
# shellcheck shell=bash
# shellcheck disable=SC2154

# has_option FOLDER NAME=VALUE: whether the build folder was made with it.
has_option() { grep -qE "^${2%%=*}:[A-Z]+=${2#*=}\$" "$1/CMakeCache.txt"; }

# is_configured FOLDER: whether the build files are there, for this place and this kind of build.
is_configured() {
  [ -e "$1/build.ninja" ] && has_option "$1" "CMAKE_HOME_DIRECTORY=$root" && has_option "$1" CMAKE_BUILD_TYPE=Release
}

has_options() {
  local folder=$1 option
  shift
  for option in "$@"; do has_option "$folder" "${option#-D}" || return; done
}

# configure FOLDER [OPTION...]: makes the build files unless they are there. Options have the form -DNAME=VALUE.
configure() {
  local folder=$1 fresh=()
  shift
  if ! is_configured "$folder"; then
    fresh=(--fresh)
  elif has_options "$folder" "$@"; then
    return
  fi
  cmake "${fresh[@]}" -S "$root" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Release "$@"
}

# build FOLDER TARGET [OPTION...]: configures and builds one target. Two builds of one folder wait for each other.
build() {
  local folder=$1 target=$2
  shift 2
  mkdir -p "$folder"
  (
    flock 9
    # How far it is: percent, and steps done of all.
    export NINJA_STATUS='[%p %f/%t] '
    configure "$folder" "$@" && cmake --build "$folder" --target "$target" 9>&-
  ) 9>"$folder/.lock"
}
