#!/usr/bin/env bash
# Cross-builds the Qt-free core (textutil, ephemeris, the storm model), its tests and
# quillmere-cli.exe for 64-bit Windows with MinGW-w64, runs the tests under Wine, and compares the
# Windows quillmere-cli with the Linux one digit for digit (tests/windows_digits.sh).
#
# Exit status 0 when all passed, 1 when a build, a test or the comparison failed, and 3 when the
# packages it needs are missing and cannot be installed (no root and no password-less sudo).
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh

# googletest holds the sources of GoogleTest, built here with the cross compiler; the rest makes
# the Linux build to compare with.
QUILLMERE_WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix wine64 googletest ccache
  build-essential cmake ninja-build libgtest-dev)
missing=()
for p in "${QUILLMERE_WINDOWS_PACKAGES[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  sudo=
  if [ "$(id -u)" -ne 0 ]; then
    sudo -n true 2>/dev/null && sudo="sudo -n" || sudo=none
  fi
  if [ "$sudo" = none ] || ! SUDO=$sudo quillmere_install_missing "${missing[@]}"; then
    echo "windows.sh: cannot install ${missing[*]} (it needs root, or sudo without a" \
      "password, and Debian's package archive); the Windows build was not made" >&2
    exit 3
  fi
fi

export CCACHE_BASEDIR=$PWD
top=$PWD
toolchain=$top/cmake/mingw-w64-x86_64.cmake
gtest=$top/build/windows-gtest
out=$top/build/windows
launcher=(-DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache)

echo "== windows: GoogleTest for MinGW-w64"
if [ ! -f "$gtest/install/lib/cmake/GTest/GTestConfig.cmake" ]; then
  cmake -S /usr/src/googletest -B "$gtest" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
    -DCMAKE_BUILD_TYPE=Release -DBUILD_GMOCK=OFF -DCMAKE_INSTALL_PREFIX="$gtest/install" \
    "${launcher[@]}" >/dev/null
  cmake --build "$gtest" >/dev/null
  cmake --install "$gtest" >/dev/null
fi

echo "== windows: cross-build"
# Test discovery at build time would start Wine once per test program; CTest is not used here.
core=(-DCMAKE_BUILD_TYPE=Release -DQUILLMERE_GUI=OFF -DQUILLMERE_BENCH=OFF -DQUILLMERE_CRMATH=ON)
cmake -S . -B "$out" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" "${core[@]}" \
  -DGTest_DIR="$gtest/install/lib/cmake/GTest" \
  -DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST "${launcher[@]}" >/dev/null
cmake --build "$out" --target core_tests storm_tests quillmere-cli

# A Wine prefix of our own, made at the first start (without Mono and Gecko, which a console
# program does not need); its wineserver is stopped at the end.
export WINEPREFIX=$out/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
wineserver=$(command -v wineserver || echo /usr/lib/wine/wineserver)
trap '"$wineserver" -k 2>/dev/null || true' EXIT

echo "== windows: tests under Wine"
for t in core_tests storm_tests; do
  (cd "$out" && "$wine" "./$t.exe" --gtest_brief=1)
done

echo "== windows: the same digits on Windows and on Linux"
# The Linux build to compare with is made with the same options.
cmake -S . -B build/windows-reference -G Ninja "${core[@]}" "${launcher[@]}" >/dev/null
cmake --build build/windows-reference --target quillmere-cli digits_compare
WINE=$wine tests/windows_digits.sh build/windows-reference/quillmere-cli \
  "$out/quillmere-cli.exe" build/windows-reference/digits_compare
