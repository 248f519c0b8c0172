#!/usr/bin/env bash
# The package check of CI: builds the Debian package (scripts/package.sh),
# unpacks it into a scratch root with dpkg -x and, from another working
# folder, runs the unpacked programs: tallix-cli check on the sample year and
# tallix --version. Checks that every file of the layout is there and
# validates the desktop entry and the AppStream metainfo (docs/install-layout.md).
set -euo pipefail
cd "$(dirname "$0")/.."
source="$PWD"
bash scripts/install-deps.sh desktop-file-utils appstream
deb="$(bash scripts/package.sh | tail -n 1)"
echo "package: $deb ($(du -k "$deb" | cut -f1) KiB)"
dpkg-deb --field "$deb" Package Version Depends Recommends

root="$(mktemp -d -t tallix-package-XXXXXX)"
trap 'rm -rf "$root"' EXIT
dpkg -x "$deb" "$root"
usr="$root/usr"

failed=0
fail() {
    echo "check-package: $*" >&2
    failed=1
}

# The layout of docs/install-layout.md.
expected=(
    bin/tallix bin/tallix-cli
    share/doc/tallix/tallix_help.pdf
    share/man/man1/tallix-cli.1.gz
    share/applications/tallix.desktop
    share/metainfo/org.tallix.tallix.metainfo.xml
)
for image in refresh update dollarsignred "Piggy Bank" receivable bank "Credit Card" desc cat; do
    expected+=("share/tallix/res/$image.bmp")
done
for size in 16 32 48 64 128 256; do
    expected+=("share/icons/hicolor/${size}x$size/apps/tallix.png")
done
for file in "${expected[@]}"; do
    [ -s "$usr/$file" ] || fail "missing or empty: /usr/$file"
done
depends="$(dpkg-deb --field "$deb" Depends)"
for library in libqt6widgets6 libqt6gui6 libqt6core6 libpugixml1v5; do
    grep -q "$library" <<<"$depends" || fail "Depends lacks $library: $depends"
done
man="$(zcat "$usr/share/man/man1/tallix-cli.1.gz")" || fail "the man page does not unpack"
grep -q '^\.SH COMMANDS' <<<"$man" || fail "the man page has no COMMANDS section"

# The unpacked programs, run from another working folder.
cd /
"$usr/bin/tallix-cli" --version || fail "tallix-cli --version"
"$usr/bin/tallix-cli" check "$source/examples/tallix2026.xml" ||
    fail "tallix-cli check examples/tallix2026.xml"
version="$(QT_QPA_PLATFORM=offscreen "$usr/bin/tallix" --version)" || fail "tallix --version"
echo "$version"
grep -q '^Tallix [0-9]' <<<"$version" || fail "tallix --version printed: $version"
help="$(QT_QPA_PLATFORM=offscreen "$usr/bin/tallix" --help)" || fail "tallix --help"
grep -q -- '--data-root <DIR>' <<<"$help" || fail "tallix --help does not list --data-root"

desktop-file-validate "$usr/share/applications/tallix.desktop" || fail "desktop-file-validate"
appstreamcli validate --no-net "$usr/share/metainfo/org.tallix.tallix.metainfo.xml" ||
    fail "appstreamcli validate"
# The metainfo with the desktop entry and icon it names.
appstreamcli validate-tree --no-net "$root" || fail "appstreamcli validate-tree"

[ $failed -eq 0 ] && echo "package check passed"
exit $failed
