#!/usr/bin/env bash
# Proves that the platform's engine makes sound through our voice: PulseAudio with a null sink in a
# private runtime directory, speech-dispatcher, one sentence said synchronously by speak_once, and a
# recording of the sink's monitor that must hold at least a second of speech.
#
#   check_speech_sound.sh PATH/TO/speak_once
#
# Exit 0: sound was recorded. Exit 77: the packages could not be installed here (said on the way
# out). Anything else: failure, with the daemons' logs. Every step has a time limit.
set -uo pipefail

speak_once=${1:?usage: check_speech_sound.sh PATH/TO/speak_once}
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
min_seconds=1.0

skip() {
  echo "SKIPPED: $*"
  exit 77
}

if ! timeout 600 bash -c "source '$root/scripts/deps.sh' && quillmere_install_sound_deps"; then
  skip "the sound packages (speech-dispatcher, espeak-ng, PulseAudio, sox) could not be installed"
fi
for tool in pulseaudio pactl parecord speech-dispatcher sox soxi; do
  command -v "$tool" >/dev/null || skip "$tool is missing after the installation"
done

work=$(mktemp -d /tmp/quillmere-sound.XXXXXX)
mkdir -p "$work/run" "$work/home" "$work/log"
chmod 700 "$work/run"
export XDG_RUNTIME_DIR=$work/run HOME=$work/home
unset PULSE_SERVER PULSE_SINK SPEECHD_ADDRESS DBUS_SESSION_BUS_ADDRESS
rec_pid=

cleanup() {
  [ -n "$rec_pid" ] && kill -INT "$rec_pid" 2>/dev/null
  if [ -s "$work/spd.pid" ]; then kill "$(cat "$work/spd.pid")" 2>/dev/null; fi
  timeout 5 pulseaudio --kill 2>/dev/null
  if [ -s "$work/run/pulse/pid" ]; then kill -9 "$(cat "$work/run/pulse/pid")" 2>/dev/null; fi
  rm -rf "$work"
}
trap cleanup EXIT

fail() {
  echo "FAILED: $*"
  for log in "$work"/log/*; do
    [ -s "$log" ] || continue
    echo "--- $(basename "$log") (last lines)"
    tail -n 15 "$log"
  done
  exit 1
}

wait_for() {  # seconds, command...
  local limit=$(($1 * 10))
  shift
  for ((i = 0; i < limit; i++)); do
    "$@" >/dev/null 2>&1 && return 0
    sleep 0.1
  done
  return 1
}

# PulseAudio refuses root in user mode only with a warning; the null sink is its only sink.
timeout 20 pulseaudio -n --daemonize=yes --exit-idle-time=-1 --disallow-exit \
  --log-target="file:$work/log/pulseaudio.log" -L module-native-protocol-unix \
  -L "module-null-sink sink_name=ci_sink" || fail "PulseAudio did not start"
wait_for 10 timeout 2 pactl info || fail "PulseAudio does not answer"

# -t: the daemon ends by itself a minute after its last client, should the cleanup be missed.
timeout 20 speech-dispatcher -d -t 60 -P "$work/spd.pid" -L "$work/log" ||
  fail "speech-dispatcher did not start"
wait_for 10 test -S "$XDG_RUNTIME_DIR/speech-dispatcher/speechd.sock" ||
  fail "speech-dispatcher made no socket"

# Without a short latency parecord loses most of a short recording.
timeout 180 parecord --latency-msec=20 -d ci_sink.monitor --file-format=wav --rate=16000 \
  --channels=1 "$work/rec.wav" &
rec_pid=$!
wait_for 5 test -s "$work/rec.wav" || fail "parecord wrote nothing"

timeout 120 "$speak_once" --engine speechd >"$work/log/speak_once.out" 2>&1
status=$?
cat "$work/log/speak_once.out"
[ "$status" -eq 0 ] || fail "speak_once ended with status $status"

sleep 0.5
kill -INT "$rec_pid"
timeout 10 tail --pid="$rec_pid" -f /dev/null
rec_pid=

timeout 30 sox "$work/rec.wav" "$work/speech.wav" silence 1 0.05 1% reverse silence 1 0.05 1% \
  reverse || fail "sox could not read the recording"
recorded=$(soxi -D "$work/rec.wav")
speech=$(soxi -D "$work/speech.wav" 2>/dev/null || echo 0)
echo "Recorded ${recorded} s, of which ${speech} s between the first and the last sound."
awk -v s="$speech" -v m="$min_seconds" 'BEGIN { exit !(s + 0 >= m + 0) }' ||
  fail "less than ${min_seconds} s of speech in the recording"
echo "The engine spoke."
