#!/usr/bin/env bash
# Installs what is needed, builds the program with its button images, help
# and icon (not the tests: scripts/test.sh builds those), and starts Tallix.
# Extra arguments go to the program (for example --data-root DIR).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh default tallix tallix-button-images tallix-help tallix-app-icon
exec build/default/tallix "$@"
