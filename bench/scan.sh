#!/usr/bin/env bash
# How long vantrosk-cli takes to scan a made library, beside a floor program that only reads each central directory
# and inflates each readme, over the same files in the same run.
# bench/scan.sh [--growth] [ZIPS [ENTRIES]]; 2000 zips of 345 entries unless told otherwise. With --growth also a
# table for libraries of 500 to 8000 zips. Builds what it needs for release.
set -euo pipefail
cd "$(dirname "$0")/.."

growth=
if [ "${1:-}" = --growth ]; then
    growth=yes
    shift
fi
zips=${1:-2000}
entries=${2:-345}
runs=5
cmake --preset release >/dev/null
cmake --build --preset release --target vantrosk-cli bench_make_library bench_floor >/dev/null
bin=$PWD/build/release/bin
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT

# make_library ZIPS: sets `library`; the files are read once, so that nobody pays for the disk.
make_library() {
    library=$PWD/build/bench/library_$1_$entries
    [ -e "$library/.made" ] || { "$bin/bench_make_library" "$library" "$1" "$entries" && touch "$library/.made"; }
    cat "$library"/*.zip >/dev/null
}
floor() { "$bin/bench_floor" "$library"; }
scan() { "$bin/vantrosk-cli" --home "$home" --json scan T2; }
set_up() {
    rm -rf "$home"
    mkdir -p "$home/game"
    "$bin/vantrosk-cli" --home "$home" settings set T2 "$library" >/dev/null
    "$bin/vantrosk-cli" --home "$home" settings set T2GAME "$home/game" >/dev/null
}

# times PREPARE COMMAND: the least milliseconds of several runs, by the wall clock and of processor time; PREPARE
# runs before each of them and is not timed.
times() {
    local run TIMEFORMAT='%R %U %S'
    for ((run = 0; run < runs; ++run)); do
        "$1"
        { time "$2" >/dev/null 2>&1; } 2>&1
    done | awk '{ wall = $1 * 1000; cpu = ($2 + $3) * 1000
                  if (NR == 1 || wall < best_wall) best_wall = wall
                  if (NR == 1 || cpu < best_cpu) best_cpu = cpu }
                END { printf "%.0f %.0f", best_wall, best_cpu }'
}

# report WHAT "WALL CPU" GOAL
report() {
    awk -v what="$1" -v t="$2" -v floor="$floor_times" -v goal="$3" 'BEGIN {
        split(t, a); split(floor, f)
        printf "%-44s %7d ms %7d ms  %6.2f %6.2f", what, a[1], a[2], a[1] / f[1], a[2] / f[2]
        if (goal != "") printf "  at most %s", goal
        printf "\n" }'
}

make_library "$zips"
floor_times=$(times true floor)
first=$(times set_up scan)
second=$(times true scan)
rows=$(scan | grep -o '"zip":' | wc -l)
"$bin/vantrosk-cli" --home "$home" tweaks set SCAN_ZIPS 2 >/dev/null
fast=$(times true scan)
set_up
memory=$( { /usr/bin/env time -f %M "$bin/vantrosk-cli" --home "$home" --json scan T2 >/dev/null; } 2>&1 | tail -n 1 || true)

echo "cores $(nproc), load $(cut -d' ' -f1 /proc/loadavg), $zips zips of $entries entries, $rows rows; the least of $runs runs"
floor
printf '%-44s %10s %10s  %s\n' "" "wall" "processor" "ratios to the floor"
report "floor: directories and readmes" "$floor_times" ""
report "first scan (Normal, empty database)" "$first" 12
report "second scan (Normal)" "$second" 2.5
report "Fast scan" "$fast" 2
case $memory in '' | *[!0-9]*) ;; *) echo "peak memory of the first scan: $((memory / 1024)) MB, at most 150" ;; esac

[ -n "$growth" ] || exit 0
echo
printf '%6s %12s %18s %18s %18s\n' zips "first scan" "processor a zip" "second scan" "processor a zip"
for zips in 500 1000 2000 4000 8000; do
    make_library "$zips"
    first=$(times set_up scan)
    second=$(times true scan)
    awk -v n="$zips" -v a="$first" -v b="$second" 'BEGIN { split(a, f); split(b, s)
        printf "%6d %9d ms %15.3f ms %15d ms %15.3f ms\n", n, f[1], f[2] / n, s[1], s[2] / n }'
done
