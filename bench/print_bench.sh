#!/bin/sh
# The file list print-out of a drive image into a PDF file through the command line, beside
# enscript + ps2pdf printing the same lines, for images of 10,000, 100,000 and 1,000,000 lines
# (or the counts given). Prints wall seconds, peak memory, pages and the ratio for each size.
# Targets: at most 1.0 x the peer's time, peak memory under 150 MB and flat as the list grows.
#
#   bench/print_bench.sh [BUILD_FOLDER [LINES...]]      (defaults: build, 10000 100000 1000000)
#
# The peer is installed here when missing; it is no dependency of the program or its tests.
set -eu

build=${1:-build}
[ $# -gt 0 ] && shift
sizes=${*:-10000 100000 1000000}
cli=$(cd "$build" && pwd)/src/cli/silberbuch-cli
work=${PRINT_BENCH_WORK:-/tmp/silberbuch-print-bench}

if ! command -v enscript > /dev/null || ! command -v ps2pdf > /dev/null; then
    sudo_cmd=""
    [ "$(id -u)" -eq 0 ] || sudo_cmd=sudo
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y -qq --no-install-recommends enscript ghostscript > /dev/null
fi

rm -rf "$work" && mkdir -p "$work/data/lws"
export SILBERBUCH_CONFIG="$work/settings.ini" SILBERBUCH_HOME="$work/home"
"$cli" --data "$work/data" archive create Bench > /dev/null
"$cli" --data "$work/data" --archive Bench cd add --number 1 --title Bench --image 4242 > /dev/null

# Wall seconds and peak resident kilobytes of one command.
timed() {
    /usr/bin/time -f '%e %M' -o "$work/one" "$@" > /dev/null 2>&1
    cat "$work/one"
}
pages() { pdfinfo "$1" | awk '/^Pages:/ { print $2 }'; }

printf '%9s  %9s %8s %7s  %9s %8s %7s  %6s\n' lines ours_s ours_MB pages peer_s peer_MB pages ratio
for lines in $sizes; do
    # A folder line and 99 file lines under it, over and over; the image ends in its empty line.
    # The peer gets the lines as the print-out shows them: folders as they are, files with
    # " Date:" and the date, the last line twice.
    awk -v n="$lines" -v image="$work/data/lws/4242.dat" -v text="$work/lines.txt" 'BEGIN {
        for (i = 0; i < n; i++) {
            if (i % 100 == 0) {
                folder = sprintf("d:\\Ordner%05d", i / 100)
                line = ">" folder
                shown = line
            } else {
                name = sprintf("%s\\Datei mit langem Namen %07d.txt", folder, i)
                line = name "|" (i * 37 % 9000000) "|19.01.2003 00:12:31"
                shown = name " Date:19.01.2003 00:12:31"
            }
            printf "%s\r\n", line > image
            print shown > text
        }
        printf "\r\n" > image
        print shown > text
    }'
    sync
    set -- $(timed "$cli" --data "$work/data" --archive Bench print files 1 --pdf "$work/ours.pdf")
    ours_s=$1 ours_kb=$2
    set -- $(timed sh -c "enscript -B -q -p - '$work/lines.txt' | ps2pdf - '$work/peer.pdf'")
    peer_s=$1 peer_kb=$2
    printf '%9s  %9s %8s %7s  %9s %8s %7s  %6s\n' "$lines" "$ours_s" $((ours_kb / 1024)) "$(pages "$work/ours.pdf")" \
        "$peer_s" $((peer_kb / 1024)) "$(pages "$work/peer.pdf")" \
        "$(awk -v a="$ours_s" -v b="$peer_s" 'BEGIN { printf "%.2f", a / b }')"
done
