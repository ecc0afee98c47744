#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running Silberbuch need.
# Safe to run again: apt-get skips what is already there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools libqt6svg6 qt6-image-formats-plugins
  libsqlite3-dev libarchive-dev libblkid-dev libcurl4-openssl-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  fonts-liberation2 xvfb xauth poppler-utils
  hicolor-icon-theme adwaita-icon-theme zip
  mdbtools-dev qt6-translations-l10n
  desktop-file-utils appstream man-db groff-base dpkg-dev file lintian
  python3 ccache strace
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo_cmd=()
[ "$(id -u)" -eq 0 ] || sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
