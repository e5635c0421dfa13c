#!/usr/bin/env bash
# Measures the structure of the checkout, or of another one: rooms, circles, wiring, lengths.
#   scripts/measure.sh [--build] [FOLDER]
# --build also takes the time of a build from nothing and of one after a change of one widget.
set -euo pipefail
exec python3 "$(dirname "${BASH_SOURCE[0]}")/measure.py" "$@"
