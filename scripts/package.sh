#!/usr/bin/env bash
# Builds the Debian package of Tallix: a Release build in build/package (the
# "package" preset: installed under /usr, without the tests), then cpack.
# Prints the package's path last. See docs/install-layout.md.
#
#   bash scripts/package.sh
#   sudo apt install ./build/package/tallix_*.deb
set -euo pipefail
cd "$(dirname "$0")/.."
# dpkg-shlibdeps (dpkg-dev) reads the dependencies off the programs, which
# cpack first recognises with file.
bash scripts/install-deps.sh dpkg-dev file
cmake --preset package >/dev/null
cmake --build --preset package
rm -f build/package/tallix_*.deb
cpack --preset package >&2
ls build/package/tallix_*.deb
