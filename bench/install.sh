#!/usr/bin/env bash
# What an install and its undoing take, beside `unzip -oq` of the same zip and `rm -r` of the same files, and how
# much faster music is converted than it plays. bench/install.sh [FILES [KILOBYTES]]; 3000 files of 100 KB unless
# told otherwise. Needs a release build.
set -euo pipefail
cd "$(dirname "$0")/.."

files=${1:-3000}
kilobytes=${2:-100}
rounds=5
seconds_of_music=300
cmake --preset release >/dev/null
cmake --build --preset release --target vantrosk-cli bench_make_music >/dev/null
program=$PWD/build/release/bin/vantrosk-cli
made=$PWD/build/bench/mission_${files}_$kilobytes
work=$(mktemp -d "$PWD/build/bench/install.XXXXXX")
trap 'rm -rf "$work"' EXIT

# Says which game the mission is for.
readme() { printf 'Title : Bench\r\nAuthor : Nobody\r\nGame : Thief 2\r\n' >readme.txt; }

# Half noise, half text, in 60 folders: packed to about half its size, as missions are.
make_mission() {
    local tree=$made/tree i
    mkdir -p "$made/fms"
    head -c $((kilobytes * 512)) /dev/zero | tr '\0' 'a' >"$made/text"
    for ((i = 0; i < files; i++)); do
        local folder=$tree/mesh/f$((i % 60))
        [ -d "$folder" ] || mkdir -p "$folder"
        { head -c $((kilobytes * 512)) /dev/urandom; cat "$made/text"; } >"$folder/file_$i.bin"
    done
    (cd "$tree" && echo map >miss20.mis && readme && zip -q -r "$made/fms/big.zip" .)
    rm -rf "$tree" "$made/text"
}
make_music() {
    mkdir -p "$made/music/snd"
    build/release/bin/bench_make_music "$made/music/snd/song.mp3" $seconds_of_music
    build/release/bin/bench_make_music "$made/music/snd/song.ogg" $seconds_of_music
    (cd "$made/music" && echo map >miss20.mis && readme && zip -q -0 -r "$made/fms/music.zip" .)
}
[ -e "$made/.made" ] || { rm -rf "$made"; make_mission; make_music; touch "$made/.made"; }

mkdir -p "$work/home" "$work/game"
run() { "$program" --home "$work/home" "$@"; }
run settings set T2 "$made/fms" >/dev/null
run settings set T2GAME "$work/game" >/dev/null
run --json scan T2 >/dev/null
cat "$made"/fms/*.zip >/dev/null

# timed COMMAND...: milliseconds by the clock on the wall, and of the processor, which other work does not change.
timed() {
    local TIMEFORMAT='%3R %3U %3S'
    { time "$@" >/dev/null 2>&1; } 2>&1 | awk '{ print $1 * 1000, ($2 + $3) * 1000 }'
}
# middle COLUMN: of the rounds.
middle() { awk -v c="$1" '{ print $c }' | sort -n | sed -n "$(((rounds + 1) / 2))p"; }

unzip_times=() rm_times=() install_times=() restore_times=() scan_times=() music_times=()
for ((round = 0; round < rounds; round++)); do
    mkdir "$work/plain"
    unzip_times+=("$(timed unzip -oq "$made/fms/big.zip" -d "$work/plain")")
    sync
    rm_times+=("$(timed rm -r "$work/plain")")
    sync
    install_times+=("$(timed run install T2 big.zip)")
    sync
    restore_times+=("$(timed run restore T2)")
    sync
    scan_times+=("$(timed run scan T2)")
    music_times+=("$(timed run install T2 music.zip)")
    run restore T2 >/dev/null
done
memory=$( { /usr/bin/env time -f %M "$program" --home "$work/home" install T2 big.zip >/dev/null; } 2>&1 | tail -n 1 || true)

echo "cores $(nproc), load $(cut -d ' ' -f 1 /proc/loadavg), $files files of $kilobytes KB, middle of $rounds rounds"
printf '%-42s %10s %6s %14s %6s\n' "" "wall, s" ratio "processor, s" ratio
row() { # TEXT TIMES-NAME FLOOR-NAME
    local -n times=$2 floors=$3
    local column values=()
    for column in 1 2; do
        values+=("$(printf '%s\n' "${times[@]}" | middle $column)" "$(printf '%s\n' "${floors[@]}" | middle $column)")
    done
    awk -v t="$1" -v a="${values[0]}" -v b="${values[1]}" -v c="${values[2]}" -v d="${values[3]}" \
        'BEGIN { printf "%-42s %10.3f %6.2f %14.3f %6.2f\n", t, a / 1000, a / b, c / 1000, c / d }'
}
row "unzip -oq into an empty folder" unzip_times unzip_times
row "install, whole process" install_times unzip_times
row "rm -r of the same files" rm_times rm_times
row "restore, whole process" restore_times rm_times
row "of which start and list (a scan alone)" scan_times rm_times
music=$(printf '%s\n' "${music_times[@]}" | middle 1)
start=$(printf '%s\n' "${scan_times[@]}" | middle 1)
awk -v ms="$music" -v s="$start" -v play=$((2 * seconds_of_music)) \
    'BEGIN { printf "music of %d s converted in %.2f s: %.0f times faster than it plays\n", play, (ms - s) / 1000, play * 1000 / (ms - s) }'
case $memory in '' | *[!0-9]*) ;; *) echo "peak memory of the install: $((memory / 1024)) MB" ;; esac
