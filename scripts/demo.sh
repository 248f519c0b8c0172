#!/usr/bin/env bash
# Opens the sample household year in a throw-away data folder, so the copy in
# examples/ never changes. Builds first when needed.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh
bash scripts/build.sh default tallix tallix-cli tallix-button-images tallix-help tallix-app-icon
root="$(mktemp -d -t tallix-demo-XXXXXX)"
mkdir -p "$root/tallix"
cp examples/tallix2026.xml "$root/tallix/"
# An index that attaches the sample to 2026.
sed '/<year year="2026">/,/<\/year>/ {
    s|<file></file>|<file>tallix2026.xml</file>|
    s|<status>not initialized</status>|<status>initialized</status>|
}' res/first_tallix.xml >"$root/tallix/tallix.xml"
# Carry each month's closing into the next, as Tools > Update all months does.
./build/default/tallix-cli update-all "$root/tallix/tallix2026.xml" 2>/dev/null || true
echo "Sample year copied to $root/tallix" >&2
exec build/default/tallix --data-root "$root"
