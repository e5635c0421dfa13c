#!/bin/sh
# Opens a TessaGroup on every working day, by a timer of the desktop:
#   every-morning.sh GROUP [HH:MM]
set -eu
exec systemd-run --user --unit=tessaview-morning --on-calendar="Mon..Fri ${2:-08:00}" tessaviewctl open-group "$1"
