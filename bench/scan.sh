#!/usr/bin/env bash
# How long vantrosk-cli takes to scan a made library, beside `unzip -Z1` over the same files in the same run.
# bench/scan.sh [ZIPS [ENTRIES]]; 2000 zips of 345 entries unless told otherwise. Needs a release build.
set -euo pipefail
cd "$(dirname "$0")/.."

zips=${1:-2000}
entries=${2:-345}
cmake --preset release >/dev/null
cmake --build --preset release --target vantrosk-cli bench_make_library >/dev/null
program=$PWD/build/release/bin/vantrosk-cli
library=$PWD/build/bench/library_${zips}_$entries
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT

[ -e "$library/.made" ] || { build/release/bin/bench_make_library "$library" "$zips" "$entries" && touch "$library/.made"; }

# Both read the files once before, so that neither pays for the disk.
cat "$library"/*.zip >/dev/null

# seconds COMMAND...: wall-clock seconds of one run, its output thrown away.
seconds() {
    local start end
    start=$(date +%s%N)
    "$@" >/dev/null
    end=$(date +%s%N)
    awk -v ns=$((end - start)) 'BEGIN { printf "%.2f", ns / 1e9 }'
}
unzip_all() { for zip in "$library"/*.zip; do unzip -Z1 "$zip"; done; }
scan() { "$program" --home "$home" --json scan T2; }

"$program" --home "$home" settings set T2 "$library" >/dev/null
mkdir -p "$home/game"
"$program" --home "$home" settings set T2GAME "$home/game" >/dev/null

floor=$(seconds unzip_all)
first=$(seconds scan)
second=$(seconds scan)
"$program" --home "$home" tweaks set SCAN_ZIPS 2 >/dev/null
fast=$(seconds scan)
rows=$(scan | grep -o '"zip":' | wc -l)
memory=$( { /usr/bin/env time -f %M "$program" --home "$home" --json scan T2 >/dev/null; } 2>&1 | tail -n 1 || true)

echo "cores $(nproc), $zips zips of $entries entries, $rows rows"
ratio() { awk -v a="$1" -v b="$floor" 'BEGIN { printf "%.2f", a / b }'; }
printf '%-42s %8s s  ratio %s\n' "unzip -Z1, one process a zip" "$floor" 1.00
printf '%-42s %8s s  ratio %s\n' "first scan (Normal, empty database)" "$first" "$(ratio "$first")"
printf '%-42s %8s s  ratio %s\n' "second scan (Normal)" "$second" "$(ratio "$second")"
printf '%-42s %8s s  ratio %s\n' "Fast scan" "$fast" "$(ratio "$fast")"
case $memory in '' | *[!0-9]*) ;; *) echo "peak memory of a scan: $((memory / 1024)) MB" ;; esac
