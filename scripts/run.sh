#!/usr/bin/env bash
# Installs what is missing, builds, and starts the desktop program (arguments pass through).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh
if [ -x build/src/app/silberbuch ] && { [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; }; then
  exec build/src/app/silberbuch "$@"
fi
echo "Kein Bildschirm gefunden: hier ist die Kommandozeile." >&2
exec build/src/cli/silberbuch-cli --help
