#!/usr/bin/env bash
# Installs the built project into a temporary prefix and builds its Debian package, then runs
# the command line from both places and checks the desktop files as the desktop's tools do, and
# the package as lintian does (when it is installed).
# Usage: install_test.sh BUILD_FOLDER
set -euo pipefail
build=$(cd "$1" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failures=0
fail() { echo "FAIL: $*" >&2; failures=$((failures + 1)); }
expect_file() { [ -s "$1" ] || fail "missing $1"; }

# The command line of a tree ($1/bin or $1/usr/bin) prints its version and makes an archive.
check_cli() {
  local bin=$1 data=$scratch/data-$2
  [ "$("$bin/silberbuch-cli" --version)" = "Silberbuch 5.1" ] || fail "$2: silberbuch-cli --version"
  mkdir -p "$data"
  SILBERBUCH_CONFIG=$scratch/$2.ini "$bin/silberbuch-cli" --data "$data" archive create "Alle Meine CDs" \
    || fail "$2: archive create"
  [ "$(SILBERBUCH_CONFIG=$scratch/$2.ini "$bin/silberbuch-cli" --data "$data" archive list)" = "Alle Meine CDs" ] \
    || fail "$2: archive list"
}

# Where each installed file belongs, below the prefix ($1).
check_tree() {
  local root=$1
  expect_file "$root/bin/silberbuch-cli"
  for f in Hilfe.html Startup.png Silberbuch.png; do expect_file "$root/share/silberbuch/$f"; done
  expect_file "$root/share/man/man1/silberbuch-cli.1.gz"
  for f in copyright changelog.gz; do expect_file "$root/share/doc/silberbuch/$f"; done
  if [ -x "$build/src/app/silberbuch" ]; then
    expect_file "$root/bin/silberbuch"
    expect_file "$root/share/applications/de.silberbuch.Silberbuch.desktop"
    expect_file "$root/share/metainfo/de.silberbuch.Silberbuch.metainfo.xml"
    expect_file "$root/share/man/man1/silberbuch.1.gz"
    for size in 16 22 24 32 48 64 128 256; do
      expect_file "$root/share/icons/hicolor/${size}x${size}/apps/silberbuch.png"
    done
    expect_file "$root/share/icons/hicolor/scalable/apps/silberbuch.svg"
  fi
}

prefix=$scratch/prefix
cmake --install "$build" --prefix "$prefix" >/dev/null
check_tree "$prefix"
check_cli "$prefix/bin" installed
if [ -x "$prefix/bin/silberbuch" ]; then
  [ "$("$prefix/bin/silberbuch" --version)" = "Silberbuch 5.1" ] || fail "silberbuch --version"
  desktop-file-validate "$prefix/share/applications/de.silberbuch.Silberbuch.desktop" || fail "desktop-file-validate"
  appstreamcli validate --no-net "$prefix/share/metainfo/de.silberbuch.Silberbuch.metainfo.xml" >/dev/null \
    || fail "appstreamcli validate"
fi
for page in "$prefix"/share/man/man1/*.1.gz; do
  warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$page" 2>&1 >/dev/null)
  [ -z "$warnings" ] || fail "man page warnings in $page: $warnings"
done
# Every verb of --help has its entry in the manual page.
for verb in $("$prefix/bin/silberbuch-cli" --help | sed -n 's/^  \([a-z-]*\) .*/\1/p; s/^  \([a-z-]*\)$/\1/p' | sort -u); do
  # roff writes a hyphen as "\-".
  escaped=$(printf '%s' "$verb" | sed 's/-/\\\\-/g')
  zgrep -q "^\.B $escaped\b" "$prefix/share/man/man1/silberbuch-cli.1.gz" || fail "verb $verb missing from the manual page"
done

cpack --config "$build/CPackConfig.cmake" -G DEB -B "$scratch/package" >/dev/null
deb=$(ls "$scratch"/package/silberbuch_*.deb)
root=$scratch/root
dpkg-deb -x "$deb" "$root"
check_tree "$root/usr"
check_cli "$root/usr/bin" packaged
dpkg-deb -f "$deb" Depends | grep -q 'libqt6core6' || fail "Depends lacks the Qt libraries: $(dpkg-deb -f "$deb" Depends)"
[ "$(dpkg-deb -f "$deb" Section)" = "utils" ] || fail "Section"
# The maker's one web address: in the package, the AppStream data and the HTML export alike.
homepage=$(dpkg-deb -f "$deb" Homepage)
[ -n "$homepage" ] || fail "Homepage"
host=$(printf '%s' "$homepage" | sed 's|^[a-z]*://||; s|/.*||')
dpkg-deb -f "$deb" Maintainer | grep -qF "@$host>" \
  || fail "Maintainer's mail is not at $homepage: $(dpkg-deb -f "$deb" Maintainer)"
if [ -x "$root/usr/bin/silberbuch" ]; then
  grep -qF "<url type=\"homepage\">$homepage</url>" "$root/usr/share/metainfo/de.silberbuch.Silberbuch.metainfo.xml" \
    || fail "AppStream homepage is not $homepage"
fi
SILBERBUCH_CONFIG=$scratch/packaged.ini "$root/usr/bin/silberbuch-cli" --data "$scratch/data-packaged" \
  --archive "Alle Meine CDs" export html "$scratch/export.html" >/dev/null || fail "export html"
grep -qF "<a href=$homepage>" "$scratch/export.html" || fail "HTML export does not link $homepage"
if command -v lintian >/dev/null; then
  # Informational tags (German words taken for English typos) are left alone; errors and
  # warnings are not.
  complaints=$(lintian --tag-display-limit 0 "$deb" 2>/dev/null | grep -E '^(E|W):' || true)
  [ -z "$complaints" ] || fail "lintian: $complaints"
fi

[ "$failures" -eq 0 ] && echo "install and package: all checks passed"
exit "$failures"
