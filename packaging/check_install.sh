#!/bin/sh
# Installs a build into a prefix of its own and runs the installed companion tool from /, with a
# home of its own: it must read the installed mode file, and the user's own copy must win.
# Usage: check_install.sh BUILD_DIR [gui]
set -eu
build=$1
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
cmake --install "$build" --prefix "$tmp/usr" >/dev/null

fail() {
  echo "$*" >&2
  exit 1
}
files="bin/quillmere-cli share/quillmere/UFMODES.JMF share/quillmere/SpkHlp.txt
  share/quillmere/PredictHlp.txt share/doc/quillmere/copyright share/man/man1/quillmere-cli.1.gz"
[ "${2:-}" = gui ] && files="$files bin/quillmere bin/quillmere-term share/man/man1/quillmere.1.gz
  share/man/man1/quillmere-term.1.gz
  share/applications/org.quillmere.Quillmere.desktop
  share/metainfo/org.quillmere.Quillmere.metainfo.xml
  share/icons/hicolor/scalable/apps/org.quillmere.Quillmere.svg"
for f in $files; do
  [ -f "$tmp/usr/$f" ] || fail "not installed: $f"
done

export HOME="$tmp/home"
unset XDG_DOCUMENTS_DIR XDG_CONFIG_HOME
mkdir -p "$HOME"
cd /
predict() { "$tmp/usr/bin/quillmere-cli" predict --day 2006-07-05 --lat 30 --long 80; }
out=$(predict) || fail "the installed tool failed: $out"
echo "$out" | grep -q '^Non-A ' || fail "installed mode file not read: $out"
mkdir -p "$HOME/Documents/Quillmere"
printf 'Mine,0,359,0,360\r\n' >"$HOME/Documents/Quillmere/UFMODES.JMF"
out=$(predict) || fail "the installed tool failed: $out"
echo "$out" | grep -q '^Mine ' || fail "the user's own mode file not read: $out"
echo "$out" | grep -q '^Non-A ' && fail "the installed mode file read over the user's: $out"
exit 0
