# Sourced by run.sh and tests/e2e/on-display.sh: who goes without the engine's sandbox.
# shellcheck shell=bash

# sandbox_off_for_root: the sandbox does not work for root, so root goes without it, and nobody else.
sandbox_off_for_root() {
  if [ "$(id -u)" = 0 ]; then export QTWEBENGINE_DISABLE_SANDBOX=1; fi
}
