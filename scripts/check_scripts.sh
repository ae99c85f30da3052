#!/usr/bin/env bash
# Every script of the project parses.
set -euo pipefail
cd "$(dirname "$0")/.."
for script in run check .ci/run scripts/*.sh bench/*.sh; do
    [ -e "$script" ] || continue
    bash -n "$script"
done
