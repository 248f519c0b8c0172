#!/usr/bin/env bash
# The sanitizer job: builds everything with AddressSanitizer, LeakSanitizer
# and UBSan (the "asan" preset, build/asan) and runs the whole test suite
# under them. Any report fails its test. See docs/testing.md.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh asan
ctest --preset asan -j2
