#!/usr/bin/env bash
# Runs a command on a fresh virtual display, with a session bus, accessibility and state folders of its own:
#   on-display.sh COMMAND [ARGUMENT ...]
# Its exit code is the command's. Nothing of it is left when it ends.
set -euo pipefail
[ $# -gt 0 ] || { echo "usage: on-display.sh COMMAND [ARGUMENT ...]" >&2; exit 2; }
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/../../scripts/display.sh"
. "$here/../../scripts/sandbox.sh"

folder=$(mktemp -d)
stop() {
  trap - EXIT INT TERM HUP
  stop_display "$folder"
}
trap stop EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS
export XDG_RUNTIME_DIR=$folder/runtime XDG_CONFIG_HOME=$folder/config XDG_DATA_HOME=$folder/data
export XDG_CACHE_HOME=$folder/cache TESSAVIEW_HOME=$folder/home
mkdir -p "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$TESSAVIEW_HOME"
mkdir -m 700 "$XDG_RUNTIME_DIR"
# Else a program that is installed on this machine would be asked about at every start.
printf '%s\n' '[Default Applications]' {x-scheme-handler/http,x-scheme-handler/https,text/html}=tessaview.desktop \
  >"$XDG_CONFIG_HOME/mimeapps.list"
# What pages have saved does not end up among what whoever runs the tests has saved.
mkdir "$folder/downloads"
printf 'XDG_DOWNLOAD_DIR="%s"\n' "$folder/downloads" >"$XDG_CONFIG_HOME/user-dirs.dirs"
export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1 QT_QPA_PLATFORM=xcb
# However the caller's own engine is set up, only root tests without the sandbox.
unset QTWEBENGINE_DISABLE_SANDBOX QTWEBENGINE_CHROMIUM_FLAGS
sandbox_off_for_root
start_display "$folder"


launcher=/usr/libexec/at-spi-bus-launcher
[ -x "$launcher" ] || { echo "The accessibility bus is not installed: $launcher" >&2; exit 1; }
accessibility_is_there() {
  dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus org.a11y.Bus.GetAddress
}
if ! DBUS_SESSION_BUS_ADDRESS=$(first_line_of "$folder/bus" dbus-daemon --session --nofork --print-address=3); then
  echo "The session bus did not start:" >&2
  cat "$folder/bus.log" >&2
  exit 1
fi
export DBUS_SESSION_BUS_ADDRESS
"$launcher" --launch-immediately >"$folder/accessibility.log" 2>&1 &
if ! until_true 30 accessibility_is_there; then
  echo "The accessibility bus did not start:" >&2
  cat "$folder/accessibility.log" >&2
  exit 1
fi

"$@" <&0 &
wait $!
