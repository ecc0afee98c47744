#!/usr/bin/env bash
# Loading and browsing a generated drive image of one million lines, beside `cat` reading the
# same file from the page cache. Prints the benchmark's figures and the ratio of the tree
# load to the median `cat`. Usage: bench/browse_bench.sh [build folder]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
bench="$build/bench/browse_bench"
[ -x "$bench" ] || { echo "$bench fehlt: erst bauen (scripts/build.sh)" >&2; exit 1; }

image=$(mktemp --suffix=.dat)
trap 'rm -f "$image"' EXIT
"$bench" --generate "$image"
cat "$image" > /dev/null

times=()
for _ in 1 2 3 4 5 6 7; do
  start=$EPOCHREALTIME
  cat "$image" > /dev/null
  end=$EPOCHREALTIME
  times+=("$(awk -v s="$start" -v e="$end" 'BEGIN { printf "%.3f", (e - s) * 1000 }')")
done
cat_ms=$(printf '%s\n' "${times[@]}" | sort -g | sed -n 4p)

output=$("$bench" "$image")
echo "$output" | grep -v '^load_ms='
load_ms=$(echo "$output" | sed -n 's/^load_ms=//p')
echo "cat > /dev/null: ${cat_ms} ms (median of 7)"
awk -v l="$load_ms" -v c="$cat_ms" 'BEGIN { printf "tree load / cat: %.2f (target: at most 3)\n", l / c }'
