#!/usr/bin/env bash
# Builds everything and runs the whole test suite: the style check, the tests of the release
# build, and the whole program's tests again (windows, info server, command-line tool) under
# AddressSanitizer and UndefinedBehaviorSanitizer. Tests run side by side on every core; each
# test process works in a folder of its own. The proof of real sound runs in the release pass
# only: slowed down by the sanitizers, the speech engine does not come up in time.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh
quillmere_install_deps

echo "== style"
mapfile -t sources < <(git ls-files '*.cpp' '*.h' 2>/dev/null || find . -path ./build -prune -o \( -name '*.cpp' -o -name '*.h' \) -print)
clang-format --dry-run --Werror "${sources[@]}"

for preset in release sanitize; do
  echo "== $preset"
  start=$SECONDS
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset"
  ctest --preset "$preset" -j "$(nproc)"
  echo "== $preset: $((SECONDS - start)) s"
done
