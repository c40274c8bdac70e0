#!/usr/bin/env bash
# Builds the Debian package of Quillmere from a clean copy of the committed tree, with the source
# tarball beside it, and checks the package with lintian. The results land in build/package/:
#   sudo apt install ./build/package/quillmere_*.deb
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/deps.sh
quillmere_install_deps
# dpkg-shlibdeps and file work out the library dependencies; the rest checks what was made.
sudo=
[ "$(id -u)" -eq 0 ] || sudo=sudo
SUDO=$sudo quillmere_install_missing dpkg-dev file lintian appstream desktop-file-utils

out=build/package
src=$out/src
bin=$out/build
rm -rf "$src" "$bin"
rm -f "$out"/quillmere_*.deb "$out"/quillmere-*.tar.gz
mkdir -p "$src"

# Only what is committed goes into the package: a clean tree, whatever else lies in this folder.
if git rev-parse --is-inside-work-tree >/dev/null 2>&1; then
  if [ -n "$(git status --porcelain --untracked-files=no)" ]; then
    echo "Note: changes not committed are left out of the package."
  fi
  git archive --format=tar HEAD | tar -x -C "$src"
else
  tar -c --exclude=./build --exclude=./.git . | tar -x -C "$src"
fi

# Debian's hardening flags: stack protector, fortified functions, read-only relocations bound now.
export DEB_BUILD_MAINT_OPTIONS=hardening=+all
CXXFLAGS="$(dpkg-buildflags --get CXXFLAGS) $(dpkg-buildflags --get CPPFLAGS)"
LDFLAGS="$(dpkg-buildflags --get LDFLAGS)"
export CXXFLAGS LDFLAGS
cmake -S "$src" -B "$bin" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
  -DQUILLMERE_TESTS=OFF -DQUILLMERE_BENCH=OFF >/dev/null
cmake --build "$bin"
(cd "$bin" && cpack -G DEB -B "$PWD/../" && cpack --config CPackSourceConfig.cmake -B "$PWD/../")
rm -rf "$out/_CPack_Packages"

deb=$(ls "$out"/quillmere_*.deb)
echo "== checks"
desktop-file-validate "$src"/packaging/*.desktop
appstreamcli validate --no-net "$src"/packaging/*.metainfo.xml
lintian --fail-on error "$deb"
echo "Made $deb and $(ls "$out"/quillmere-*.tar.gz)"
