#!/usr/bin/env bash
# What the window costs until it is shown and nothing is left to do, in processor time: an empty home, a settled
# one, and one with a game. Beside it `fc-list`, whose fonts every program with a window reads. bench/window.sh
# [STARTS]; the median of 9 starts unless told otherwise. Builds what it needs for release; needs a display, or
# scripts/on_virtual_display.sh around it.
set -euo pipefail
cd "$(dirname "$0")/.."

starts=${1:-9}
cmake --preset release >/dev/null
cmake --build --preset release --target vantrosk vantrosk-cli >/dev/null
bin=$PWD/build/release/bin
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export XDG_CONFIG_HOME=$home/config

# cpu_ms COMMAND...: milliseconds of processor time, its output thrown away.
cpu_ms() {
    local TIMEFORMAT='%U %S'
    { time "$@" >/dev/null 2>&1; } 2>&1 | awk '{ printf "%.0f\n", ($1 + $2) * 1000 }'
}
# median COMMAND...: of so many runs.
median() {
    for _ in $(seq "$starts"); do cpu_ms "$@"; done | sort -n | awk '{ at[NR] = $1 } END { print at[int((NR + 1) / 2)] }'
}
show() { "$bin/vantrosk" --home "$1" --quit-when-shown; }

echo "cores $(nproc), median of $starts starts"
printf '%-44s %6s ms\n' "fc-list" "$(median fc-list)"
first() { rm -rf "$home/first"; show "$home/first"; }
printf '%-44s %6s ms\n' "first start, empty home" "$(median first)"
mkdir -p "$home/game" "$home/fms"
"$bin/vantrosk-cli" --home "$home/set" settings set T2 "$home/fms" >/dev/null
"$bin/vantrosk-cli" --home "$home/set" settings set T2GAME "$home/game" >/dev/null
"$bin/vantrosk-cli" --home "$home/set" tweaks set STARTUP_PAGE "" >/dev/null
show "$home/set" >/dev/null 2>&1
printf '%-44s %6s ms\n' "one game, no start page" "$(median show "$home/set")"
"$bin/vantrosk-cli" --home "$home/set" tweaks set STARTUP_PAGE "VANTROSK WELCOME" >/dev/null
printf '%-44s %6s ms\n' "one game, welcome page (browser in it)" "$(median show "$home/set")"
