#!/usr/bin/env bash
# Reads both windows from the accessibility bus, as a screen reader does: a private X server
# (Xvfb), a private session bus with the accessibility bus on it, and check_accessibility.py.
#
#   check_accessibility.sh PATH/TO/quillmere
#
# Exit 0: all checks passed. Exit 77: the X server or the accessibility bus cannot run here (said
# on the way out). Anything else: a check failed. Every step has a time limit.
set -uo pipefail

quillmere=${1:?usage: check_accessibility.sh PATH/TO/quillmere}
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)

skip() {
  echo "SKIPPED: $*"
  exit 77
}

if ! timeout 600 bash -c "source '$root/scripts/deps.sh' && quillmere_install_a11y_deps"; then
  skip "the accessibility packages (Xvfb, xdotool, AT-SPI, pyatspi) could not be installed"
fi
for tool in Xvfb xdotool dbus-run-session /usr/libexec/at-spi-bus-launcher; do
  command -v "$tool" >/dev/null || skip "$tool is missing after the installation"
done
/usr/bin/python3 -c 'import pyatspi' 2>/dev/null || skip "pyatspi cannot be imported"

work=$(mktemp -d /tmp/quillmere-a11y.XXXXXX)
xvfb_pid=
cleanup() {
  [ -n "$xvfb_pid" ] && kill "$xvfb_pid" 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT

# The program's settings: the text voice, the spoken alert, a region in force all day and
# altitude limits that exclude no minute.
mkdir -p "$work/config/Quillmere" "$work/run"
chmod 700 "$work/run"
printf 'Always,0,360,0,360\r\n' >"$work/ALWAYS.JMF"
cat >"$work/config/Quillmere/Quillmere Speaking Edition.ini" <<INI
[Startup]
SpeechEngine=text
AnnounceActivity=1
ModeFileName=$work/ALWAYS.JMF
[Settings]
ReportJupAltMin=-90
ReportSunAltMax=90
INI

# Xvfb picks a free display and writes its number when it is ready.
exec 3>"$work/display"
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp >"$work/xvfb.log" 2>&1 &
xvfb_pid=$!
exec 3>&-
for ((i = 0; i < 100; i++)); do
  [ -s "$work/display" ] && break
  sleep 0.1
done
[ -s "$work/display" ] || skip "Xvfb did not start: $(tail -n 3 "$work/xvfb.log")"
export DISPLAY=":$(head -n 1 "$work/display")"
export XDG_RUNTIME_DIR=$work/run HOME=$work
unset DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS

# The accessibility bus on a private session bus; without it there is nothing to read.
timeout 300 dbus-run-session -- bash -c '
  /usr/libexec/at-spi-bus-launcher --launch-immediately >"$1/bus.log" 2>&1 &
  for ((i = 0; i < 100; i++)); do
    /usr/bin/python3 -c "import pyatspi; pyatspi.Registry.getDesktop(0)" 2>/dev/null && break
    sleep 0.1
  done
  /usr/bin/python3 -c "import pyatspi; pyatspi.Registry.getDesktop(0)" 2>/dev/null || exit 77
  /usr/bin/python3 "$2" "$3" "$1"
' check "$work" "$here/check_accessibility.py" "$quillmere"
status=$?
[ "$status" -eq 77 ] && skip "the accessibility bus did not start: $(tail -n 3 "$work/bus.log")"
exit "$status"
