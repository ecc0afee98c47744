#!/usr/bin/env bash
# Configures and builds into build/ (two jobs: the machines have two cores): everything, or only
# the targets named with --target NAME...; other arguments go to the configure step.
# ccache, where present, lets several checkouts of the project share compiled objects.
set -euo pipefail
cd "$(dirname "$0")/.."
configure=() targets=()
while [ $# -gt 0 ]; do
  if [ "$1" = --target ]; then
    shift
    while [ $# -gt 0 ] && [ "${1#-}" = "$1" ]; do targets+=("$1"); shift; done
  else
    configure+=("$1"); shift
  fi
done
if command -v ccache >/dev/null; then
  export CCACHE_BASEDIR="$PWD" CCACHE_NOHASHDIR=1
  configure+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
fi
cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${configure[@]}" >/dev/null
cmake --build build -j2 ${targets[@]:+--target "${targets[@]}"}
