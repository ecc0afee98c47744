#!/bin/sh
# Backup and restore of the benchmark archive of search_bench (500 CDs, their images) through
# the command line, beside `tar cf` and `tar xf` of the same files; warm page cache, runs
# alternating. Prints median wall seconds, the ratios and the peak memory of each of ours.
# Targets: at most 1.2 x tar, peak memory under 64 MB.
#
#   bench/transfer_vs_tar.sh [BUILD_FOLDER [RUNS]]      (defaults: build, 5)
set -eu

build=${1:-build}
runs=${2:-5}
data=${SEARCH_BENCH_DATA:-/tmp/silberbuch-search-bench}
cli=$(cd "$build" && pwd)/src/cli/silberbuch-cli
work=${TRANSFER_BENCH_WORK:-/tmp/silberbuch-transfer-bench}

[ -f "$data/archive/Bench.mdb" ] || "$build/bench/search_bench" make "$data"
export SILBERBUCH_CONFIG="$data/settings.ini" SILBERBUCH_HOME="$data/home"
rm -rf "$work" && mkdir -p "$work"
cat "$data"/lws/*.dat > /dev/null

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
# Wall seconds and peak resident kilobytes of one command, appended to the file $1.
timed() {
    file=$1; shift
    /usr/bin/time -f '%e %M' -o "$work/one" "$@" > /dev/null
    cat "$work/one" >> "$file"
}

: > "$work/backup" ; : > "$work/tarc" ; : > "$work/restore" ; : > "$work/tarx"
for _ in $(seq "$runs"); do
    timed "$work/backup" "$cli" --data "$data" --archive Bench backup "$work/bench.bup" --replace
    timed "$work/tarc" tar cf "$work/bench.tar" -C "$data" archive lws
    rm -rf "$work/restored" "$work/untarred" && mkdir -p "$work/restored" "$work/untarred"
    timed "$work/restore" "$cli" --data "$work/restored" restore "$work/bench.bup"
    timed "$work/tarx" tar xf "$work/bench.tar" -C "$work/untarred"
done
for kind in backup tarc restore tarx; do
    eval "${kind}_s=$(cut -d' ' -f1 "$work/$kind" | median)"
    eval "${kind}_kb=$(cut -d' ' -f2 "$work/$kind" | sort -n | tail -1)"
done
echo "bytes: $(du -sb "$data/lws" | cut -f1) of images, backup file $(stat -c %s "$work/bench.bup")"
echo "backup  median ${backup_s} s, peak $((backup_kb / 1024)) MB;  tar cf ${tarc_s} s;  ratio $(awk -v a="$backup_s" -v b="$tarc_s" 'BEGIN { printf "%.2f", a / b }')"
echo "restore median ${restore_s} s, peak $((restore_kb / 1024)) MB;  tar xf ${tarx_s} s;  ratio $(awk -v a="$restore_s" -v b="$tarx_s" 'BEGIN { printf "%.2f", a / b }')"
