#!/usr/bin/env bash
# Installs what is needed, builds, and starts Tallix. Extra arguments go to
# the program (for example --data-root DIR).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh default
cd build/default
exec ./tallix "$@"
