# Sourced by run.sh and tests/e2e/on-display.sh: a virtual display with a window manager, and its end.
# shellcheck shell=bash

# until_true SECONDS COMMAND...: asks again until the command succeeds; fails when the time is over.
until_true() {
  local end=$((SECONDS + $1))
  shift
  until "$@" >/dev/null 2>&1; do
    [ "$SECONDS" -lt "$end" ] || return 1
    sleep 0.05
  done
}

# first_line_of NAME COMMAND...: starts a server, which goes on, and prints the first line it writes to descriptor 3.
# What else it says goes to NAME.log.
first_line_of() {
  local name=$1 line
  shift
  mkfifo "$name.pipe"
  "$@" 3>"$name.pipe" >"$name.log" 2>&1 </dev/null &
  read -r -t 30 line <"$name.pipe" && echo "$line"
}

# start_display FOLDER: exports DISPLAY once windows can be shown on it. FOLDER keeps the logs. Every process started
# from now on carries the folder's name in its environment, which is how stop_display knows its own.
start_display() {
  export TESSAVIEW_DISPLAY_RUN=$1
  unset WAYLAND_DISPLAY
  local number
  if ! number=$(first_line_of "$1/xvfb" Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp -noreset); then
    echo "The virtual display did not start:" >&2
    cat "$1/xvfb.log" >&2
    return 1
  fi
  export DISPLAY=:$number
  openbox >"$1/openbox.log" 2>&1 &
  # The number of desktops is told by the window manager, so its answer means that one is at work.
  if ! until_true 30 xdotool get_num_desktops; then
    echo "The window manager of the virtual display did not start:" >&2
    cat "$1/openbox.log" >&2
    return 1
  fi
}

processes_of_display() {
  grep -lzsxF "TESSAVIEW_DISPLAY_RUN=$1" /proc/[0-9]*/environ 2>/dev/null | cut -d/ -f3 || true
}

signal_display() {
  local processes
  mapfile -t processes < <(processes_of_display "$1")
  # One that has just ended by itself is no failure.
  [ ${#processes[@]} = 0 ] || kill -s "$2" "${processes[@]}" 2>/dev/null || true
}

display_is_empty() { [ -z "$(processes_of_display "$1")" ]; }

# stop_display FOLDER: ends every process of the display, waits until they are gone, removes the folder.
stop_display() {
  # Else the commands that look for its processes would find themselves.
  unset TESSAVIEW_DISPLAY_RUN
  signal_display "$1" TERM
  until_true 5 display_is_empty "$1" || signal_display "$1" KILL
  until_true 5 display_is_empty "$1" || echo "Some processes of the virtual display would not end." >&2
  rm -rf "$1"
}
