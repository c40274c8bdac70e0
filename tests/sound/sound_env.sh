# Sourced by the sound tests and the start-up benchmark: a private PulseAudio with one null sink,
# speech-dispatcher on it, and a recording of the sink's monitor. Every step has a time limit.
#
#   source tests/sound/sound_env.sh
#   sound_env_begin                # private runtime directory, PulseAudio, the null sink
#   spd_start; spd_stop            # speech-dispatcher in that directory
#   rec_start FILE; rec_stop       # record the sink's monitor
#   first_sound_at FILE            # seconds from the start of FILE to its first sound
#   sound_seconds FILE             # seconds between the first and the last sound of FILE
#   sound_env_end                  # everything started here ends (also on exit)
#
# The caller sets SOUND_ROOT (the repository) and may set SOUND_LOG_ON_FAIL=1.

sound_work=
sound_rec_pid=

sound_wait_for() {  # seconds, command...
  local limit=$(($1 * 20)) i
  shift
  for ((i = 0; i < limit; i++)); do
    "$@" >/dev/null 2>&1 && return 0
    sleep 0.05
  done
  return 1
}

sound_env_begin() {
  sound_work=$(mktemp -d /tmp/quillmere-sound.XXXXXX)
  mkdir -p "$sound_work/run" "$sound_work/home" "$sound_work/log"
  chmod 700 "$sound_work/run"
  export XDG_RUNTIME_DIR=$sound_work/run HOME=$sound_work/home
  unset PULSE_SERVER PULSE_SINK SPEECHD_ADDRESS DBUS_SESSION_BUS_ADDRESS
  trap sound_env_end EXIT
  # PulseAudio refuses root in user mode only with a warning; the null sink is its only sink.
  timeout 20 pulseaudio -n --daemonize=yes --exit-idle-time=-1 --disallow-exit \
    --log-target="file:$sound_work/log/pulseaudio.log" -L module-native-protocol-unix \
    -L "module-null-sink sink_name=ci_sink" || return 1
  sound_wait_for 10 timeout 2 pactl info
}

spd_socket() { echo "$XDG_RUNTIME_DIR/speech-dispatcher/speechd.sock"; }

# -t: the daemon ends by itself a while after its last client, should the cleanup be missed.
spd_start() {
  timeout 20 speech-dispatcher -d -t 120 -P "$sound_work/spd.pid" -L "$sound_work/log" || return 1
  sound_wait_for 10 test -S "$(spd_socket)"
}

# Ends the daemon however it was started (by us, or spawned by a client, which leaves its pid in
# the runtime directory), with SIGKILL as a crash would; its modules end with it.
spd_stop() {
  local f pid
  for f in "$sound_work/spd.pid" "$XDG_RUNTIME_DIR/speech-dispatcher/pid/speech-dispatcher.pid"; do
    [ -s "$f" ] || continue
    pid=$(cat "$f")
    kill -KILL "$pid" 2>/dev/null
    timeout 5 tail --pid="$pid" -f /dev/null 2>/dev/null
    rm -f "$f"
  done
  rm -f "$(spd_socket)"
}

rec_start() {  # file
  # Without a short latency parecord loses most of a short recording.
  timeout 600 parecord --latency-msec=20 -d ci_sink.monitor --file-format=wav --rate=16000 \
    --channels=1 "$1" &
  sound_rec_pid=$!
  sound_wait_for 5 test -s "$1"
}

rec_stop() {
  [ -n "$sound_rec_pid" ] || return 0
  kill -INT "$sound_rec_pid" 2>/dev/null
  timeout 10 tail --pid="$sound_rec_pid" -f /dev/null
  sound_rec_pid=
}

# Seconds between the first and the last sound of a recording (0 for silence).
sound_seconds() {
  local trimmed=$1.trim.wav
  timeout 30 sox "$1" "$trimmed" silence 1 0.05 1% reverse silence 1 0.05 1% reverse 2>/dev/null ||
    { echo 0; return; }
  soxi -D "$trimmed" 2>/dev/null || echo 0
}

# Seconds from the start of a recording to its first sound (empty for silence).
first_sound_at() {
  local total lead
  total=$(soxi -D "$1")
  timeout 30 sox "$1" "$1.lead.wav" silence 1 0.005 1% 2>/dev/null || return 0
  lead=$(soxi -D "$1.lead.wav" 2>/dev/null || echo 0)
  awk -v t="$total" -v l="$lead" 'BEGIN { if (l + 0 > 0) printf "%.3f\n", t - l }'
}

sound_logs() {
  for log in "$sound_work"/log/*; do
    [ -s "$log" ] || continue
    echo "--- $(basename "$log") (last lines)"
    tail -n 15 "$log"
  done
}

sound_env_end() {
  [ -n "$sound_work" ] || return 0
  rec_stop
  spd_stop
  timeout 5 pulseaudio --kill 2>/dev/null
  if [ -s "$sound_work/run/pulse/pid" ]; then kill -9 "$(cat "$sound_work/run/pulse/pid" 2>/dev/null)" 2>/dev/null; fi
  rm -rf "$sound_work"
  sound_work=
}
