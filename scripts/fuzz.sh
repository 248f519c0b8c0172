#!/usr/bin/env bash
# Runs tallix-fuzz under the sanitizers (the "asan" preset, built first when
# needed) on the starting corpus the build gathers. Arguments go to the
# fuzzer, after the corpus; default: --seed 1 --seconds 60. Findings go to
# build/asan/fuzz-findings. See docs/testing.md.
#
#   bash scripts/fuzz.sh --seed 2026 --seconds 600
#   bash scripts/fuzz.sh --replay fuzz/regressions     (no corpus then)
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/build.sh asan >/dev/null

# The same settings as the asan test preset in CMakePresets.json.
export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1:abort_on_error=1:detect_stack_use_after_return=1:strict_string_checks=1:check_initialization_order=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1:abort_on_error=1}"

# Each run saves its file several times and a save syncs it to disk: work in
# memory when the machine has a memory file system.
if [ -z "${TMPDIR:-}" ] && [ -d /dev/shm ] && [ -w /dev/shm ]; then
    export TMPDIR=/dev/shm
fi

fuzz=build/asan/fuzz/tallix-fuzz
case " $* " in
    *" --replay "*) exec "$fuzz" "$@" ;;
esac
if [ $# -eq 0 ]; then
    set -- --seed 1 --seconds 60
fi
exec "$fuzz" build/asan/fuzz/corpus --findings build/asan/fuzz-findings "$@"
