#!/usr/bin/env bash
# Builds Quillmere and starts it. Until the talking window lands, this shows the computations
# for the present instant at latitude 0, longitude 0 (the program's first-run place).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh
quillmere_install_deps

cmake --preset release >/dev/null
cmake --build --preset release
exec build/release/quillmere-cli instant --time "$(date -u +%Y-%m-%dT%H:%M:%S)" --lat 0 --long 0 "$@"
