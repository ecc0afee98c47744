#!/bin/sh
# The import of an old text database of 32,000 sections (CD titles with two comment lines,
# no images) through the command line, then the HTML export of the archive it makes. Prints
# wall seconds and peak memory of each, and the pages written.
# Targets: the import under 1 s; the export's time and memory are reported.
#
#   bench/export_import_bench.sh [BUILD_FOLDER [SECTIONS]]      (defaults: build, 32000)
set -eu

build=${1:-build}
sections=${2:-32000}
cli=$(cd "$build" && pwd)/src/cli/silberbuch-cli
work=${EXPORT_BENCH_WORK:-/tmp/silberbuch-export-bench}

rm -rf "$work" && mkdir -p "$work/data" "$work/old/db" "$work/html"
export SILBERBUCH_CONFIG="$work/settings.ini" SILBERBUCH_HOME="$work/home"
awk -v n="$sections" 'BEGIN {
    for (i = 1; i <= n; i++)
        printf "[CD Nummer %05d Urlaub und Musik]\r\nSeriennummer=no\r\nFotos vom Strand %d\r\nLieder und Hörspiele\r\n\r\n", i, i
}' > "$work/old/db/alt.ini"

/usr/bin/time -f '%e %M' -o "$work/import" "$cli" --data "$work/data" import-ini "$work/old/db/alt.ini" --name Alt > /dev/null
/usr/bin/time -f '%e %M' -o "$work/export" "$cli" --data "$work/data" --archive Alt export html "$work/html/cds.html" > "$work/pages"
set -- $(cat "$work/import")
echo "import-ini: $sections sections in $1 s, peak $(($2 / 1024)) MB"
set -- $(cat "$work/export")
echo "export html: $sections CDs in $1 s, peak $(($2 / 1024)) MB, $(wc -l < "$work/pages") pages"
