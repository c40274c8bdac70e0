#!/usr/bin/env bash
# Runs the same random instants and days through two builds of quillmere-cli, the Linux one and
# the Windows one (under Wine), and compares every field of every reply digit for digit.
#
#   tests/windows_digits.sh LINUX_CLI WINDOWS_CLI DIGITS_COMPARE [INSTANTS DAYS SEED]
#
# WINE names Wine's loader (default: wine64 on the PATH, else Debian's /usr/lib/wine/wine64).
# Each build starts once, in batch mode. A second build whose name does not end in .exe runs
# without Wine.
set -euo pipefail

linux_cli=$1 windows_cli=$2 compare=$3
instants=${4:-1000} days=${5:-100} seed=${6:-20260705}
wine=${WINE:-$(command -v wine64 || echo /usr/lib/wine/wine64)}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$compare" commands "$seed" "$instants" "$days" >"$work/batch.txt"
"$linux_cli" batch <"$work/batch.txt" >"$work/linux.out"
if [[ $windows_cli == *.exe ]]; then
  WINEDEBUG=${WINEDEBUG:--all} "$wine" "$windows_cli" batch <"$work/batch.txt" >"$work/windows.out"
else  # two Linux builds, e.g. with and without the correctly rounded functions
  "$windows_cli" batch <"$work/batch.txt" >"$work/windows.out"
fi
echo "seed $seed: $instants instants and $days days, the Linux and the Windows quillmere-cli"
"$compare" compare "$work/batch.txt" "$work/linux.out" "$work/windows.out"

# The Linux replies to the default sample are pinned by their digest, which the Windows and macOS
# CI (.github/workflows/core.yml) checks its own replies against.
if [ "$instants $days $seed" = "1000 100 20260705" ]; then
  digest=$(tr -d '\r' <"$work/linux.out" | sha256sum | cut -d' ' -f1)
  pinned=$(tr -d '\r\n' <"$(dirname "$0")/digits.sha256")
  echo "digest of the replies: $digest"
  if [ "$digest" != "$pinned" ]; then
    echo "tests/digits.sha256 holds $pinned: the digits have changed; if that is meant," \
      "store the new digest there" >&2
    exit 1
  fi
fi
