#!/usr/bin/env bash
# Installs what building, running and testing Tallix needs on Debian 12, and
# the further packages named as arguments (scripts/package.sh names those of
# packaging). Runs apt-get directly as root, through sudo otherwise. Safe to
# run again.
set -euo pipefail

packages=(
    build-essential cmake ninja-build pkg-config
    qt6-base-dev libpugixml-dev zlib1g-dev libgtest-dev libgmock-dev libbenchmark-dev
    xvfb xauth xdg-utils locales
    "$@"
)

if [ "$(id -u)" -eq 0 ]; then
    as_root=()
else
    as_root=(sudo)
fi

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    "${as_root[@]}" apt-get update
    DEBIAN_FRONTEND=noninteractive "${as_root[@]}" apt-get install -y --no-install-recommends "${missing[@]}"
fi

# The number parsing is tested under a comma-decimal locale.
if ! locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$'; then
    if [ -f /etc/locale.gen ]; then
        "${as_root[@]}" sed -i 's/^# *\(de_DE.UTF-8 UTF-8\)/\1/' /etc/locale.gen
        grep -q '^de_DE.UTF-8 UTF-8' /etc/locale.gen ||
            echo 'de_DE.UTF-8 UTF-8' | "${as_root[@]}" tee -a /etc/locale.gen >/dev/null
        "${as_root[@]}" locale-gen >/dev/null || echo "note: could not generate de_DE.UTF-8" >&2
    fi
fi
