#!/usr/bin/env bash
# Builds the fuzz targets with clang (address and undefined-behaviour sanitizers, libFuzzer)
# into build-fuzz/ and runs each for SECONDS, seeded from the shared fixtures and a few built
# samples. Not part of the test command. A finding stops with the crashing input under
# build-fuzz/findings/<target>/.
#
#   bench/fuzz.sh [SECONDS]      (60 by default)
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
build=build-fuzz
fixtures=$(cd ../shared/fixtures && pwd)
command -v clang++ >/dev/null || { echo "clang++ is needed: apt-get install clang libclang-rt-14-dev" >&2; exit 2; }
CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DSILBERBUCH_FUZZ=ON \
  -DSILBERBUCH_GUI=OFF -DSILBERBUCH_TESTS=OFF -DSILBERBUCH_BENCH=OFF >/dev/null
cmake --build "$build" -j2 >/dev/null

seeds=$build/seeds
rm -rf "$seeds"
mkdir -p "$seeds"/{zip,rar,image_index,file_search,ini,comment_codec,pattern,print_image,backup,jet}
cp "$fixtures"/zip/*.zip "$seeds/zip/"
cp "$fixtures"/rar/*.rar "$seeds/rar/"
cp "$fixtures"/mdb/DateTestDatabase.mdb "$seeds/jet/"
printf '>d:\r\n>d:\\Bilder\r\nd:\\Bilder\\haus.jpg|482113|28.07.2002 18:02:44\r\n>d:\\Bilder\\a.zip\r\nd:\\Bilder\\a.zip\\x/y.txt|3|03.02.2001\r\nd:\\Bilder\\a.zip\\||\r\nd:\\liesmich.txt|12|01.01.2003\r\n\r\n' \
  > "$seeds/image_index/example.dat"
cp "$seeds/image_index/example.dat" "$seeds/print_image/"
{ printf '*haus*\n'; cat "$seeds/image_index/example.dat"; } > "$seeds/file_search/haus"
printf '[CD1]\r\nName=Urlaub\r\nKommentar1=Fotos\r\nSeriennummer=1234\r\n[cd1]\r\nName=x\r\n[]\r\n' > "$seeds/ini/old.ini"
printf 'Sta1|Fotos|Videos|End1' > "$seeds/comment_codec/two"
printf '*[a-f]?#*\nAbc1.txt' > "$seeds/pattern/mixed"
# A backup of two records: an archive database that is cut short, an image.
printf '\x0b\x00C:\\TmpC.txt\x05\x00 2 \r\n\x09\x00C:\\b.bup2\x41\x00\x14\x00C:\\A\\Archive\\Neu.mdb\x14\x00SQLite format 3\x00\x10\x00\x01\x01\x0e\x00C:\\A\\LWS\\1.dat\x03\x00img' \
  > "$seeds/backup/two"

# libarchive asks malloc for absurd sizes on some damaged RAR headers and copes with the null
# it gets back; the sanitizer's allocator must return that null too instead of stopping.
export ASAN_OPTIONS=allocator_may_return_null=1

status=0
for target in zip rar image_index file_search ini comment_codec pattern print_image backup jet; do
  mkdir -p "$build/findings/$target" "$build/corpus/$target"
  # A Jet file is a whole database; the fixture is 268 KiB.
  max_len=65536
  [ "$target" = jet ] && max_len=300000
  if "$build/fuzz/fuzz_$target" -max_total_time="$seconds" -max_len="$max_len" -print_final_stats=1 \
      -artifact_prefix="$build/findings/$target/" "$build/corpus/$target" "$seeds/$target" \
      > "$build/fuzz_$target.log" 2>&1; then
    result=ok
  else
    result="FINDING (see $build/findings/$target/)"
    status=1
  fi
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$build/fuzz_$target.log" | tail -1)
  echo "$target: ${runs:-?} runs, $result"
done
exit "$status"
