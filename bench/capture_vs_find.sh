#!/bin/bash
# Times the capture of a generated volume (200,000 files in 20,000 folders) against
# find's walk of the same tree with size and date of every entry, warm cache, and measures
# the peak memory of the pruned capture. Targets: capture <= 1.3 x find, pruned < 50 MB.
#
#   bench/capture_vs_find.sh [BUILD_DIR] [WORK_DIR]     (RUNS=7 by default)
set -euo pipefail

build=${1:-build}
work=${2:-/tmp/silberbuch-capture-bench}
runs=${RUNS:-7}
bench="$build/bench/capture_bench"
tree="$work/tree"
data="$work/data"

[ -x "$bench" ] || { echo "missing $bench: build the target capture_bench first" >&2; exit 2; }
mkdir -p "$work" "$data"
[ -d "$tree" ] || "$bench" generate "$tree"

# Wall seconds of one command, output discarded.
wall() {
    local start end
    start=$(date +%s%N)
    "$@" > /dev/null
    end=$(date +%s%N)
    awk -v s="$start" -v e="$end" 'BEGIN { printf "%.4f\n", (e - s) / 1e9 }'
}

ratio() { awk -v a="$1" -v b="$2" 'BEGIN { printf "%.2f", a / b }'; }
median() { sort -n | awk '{ v[NR] = $1 } END { print (NR % 2) ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2 }'; }

# Warm the cache with one of each.
find "$tree" -printf '%p|%s|%T@\n' > /dev/null
"$bench" capture "$tree" "$data" > /dev/null

find_times=() plain_times=() pruned_times=() pruned_rss=()
for _ in $(seq "$runs"); do
    find_times+=("$(wall find "$tree" -printf '%p|%s|%T@\n')")
    plain_times+=("$(wall "$bench" capture "$tree" "$data")")
    pruned_times+=("$(wall "$bench" capture "$tree" "$data" --prune)")
    pruned_rss+=("$(/usr/bin/time -f %M "$bench" capture "$tree" "$data" --prune 2>&1 >/dev/null | tail -1)")
done

find_median=$(printf '%s\n' "${find_times[@]}" | median)
plain_median=$(printf '%s\n' "${plain_times[@]}" | median)
pruned_median=$(printf '%s\n' "${pruned_times[@]}" | median)
rss_max=$(printf '%s\n' "${pruned_rss[@]}" | sort -n | tail -1)

echo "runs: $runs, tree: $(find "$tree" -type d | wc -l) folders, $(find "$tree" -type f | wc -l) files"
echo "find -printf '%p|%s|%T@\\n'   median ${find_median} s   (${find_times[*]})"
echo "capture, all files           median ${plain_median} s   (${plain_times[*]})"
echo "capture, pruned              median ${pruned_median} s   (${pruned_times[*]})"
echo "ratio capture / find:        all files $(ratio "$plain_median" "$find_median"), pruned $(ratio "$pruned_median" "$find_median")   (target <= 1.3)"
echo "peak RSS of pruned capture:  $((rss_max / 1024)) MB ($rss_max KB)   (target < 50 MB)"
echo "image size:                  $(stat -c %s "$data/lws/1.dat") bytes"
