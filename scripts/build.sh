# Sourced by run.sh and test.sh, which set `root`, the project's folder: builds into a folder beside the sources.
# shellcheck shell=bash
# shellcheck disable=SC2154

# configure FOLDER [OPTION...]: makes the build files unless they are there, for this place and this kind of build.
configure() {
  local folder=$1 cache=$1/CMakeCache.txt
  shift
  if [ -e "$folder/build.ninja" ] && grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$root" "$cache" &&
     grep -qx 'CMAKE_BUILD_TYPE:STRING=Release' "$cache"; then
    return
  fi
  cmake --fresh -S "$root" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Release "$@"
}

# build FOLDER TARGET [OPTION...]: configures and builds one target. Two builds of one folder wait for each other.
build() {
  local folder=$1 target=$2
  shift 2
  mkdir -p "$folder"
  (
    flock 9
    configure "$folder" "$@" && cmake --build "$folder" --target "$target" 9>&-
  ) 9>"$folder/.lock"
}
