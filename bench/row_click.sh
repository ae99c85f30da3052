#!/usr/bin/env bash
# How long a click on a row takes before the browser gets the page (list the zip, extract readme and pictures, make
# the page, fill the details), beside `unzip` listing the same zip and extracting the same files in the same run.
# bench/row_click.sh [ENTRIES [CLICKS]]; a zip of 3000 entries and 40 clicks unless told otherwise.
set -euo pipefail
cd "$(dirname "$0")/.."

entries=${1:-3000}
clicks=${2:-40}
cmake --preset release -DVANTROSK_WINDOW=OFF >/dev/null
cmake --build --preset release --target bench_click_row >/dev/null
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

program=build/release/bin/bench_click_row
"$program" "$folder" "$entries" 2 >/dev/null
read -r median slowest processor most < <("$program" "$folder" "$entries" "$clicks")

list_and_extract() {
    unzip -Z1 "$1" >/dev/null
    unzip -qq -o -j "$1" readme.txt vktitle.jpg strings/titles.str 'vkimages/*' -d "$folder/out"
}
times=()
for ((i = 0; i < clicks; ++i)); do
    start=$(date +%s%N)
    list_and_extract "$folder/zips/bench_$((i % 2 + 1)).zip"
    times+=($((($(date +%s%N) - start) / 1000)))
done
tool=$(printf '%s\n' "${times[@]}" | sort -n | awk -v n="$clicks" 'NR == int(n / 2) + 1 { printf "%.1f", $1 / 1000 }')

echo "cores $(nproc), zips of $entries entries, $clicks clicks"
printf '%-52s %8s ms\n' "a click on a row, median" "$median" "a click on a row, slowest" "$slowest" \
    "a click on a row, processor time, median" "$processor" "a click on a row, processor time, most" "$most" \
    "unzip -Z1 and unzip of 13 files, median" "$tool"
awk -v a="$median" -v b="$tool" 'BEGIN { printf "%-52s %8.2f\n", "ratio of the medians", a / b }'
