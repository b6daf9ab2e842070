#!/usr/bin/env bash
# The installed tree and the Debian package, checked as a user meets them.
#   install_test.sh install BUILD SOURCE   install into a temporary DESTDIR, run the installed
#                                          programs and the demo, validate the desktop files
#   install_test.sh package BUILD SOURCE   make the .deb, read its control data and contents, run
#                                          the packaged tolmen, and let apt resolve its Depends
set -euo pipefail
MODE=$1 BUILD=$(cd "$2" && pwd) SOURCE=$(cd "$3" && pwd)
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
PROGRAMS="tolmen maxsim butil pasteldata tolmen-toolkit"
VERSION=$(sed -n 's/^project(Tolmen VERSION \([0-9.]*\).*/\1/p' "$SOURCE/CMakeLists.txt")
fail() { echo "FAIL: $*" >&2; exit 1; }

# The files every installed tree must hold, below its prefix ROOT.
check_tree() {
  local root=$1
  for p in $PROGRAMS; do
    [ -x "$root/bin/$p" ] || fail "bin/$p is missing"
    [ -s "$root/share/man/man1/$p.1.gz" ] || fail "the manual page of $p is missing"
    # groff -ww prints every warning: a page must render without one and name its program.
    warnings=$(zcat "$root/share/man/man1/$p.1.gz" | groff -man -ww -z 2>&1)
    [ -z "$warnings" ] || fail "$p.1: $warnings"
    zcat "$root/share/man/man1/$p.1.gz" | grep -q "^\\.TH ${p^^} 1 " || fail "$p.1 names another program"
  done
  for f in share/tolmen/help/html/index.htm "share/tolmen/help/html/06 Open Tab.htm" \
    share/icons/hicolor/scalable/apps/tolmen.svg share/applications/tolmen.desktop \
    share/metainfo/tolmen.metainfo.xml share/tolmen/examples/demo/demo.sh share/tolmen/kelbor.gif; do
    [ -s "$root/$f" ] || fail "$f is missing"
  done
  [ "$("$root/bin/tolmen" --version)" = "tolmen $VERSION" ] || fail "tolmen --version"
}

if [ "$MODE" = install ]; then
  DESTDIR="$WORK/dest" cmake --install "$BUILD" --prefix /opt/tolmen > /dev/null
  ROOT="$WORK/dest/opt/tolmen"
  check_tree "$ROOT"
  "$ROOT/bin/maxsim" --help | grep -q "maxsim serve DIR" || fail "maxsim --help"
  desktop-file-validate "$ROOT/share/applications/tolmen.desktop" || fail "desktop entry"
  appstreamcli validate --no-net "$ROOT/share/metainfo/tolmen.metainfo.xml" > "$WORK/as.txt" ||
    { cat "$WORK/as.txt"; fail "AppStream data"; }
  grep -q "<release version=\"$VERSION\"" "$ROOT/share/metainfo/tolmen.metainfo.xml" ||
    fail "the AppStream data lacks release $VERSION"
  # The whole demo from the installed tree: its programs, script and samples, none of the build's.
  bash "$ROOT/share/tolmen/examples/demo/demo.sh" "$ROOT" > "$WORK/demo.txt" 2>&1 ||
    { cat "$WORK/demo.txt"; fail "the demo"; }
  for expected in "== MaxCus01.csv" "== MaxInv02.csv" "Date Billed"; do
    grep -q "$expected" "$WORK/demo.txt" || { cat "$WORK/demo.txt"; fail "demo: no '$expected'"; }
  done
  # Both runs end: status 1 counts the repeat of the list's last client that every run records.
  [ "$(grep -c '^exit status [01]$' "$WORK/demo.txt")" = 2 ] &&
    [ "$(grep -c 'Import Complete: Open Log File?' "$WORK/demo.txt")" = 2 ] ||
    { cat "$WORK/demo.txt"; fail "the demo's two runs did not both end"; }
elif [ "$MODE" = package ]; then
  cpack -G DEB -B "$WORK/pkg" --config "$BUILD/CPackConfig.cmake" > "$WORK/cpack.txt" 2>&1 ||
    { cat "$WORK/cpack.txt"; fail "cpack"; }
  DEB=$(ls "$WORK"/pkg/tolmen_"$VERSION"_*.deb) || fail "no tolmen_${VERSION}_*.deb"
  depends=$(dpkg-deb -f "$DEB" Depends)
  for lib in libqt6widgets6 libqt6svg6 libsqlite3-0 libfmt; do
    [[ "$depends" == *"$lib"* ]] || fail "Depends lacks $lib: $depends"
  done
  dpkg-deb -x "$DEB" "$WORK/root"
  check_tree "$WORK/root/usr"
  # apt resolves the package's dependencies against the system's archive without installing it.
  apt-get install -s -q "$DEB" > "$WORK/apt.txt" 2>&1 || { cat "$WORK/apt.txt"; fail "apt"; }
  grep -q -E "^Inst tolmen |^tolmen is already the newest" "$WORK/apt.txt" ||
    { cat "$WORK/apt.txt"; fail "apt would not install"; }
else
  fail "mode install or package"
fi
echo "$MODE: ok"
