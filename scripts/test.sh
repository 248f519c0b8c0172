#!/usr/bin/env bash
# Installs what is needed, builds, and runs the whole test suite.
# CI=true builds with warnings treated as errors.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
preset=default
if [ "${CI:-}" = "true" ]; then
    preset=ci
fi
bash scripts/build.sh "$preset"
export QT_QPA_PLATFORM=offscreen
ctest --preset "$preset" -j2
