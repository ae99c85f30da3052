#!/usr/bin/env bash
# Stops installs of a mission of 400 files at many moments and by many means, and counts what the next restore
# does not bring back. bench/faults.sh [SHARE [GAME]...]; with SHARE 10 every tenth moment is tried. Ends with 1 when
# anything was lost. The full disk and the read-only files need the administrator's rights.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release >/dev/null
cmake --build --preset release --target bench_faults >/dev/null
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
build/release/bin/bench_faults "$work/world" "${1:-1}" "${@:2}"
