#!/usr/bin/env bash
# Builds Quillmere and starts it.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh
quillmere_install_deps

cmake --preset release >/dev/null
cmake --build --preset release
exec build/release/quillmere "$@"
