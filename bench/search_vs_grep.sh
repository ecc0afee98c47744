#!/bin/sh
# The file search over all CDs of the benchmark archive (500 CDs, 5 million image lines),
# run through the command line, against `LC_ALL=C grep -i -c -F` over the same image files
# in one run. Both read from a warm page cache; the runs alternate, so a busy machine slows
# both alike. Prints the median wall and processor times, the hit counts and the ratio of
# the wall times, then the figures of the search inside one process.
#
#   bench/search_vs_grep.sh [BUILD_FOLDER [RUNS]]      (defaults: build, 9)
#
# The data is made once into $SEARCH_BENCH_DATA (default /tmp/silberbuch-search-bench).
set -eu

build=${1:-build}
runs=${2:-9}
data=${SEARCH_BENCH_DATA:-/tmp/silberbuch-search-bench}
bench=$build/bench/search_bench
cli=$build/src/cli/silberbuch-cli

[ -f "$data/archive/Bench.mdb" ] || "$bench" make "$data"
# Settings and program folder of the run's own, so the user's are never touched.
export SILBERBUCH_CONFIG="$data/settings.ini" SILBERBUCH_HOME="$data/home"
cat "$data"/lws/*.dat > /dev/null
# Output goes to a file: grep stops at the first match when it sees its output is /dev/null.
out="$data/output.txt"
times="$data/times.txt"

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

# Runs a command once and appends its wall and processor seconds to the file $1.
timed() {
    record=$1
    shift
    /usr/bin/time -f "%e %U %S" -o "$times" "$@" > "$out" 2> /dev/null || true
    # A failing command (no hit) gets a note line before the figures.
    tail -n 1 "$times" | awk '{ printf "%s %.2f\n", $1, $2 + $3 }' >> "$record"
}

for word in haus zebrafink; do
    : > "$data/ours.txt"
    : > "$data/grep.txt"
    i=0
    while [ "$i" -lt "$runs" ]; do
        timed "$data/ours.txt" "$cli" --data "$data" --archive Bench search "$word"
        timed "$data/grep.txt" env LC_ALL=C grep -i -c -F "$word" "$data"/lws/*.dat
        i=$((i + 1))
    done
    ourHits=$("$cli" --data "$data" --archive Bench search "$word" 2> /dev/null | wc -l)
    grepHits=$(LC_ALL=C grep -i -c -F "$word" "$data"/lws/*.dat | awk -F: '{ s += $NF } END { print s + 0 }')
    ourWall=$(cut -d' ' -f1 "$data/ours.txt" | median)
    ourCpu=$(cut -d' ' -f2 "$data/ours.txt" | median)
    grepWall=$(cut -d' ' -f1 "$data/grep.txt" | median)
    grepCpu=$(cut -d' ' -f2 "$data/grep.txt" | median)
    awk -v w="$word" -v ow="$ourWall" -v oc="$ourCpu" -v gw="$grepWall" -v gc="$grepCpu" \
        -v oh="$ourHits" -v gh="$grepHits" 'BEGIN {
        printf "%-10s silberbuch-cli search: %4.0f ms wall, %4.0f ms cpu, %6d hits | grep -i -c -F: %4.0f ms wall, %4.0f ms cpu, %6d lines | wall ratio %.2fx grep\n",
               w, ow * 1000, oc * 1000, oh, gw * 1000, gc * 1000, gh, ow / gw
    }'
done
"$bench" run "$data" "$runs"
