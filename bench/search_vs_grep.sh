#!/bin/sh
# The file search over all CDs of the benchmark archive (500 CDs, 5 million image lines),
# run through the command line, against `LC_ALL=C grep -i -c -F` over the same image files
# in one run. Both read from a warm page cache; the runs alternate, so a busy machine slows
# both alike. Prints the median wall times, the hit counts and the ratio, then the figures
# of the search inside one process.
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

now() { date +%s%N; }
median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }

for word in haus zebrafink; do
    ours=""
    theirs=""
    i=0
    while [ "$i" -lt "$runs" ]; do
        start=$(now)
        "$cli" --data "$data" --archive Bench search "$word" > "$out" 2>&1 || true
        ours="$ours $(( $(now) - start ))"
        start=$(now)
        LC_ALL=C grep -i -c -F "$word" "$data"/lws/*.dat > "$out" || true
        theirs="$theirs $(( $(now) - start ))"
        i=$((i + 1))
    done
    ourHits=$("$cli" --data "$data" --archive Bench search "$word" 2> /dev/null | wc -l)
    grepHits=$(LC_ALL=C grep -i -c -F "$word" "$data"/lws/*.dat | awk -F: '{ s += $NF } END { print s + 0 }')
    ourMedian=$(echo $ours | tr ' ' '\n' | median)
    grepMedian=$(echo $theirs | tr ' ' '\n' | median)
    awk -v w="$word" -v o="$ourMedian" -v g="$grepMedian" -v oh="$ourHits" -v gh="$grepHits" 'BEGIN {
        printf "%-10s silberbuch-cli search %7.1f ms (%d hits) | grep -i -c -F %7.1f ms (%d lines) | ratio %.2fx grep\n",
               w, o / 1e6, oh, g / 1e6, gh, o / g
    }'
done
"$bench" run "$data" "$runs"
