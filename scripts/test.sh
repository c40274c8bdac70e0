#!/usr/bin/env bash
# Builds everything and runs the whole test suite: the style check, the tests of the release
# build, and the whole program's tests again (windows, info server, command-line tool) under
# AddressSanitizer and UndefinedBehaviorSanitizer, and last the core built for Windows and tested
# under Wine (scripts/windows.sh). Tests run side by side on every core; each test process works
# in a folder of its own. The proof of real sound runs in the release pass only: slowed down by
# the sanitizers, the speech engine does not come up in time.
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh
quillmere_install_deps
quillmere_install_optional "${QUILLMERE_TEST_PACKAGES[@]}" || echo "python3-icalendar cannot be installed: the calendar test reads no file back"

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

# The core and quillmere-cli built for Windows, tested under Wine, compared with the Linux digits.
echo "== windows"
windows=0
scripts/windows.sh || windows=$?
if [ "$windows" -eq 3 ]; then
  echo "== windows: SKIPPED, MinGW-w64 and Wine could not be installed (see above)"
elif [ "$windows" -ne 0 ]; then
  exit "$windows"
fi
