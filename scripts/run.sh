#!/usr/bin/env bash
# Installs what is missing, builds the two programs only, and starts the desktop program
# (arguments pass through). Tests and benchmarks are left to scripts/test.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh --target silberbuch silberbuch-cli
if [ -x build/src/app/silberbuch ] && { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }; then
  exec build/src/app/silberbuch "$@"
fi
echo "Kein Bildschirm gefunden: hier ist die Kommandozeile." >&2
exec build/src/cli/silberbuch-cli --help
