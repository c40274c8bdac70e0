#!/usr/bin/env bash
# Time from the start of the program to its first sound, on a PulseAudio null sink: with
# speech-dispatcher already running, and with the daemon to be spawned by the program. Not a test:
# it prints each start and the medians. Targets on a 2-core machine: 0.3 s and 2.0 s.
#
#   bench/first_sound.sh [PATH/TO/quillmere] [RUNS]
#
# The program runs with QT_QPA_PLATFORM=offscreen (set QT_QPA_PLATFORM to use another), in a
# private home, so with default settings. Needs speech-dispatcher, pulseaudio, pulseaudio-utils and
# python3; run ./scripts/run.sh or ./scripts/test.sh once first to build and install them. With the
# daemon to be started, the first words come from espeak-ng directly while the daemon starts.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/.." && pwd)
program=${1:-$root/build/release/quillmere}
runs=${2:-7}
[ -x "$program" ] || { echo "No program at $program: build it first (./scripts/run.sh)."; exit 2; }
export QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen}
source "$root/tests/sound/sound_env.sh"
sound_env_begin || { echo "PulseAudio did not start"; sound_logs; exit 1; }

# One start: listens to the sink's monitor, starts the program, prints the seconds from the start
# to the first sample above 1 % of full scale, waits for the speech to end (a second of silence
# after at least one sound), then ends the program.
measure() {
  python3 - "$program" <<'PY'
import os, signal, subprocess, sys, time, array
rec = subprocess.Popen(["parec", "--latency-msec=10", "--raw", "--format=s16le", "--rate=16000",
                        "--channels=1", "-d", "ci_sink.monitor"], stdout=subprocess.PIPE)
chunk = 320  # 10 ms
def level(data):
    a = array.array("h", data)
    return max((abs(x) for x in a), default=0)
# Let the recording run, and drain what it has, before the program starts.
end = time.monotonic() + 0.4
while time.monotonic() < end:
    rec.stdout.read(chunk * 2)
t0 = time.monotonic()
prog = subprocess.Popen([sys.argv[1]], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
first = None
quiet_since = None
deadline = t0 + 30
while time.monotonic() < deadline:
    data = rec.stdout.read(chunk * 2)
    now = time.monotonic()
    loud = level(data) > 327
    if loud and first is None:
        first = now - t0
    if first is not None:
        if loud:
            quiet_since = None
        elif quiet_since is None:
            quiet_since = now
        elif now - quiet_since > 1.0:
            break
prog.send_signal(signal.SIGTERM)
try:
    prog.wait(5)
except subprocess.TimeoutExpired:
    prog.kill()
rec.kill()
print("%.3f" % first if first is not None else "silence")
PY
}

median() { sort -n | awk '{a[NR]=$1} END {if (NR == 0) print "none"; else if (NR % 2) print a[(NR+1)/2]; else printf "%.3f\n", (a[NR/2]+a[NR/2+1])/2}'; }

run_set() {  # name, prepare-command
  local name=$1 prepare=$2 results=() t
  for ((i = 1; i <= runs; i++)); do
    $prepare
    t=$(measure)
    echo "  $name, start $i: $t s" >&2
    [ "$t" = silence ] || results+=("$t")
  done
  echo "$name: median $(printf '%s\n' "${results[@]}" | median) s of ${#results[@]} starts with sound (of $runs)"
}

daemon_running() { [ -S "$(spd_socket)" ] || spd_start; sleep 0.5; }
daemon_absent() { spd_stop; sleep 0.3; }

echo "First sound after the start of $program ($QT_QPA_PLATFORM, $(nproc) cores)"
running=$(run_set "daemon running" daemon_running)
spawned=$(run_set "daemon spawned" daemon_absent)
echo
echo "$running"
echo "$spawned"
