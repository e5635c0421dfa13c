#!/bin/sh
# Writes all pages of a TessaGroup into one PDF, whose name has the date:
#   nightly-pdf.sh GROUP [FOLDER]
set -eu
tessaviewctl open-group "$1" --close-others --wait
tessaviewctl pdf all "${2:-$HOME}/$(basename "$1" .tvg) $(date +%F).pdf"
