#!/usr/bin/env bash
# Installs the Debian packages the build needs, when any is missing. Sourced by the other scripts.
set -euo pipefail

QUILLMERE_PACKAGES=(
  build-essential cmake ninja-build clang-format pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-speech-dev qt6-declarative-dev libqt6texttospeech6
  qt6-speech-speechd-plugin qt6-speech-flite-plugin libxkbcommon-dev libgl-dev
  libgtest-dev libgmock-dev libbenchmark-dev liberfa-dev libmpfr-dev
  # What makes the program speak on Linux: speech-dispatcher with its espeak-ng module, and the
  # client libraries the voice is built on (libspeechd; libespeak-ng, which speaks when the daemon
  # is missing or cannot be reached).
  speech-dispatcher speech-dispatcher-espeak-ng libspeechd-dev libespeak-ng-dev espeak-ng-data
)

# What the proofs of real sound need besides (the tests speech_makes_sound and speech_sound_*): an
# audio server to give the daemon a sink, and tools to record and measure. Installed on demand by
# those tests, not by every build.
QUILLMERE_SOUND_PACKAGES=(speech-dispatcher speech-dispatcher-espeak-ng pulseaudio pulseaudio-utils sox)

# What only the tests need: reading back the forecast's calendar files.
QUILLMERE_TEST_PACKAGES=(python3-icalendar)

# What the accessibility test needs (accessibility_bus): a private X server, a key typist, the
# accessibility bus and Python's AT-SPI client. Installed on demand by that test.
QUILLMERE_A11Y_PACKAGES=(xvfb xauth xdotool at-spi2-core python3-pyatspi dbus-daemon)

# Installs those of the named packages that are missing; SUDO is the command prefix to use.
quillmere_install_missing() {
  local missing=()
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  ${SUDO:-} apt-get update &&
    ${SUDO:-} env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends \
      "${missing[@]}"
}

quillmere_install_deps() {
  local sudo=
  [ "$(id -u)" -eq 0 ] || sudo=sudo
  SUDO=$sudo quillmere_install_missing "${QUILLMERE_PACKAGES[@]}"
}

# Installs packages that one test needs. Fails, rather than asking for a password, without root or
# password-less sudo.
quillmere_install_optional() {
  local sudo=
  if [ "$(id -u)" -ne 0 ]; then
    sudo -n true 2>/dev/null || return 1
    sudo="sudo -n"
  fi
  SUDO=$sudo quillmere_install_missing "$@"
}

quillmere_install_sound_deps() {
  quillmere_install_optional "${QUILLMERE_SOUND_PACKAGES[@]}"
}

quillmere_install_a11y_deps() {
  quillmere_install_optional "${QUILLMERE_A11Y_PACKAGES[@]}"
}
