# Sourced by run.sh and test.sh: what the house needs from Debian, and how it gets there.
# shellcheck shell=bash
# shellcheck disable=SC2034 # the lists are for those who source this

# What compiles the core, which needs no Qt; ccache keeps what was compiled once.
compiler_packages=(g++ cmake ninja-build ccache pkgconf libxml2-dev libre2-dev libpsl-dev)
# The program alone.
program_packages=("${compiler_packages[@]}" qt6-base-dev qt6-declarative-dev qt6-webengine-dev libgl-dev
                  libqpdf-dev libsystemd-dev pkgconf)
# The core alone, with its tests.
core_packages=("${compiler_packages[@]}" libgtest-dev)
# The program with its tests and benchmarks.
build_packages=("${program_packages[@]}" "${core_packages[@]}" libbenchmark-dev)
# What the program needs wherever it runs: to remember what was read, and to look right. qt6-wayland is for desktops
# without an X server.
run_packages=(libqt6sql6-sqlite qt6-wayland breeze-icon-theme fonts-dejavu-core ca-certificates)
# The core for the other desktop platform (scripts/other-platform.sh): a compiler, what runs programs, sources of tests.
other_platform_packages=(cmake ninja-build ccache g++-mingw-w64-x86-64-posix wine wine64 googletest python3)
display_packages=(xvfb openbox xdotool imagemagick x11-utils)
format_packages=(clang-format git)
test_packages=(dbus at-spi2-core python3 python3-pyatspi openssl x11-xkb-utils poppler-utils qpdf)
# What checks the package; debootstrap for the test that installs it in a system of its own.
packaging_packages=(appstream desktop-file-utils dpkg-dev gzip lintian man-db python3 shared-mime-info)
fresh_root_packages=(debootstrap)

# SVG icons need a plugin of Qt that has a package of its own from Debian 13 on.
svg_package() {
  local package
  compgen -G '/usr/lib/*/qt6/plugins/iconengines/libqsvgicon.so' >/dev/null && return
  for package in qt6-svg-plugins libqt6svg6; do
    if apt-cache show "$package" >/dev/null 2>&1; then echo "$package"; return; fi
  done
  echo libqt6svg6
}

# missing_of PACKAGE...: prints those that are not installed, each once.
missing_of() {
  local have package
  # dpkg-query fails when it does not know one of the packages, and still tells of the others.
  have=" $(dpkg-query -W -f='${db:Status-Status}:${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed://p' | tr '\n' ' ' || true)"
  for package in "$@"; do
    if [[ $have != *" $package "* ]]; then
      echo "$package"
      have+="$package "
    fi
  done
}

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

can_be_root() {
  [ "$(id -u)" = 0 ] && return
  command -v sudo >/dev/null || return
  # Without a terminal nobody can type the password.
  sudo -n true 2>/dev/null || [ -t 0 ]
}

# find_missing [--svg] PACKAGE...: sets `missing` to what is not installed.
find_missing() {
  local svg=no list
  if [ "$1" = --svg ]; then svg=yes; shift; fi
  list=$(missing_of "$@")
  [ $svg = no ] || list+=$'\n'$(svg_package)
  mapfile -t missing < <(sed '/^$/d' <<<"$list")
}

# prepare_install [--svg] PACKAGE...: sets `missing` to what is not installed. When that is anything, the lists of
# packages are brought up to date. --svg adds the plugin for SVG icons. Fails when nothing may be installed.
prepare_install() {
  missing=()
  if ! command -v dpkg-query >/dev/null; then
    echo "This is not a Debian system, so nothing is installed. Needed are the equivalents of: ${*#--svg}" >&2
    return
  fi
  find_missing "$@"
  [ ${#missing[@]} -gt 0 ] || return 0
  if ! can_be_root; then
    echo "Packages are missing, and installing them needs root or sudo. Have an administrator run:" >&2
    echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
    return 1
  fi
  echo "Bringing the lists of packages up to date" >&2
  as_root apt-get update -qq >&2 || echo "The lists of packages could not be brought up to date." >&2
  # Which package holds the plugin is known for sure only with fresh lists.
  find_missing "$@"
}

# apt_install PACKAGE...: does nothing without any. Fails when the packages could not be installed.
apt_install() {
  [ $# -gt 0 ] || return 0
  echo "Installing $# packages and what they need: $*" >&2
  if ! as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@" >&2; then
    echo "The packages could not be installed; what apt-get says of it stands above." >&2
    return 1
  fi
}

# install_missing [--svg] PACKAGE...: installs what is missing; does nothing, and at once, when nothing is.
install_missing() {
  local missing
  prepare_install "$@" && apt_install "${missing[@]}"
}

# need_commands COMMAND...: fails, and says which are missing.
need_commands() {
  local command result=0
  for command in "$@"; do
    if ! command -v "$command" >/dev/null; then
      echo "The command $command is missing." >&2
      result=1
    fi
  done
  return $result
}
