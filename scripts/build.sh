#!/usr/bin/env bash
# Configures and builds everything into build/ (two jobs: the machines have two cores).
# ccache, where present, lets several checkouts of the project share compiled objects.
set -euo pipefail
cd "$(dirname "$0")/.."
launcher=()
if command -v ccache >/dev/null; then
  export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
  launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${launcher[@]}" "$@" >/dev/null
cmake --build build -j2
