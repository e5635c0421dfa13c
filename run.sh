#!/usr/bin/env bash
# Installs what is missing, builds, and starts TessaView:  ./run.sh [ADDRESS | GROUP.tvg]
set -euo pipefail
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")" && pwd)
. "$root/scripts/packages.sh"
. "$root/scripts/build.sh"
. "$root/scripts/meanwhile.sh"
. "$root/scripts/display.sh"
. "$root/scripts/sandbox.sh"

step() { echo "== $1 of 3: $2" >&2; }

packages=("${program_packages[@]}" "${run_packages[@]}")
has_display=yes
if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
  has_display=no
  packages+=("${display_packages[@]}")
fi
step 1 "Packages"
install_and_compile --svg "${packages[@]}"
step 2 "Build (about a minute the first time on two processors)"
options=(-DTESSAVIEW_QT=ON)
is_configured "$root/build" || options+=("${program_alone[@]}")
build "$root/build" tessaview "${options[@]}" >&2
step 3 "TessaView"

sandbox_off_for_root
[ $has_display = no ] || exec "$root/build/tessaview" "$@"

# From here on: no display.
screenshot=$root/build/screenshot.png
seconds_to_load=5
program=

stop() {
  trap - EXIT INT TERM HUP
  if [ -n "$program" ] && kill -TERM "$program" 2>/dev/null; then wait "$program" 2>/dev/null || true; fi
  stop_display "$folder"
}

window_or_end() { ! kill -0 "$program" || xdotool search --onlyvisible --name '^TessaView 3$'; }

take_screenshot() {
  if ! until_true 60 window_or_end; then
    echo "No window came up within a minute, so there is no screenshot." >&2
    return
  fi
  local end=$((SECONDS + seconds_to_load))
  while [ "$SECONDS" -lt "$end" ] && kill -0 "$program" 2>/dev/null; do sleep 0.2; done
  if ! kill -0 "$program" 2>/dev/null; then
    echo "The program ended before a screenshot could be taken." >&2
  elif import -window root "$screenshot"; then
    echo "Screenshot: $screenshot"
    echo "TessaView goes on running on display $DISPLAY; Ctrl+C ends it." >&2
  else
    echo "The screenshot could not be taken." >&2
  fi
}

echo "There is no display (neither DISPLAY nor WAYLAND_DISPLAY is set): TessaView runs on a virtual one." >&2
folder=$(mktemp -d)
trap stop EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP
start_display "$folder"
"$root/build/tessaview" "$@" <&0 &
program=$!
take_screenshot
code=0
wait "$program" || code=$?
program=
exit "$code"
