#!/usr/bin/env bash
# Configures and builds with the given CMake preset (default: "default").
# Further arguments name the targets to build (default: everything).
set -euo pipefail
cd "$(dirname "$0")/.."
preset="${1:-default}"
shift || true
cmake --preset "$preset" >/dev/null
if [ "$#" -gt 0 ]; then
    cmake --build --preset "$preset" --target "$@"
else
    cmake --build --preset "$preset"
fi
