#!/bin/sh
# Shows a TessaGroup alone and loads it again every ten minutes, until the program ends:
#   dashboard.sh GROUP [SECONDS]
set -eu
tessaviewctl open-group "$1" --close-others --wait
while sleep "${2:-600}" && tessaviewctl reload all; do :; done
