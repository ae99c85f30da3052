#!/usr/bin/env bash
# Names every source file that clang-format would change; scripts/check_format.sh --fix changes them.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files 'src/*.cpp' 'src/*.h' 'apps/*.cpp' 'apps/*.h' 'tests/*.cpp' 'tests/*.h' 'demo/*.cpp' 'demo/*.h' 'bench/*.cpp')
if [ "${1:-}" = --fix ]; then
    clang-format -i "${sources[@]}"
    exit 0
fi
clang-format --dry-run --Werror "${sources[@]}"
echo "Format: ${#sources[@]} files as clang-format has them."
