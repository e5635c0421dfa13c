#!/usr/bin/env bash
# Compiles each source and each header by itself, without what is precompiled:
#   scripts/alone.sh [FOLDER...]
# So an include that is missing is found, which sources compiled together hide. Makes no code, as that would take longer;
# even so it takes half an hour, so nothing else runs it. With folders of the checkout it takes what lies in them.
set -euo pipefail
root=$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)
folder=$root/build-alone

cmake -S "$root" -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-DNDEBUG -DTESSAVIEW_UNITY=OFF \
  -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -DTESSAVIEW_QT=ON -DTESSAVIEW_TESTS=ON -DTESSAVIEW_BENCH=ON
exec python3 "$root/scripts/alone.py" "$folder" "$@"
