#!/usr/bin/env bash
# Proves with real sound what the voice does: PulseAudio with a null sink in a private runtime
# directory, speech-dispatcher on it, texts said by speak_once, and recordings of the sink's monitor.
#
#   check_speech_sound.sh PATH/TO/speak_once CASE
#
# CASE:
#   speaks        one sentence through speech-dispatcher makes at least a second of sound
#   sync_waits    a synchronous text returns at the end of its own speech, not before
#   restart       the daemon killed and started again between two texts: the second is heard
#   other_client  a sentence another client queues during our closing words is heard in full
#   espeak        without speech-dispatcher, espeak-ng speaks, and says why
#
# Exit 0: as it should be. Exit 77: the packages could not be installed here (said on the way out).
# Anything else: failure, with the daemons' logs. Every step has a time limit.
set -uo pipefail

speak_once=${1:?usage: check_speech_sound.sh PATH/TO/speak_once CASE}
case_name=${2:-speaks}
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)

skip() {
  echo "SKIPPED: $*"
  exit 77
}

if ! timeout 600 bash -c "source '$root/scripts/deps.sh' && quillmere_install_sound_deps"; then
  skip "the sound packages (speech-dispatcher, espeak-ng, PulseAudio, sox) could not be installed"
fi
for tool in pulseaudio pactl parecord speech-dispatcher sox soxi spd-say; do
  command -v "$tool" >/dev/null || skip "$tool is missing after the installation"
done

source "$here/sound_env.sh"
fail() {
  echo "FAILED: $*"
  sound_logs
  exit 1
}
at_least() {  # value, minimum
  awk -v s="$1" -v m="$2" 'BEGIN { exit !(s + 0 >= m + 0) }'
}

sound_env_begin || fail "PulseAudio did not start"
work=$sound_work

# Says its texts; the output of speak_once goes to the log and to standard output.
speak() {  # name, arguments...
  local name=$1
  shift
  timeout 120 "$speak_once" "$@" >"$work/log/$name.out" 2>&1
  local status=$?
  cat "$work/log/$name.out"
  return $status
}

# Records what the command makes heard, with half a second after it; prints the seconds of speech.
heard() {  # name, command...
  local name=$1
  shift
  rec_start "$work/$name.wav" || fail "parecord wrote nothing" >&2
  "$@" >&2
  local status=$?
  sleep 0.5
  rec_stop
  [ "$status" -eq 0 ] || fail "$name: the command ended with status $status" >&2
  sound_seconds "$work/$name.wav"
}

closing="Quillmere Speech Edition Closing."
other="This sentence comes from another program, and it must be heard to its very last word."

case "$case_name" in
speaks)
  spd_start || fail "speech-dispatcher did not start"
  # The daemon loads its output module at the first text; on a loaded machine that first text
  # can reach PulseAudio before the recording does, so one is said before recording starts.
  speak warm --engine speechd "Ready." >/dev/null || fail "speak_once failed"
  s=$(heard speaks speak speaks --engine speechd)
  echo "Recorded ${s} s of speech."
  at_least "$s" 1.0 || fail "less than 1.0 s of speech in the recording"
  ;;

sync_waits)
  spd_start || fail "speech-dispatcher did not start"
  speak warm --engine speechd "Ready." >/dev/null || fail "speak_once failed"
  s=$(heard sync speak sync --engine speechd \
    "Jupiter elevation 23.4. Jupiter Right Ascension 12 hours and 34 minutes. Io Phase 123.45.")
  took=$(sed -n 's/^Speak 1: \([0-9]*\) ms$/\1/p' "$work/log/sync.out")
  echo "Speak returned after ${took} ms; ${s} s of speech were recorded."
  at_least "$s" 2.0 || fail "less than 2.0 s of speech in the recording"
  # The first sound comes some tens of milliseconds after the call: it cannot return earlier than
  # the speech lasted, less a little.
  at_least "$((took))" "$(awk -v s="$s" 'BEGIN { printf "%d", s * 1000 - 150 }')" ||
    fail "the synchronous text returned before its speech had ended"
  ;;

restart)
  spd_start || fail "speech-dispatcher did not start"
  speak_log=$work/log/restart.out
  timeout 120 "$speak_once" --engine speechd --pause-after-first 4 "First." \
    "This is the second text, said after the restart." >"$speak_log" 2>&1 &
  speaker=$!
  sound_wait_for 30 grep -q '^ready$' "$speak_log" || fail "the first text was not said"
  spd_stop
  spd_start || fail "speech-dispatcher did not start again"
  rec_start "$work/restart.wav" || fail "parecord wrote nothing"
  wait "$speaker"
  status=$?
  sleep 0.5
  rec_stop
  cat "$speak_log"
  [ "$status" -eq 0 ] || fail "speak_once ended with status $status"
  s=$(sound_seconds "$work/restart.wav")
  echo "After the restart ${s} s of speech were recorded."
  at_least "$s" 1.5 || fail "the text after the restart was not heard"
  ;;

other_client)
  spd_start || fail "speech-dispatcher did not start"
  speak warm --engine speechd "Ready." >/dev/null || fail "speak_once failed"
  alone_closing=$(heard closing speak closing --engine speechd "$closing")
  alone_other=$(heard other timeout 60 spd-say -w "$other")
  echo "Alone: the closing words ${alone_closing} s, the other sentence ${alone_other} s."
  both() {
    speak both --engine speechd "$closing" &
    local ours=$!
    sleep 0.4  # our closing words are being said
    timeout 60 spd-say -w "$other"
    wait "$ours"
  }
  s=$(heard both both)
  echo "Together: ${s} s of speech."
  need=$(awk -v a="$alone_closing" -v b="$alone_other" 'BEGIN { print a + b - 0.3 }')
  at_least "$s" "$need" || fail "the other client's sentence was cut short (${s} s < ${need} s)"
  grep -q "CANCEL" "$work/log/speech-dispatcher.log" 2>/dev/null &&
    fail "speech-dispatcher was asked to cancel"
  ;;

espeak)
  # No daemon running, and none on the PATH: as if speech-dispatcher were not installed.
  # speak_once ends with status 3: the engine that speaks is not the first one tried.
  without_daemon() {
    env PATH=/nonexistent "$speak_once" "Welcome to Quillmere Speech Edition. For Help Press F1." \
      >"$work/log/espeak.out" 2>&1
    [ $? -eq 3 ]
  }
  s=$(heard espeak without_daemon)
  cat "$work/log/espeak.out"
  grep -q "engine espeak" "$work/log/espeak.out" || fail "espeak-ng did not speak"
  grep -q "because speech-dispatcher is not installed" "$work/log/espeak.out" ||
    fail "the user is not told why espeak-ng speaks"
  echo "Recorded ${s} s of speech."
  at_least "$s" 1.0 || fail "less than 1.0 s of speech in the recording"
  ;;

*)
  echo "Unknown case $case_name"
  exit 2
  ;;
esac
echo "PASSED: $case_name"
