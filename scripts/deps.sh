#!/usr/bin/env bash
# Installs the Debian packages the build needs, when any is missing. Sourced by the other scripts.
set -euo pipefail

QUILLMERE_PACKAGES=(
  build-essential cmake ninja-build clang-format
  qt6-base-dev qt6-base-dev-tools qt6-speech-dev qt6-declarative-dev libqt6texttospeech6
  qt6-speech-speechd-plugin qt6-speech-flite-plugin libxkbcommon-dev libgl-dev
  libgtest-dev libgmock-dev libbenchmark-dev
)

quillmere_install_deps() {
  local missing=()
  for p in "${QUILLMERE_PACKAGES[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing: ${missing[*]}"
  local sudo=()
  [ "$(id -u)" -eq 0 ] || sudo=(sudo)
  "${sudo[@]}" apt-get update
  DEBIAN_FRONTEND=noninteractive "${sudo[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
}
