#!/usr/bin/env bash
# What a diagnosis costs: a game folder of 20,000 files against a reference file of 20,000 lines, as a whole process and
# without the start, beside `find -printf` of the same tree in the same run. bench/diagnose.sh [FILES [RUNS]]; the least
# of 7 runs unless told otherwise. Builds what it needs for release.
set -euo pipefail
cd "$(dirname "$0")/.."

files=${1:-20000}
runs=${2:-7}
cmake --preset release >/dev/null
nice cmake --build --preset release --target vantrosk-cli >/dev/null
cli=$PWD/build/release/bin/vantrosk-cli
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data WINEPREFIX=$work/prefix # the user's own stay as they are
home=$work/home
game=$work/game
mkdir -p "$home" "$game"

if ! command -v python3 >/dev/null 2>&1; then
    echo "python3 is needed to make the files and to take the time" >&2
    exit 1
fi
# A folder of an install holds about fifty files, up to four folders deep.
python3 - "$game" "$files" <<'EOP'
import os, sys
game, count = sys.argv[1], int(sys.argv[2])
for number in range(0, count, 50):
    place = number // 50
    folder = os.path.join(game, *[f"folder {place >> shift & 7}" for shift in (6, 3, 0)][: 1 + place % 3], f"obj {place}")
    os.makedirs(folder, exist_ok=True)
    for i in range(number, min(number + 50, count)):
        with open(os.path.join(folder, f"texture number {i}.pcx"), "wb") as file:
            file.write(b"x" * (i % 97))
EOP
"$cli" --home "$home" settings set T2GAME "$game" >/dev/null
reference=$("$cli" --home "$home" --json reference T2 | python3 -c 'import json, sys; print(json.load(sys.stdin)["reference"])')

# least COMMAND...: wall and processor milliseconds, each the least of the runs.
least() {
    RUNS=$runs python3 - "$@" <<'EOP'
import os, subprocess, sys, time
def once():
    began = time.monotonic()
    child = subprocess.Popen(sys.argv[1:], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
    usage = os.wait4(child.pid, 0)[2]
    return (time.monotonic() - began) * 1000, (usage.ru_utime + usage.ru_stime) * 1000, usage.ru_maxrss / 1024
once()
rows = [once() for _ in range(int(os.environ["RUNS"]))]
print("%8.0f ms wall %8.0f ms processor %6.0f MB" % tuple(min(column) for column in zip(*rows)))
EOP
}

row() { printf '%-50s %s\n' "$1" "$2"; }

echo "cores $(nproc), load $(cut -d' ' -f1 /proc/loadavg), $(find "$game" -type f | wc -l) files, least of $runs"
row "find -printf of the tree" "$(least find "$game" -type f -printf '%P,%s,%TY-%Tm-%Td %TT\n')"
row "a start and nothing else (settings get T2GAME)" "$(least "$cli" --home "$home" settings get T2GAME)"
row "diagnose, all files as they should be" "$(least "$cli" --home "$home" diagnose T2 --reference "$reference")"
row "diagnose, all files unexpected (no reference)" "$(least "$cli" --home "$home" diagnose T2)"
row "reference" "$(least "$cli" --home "$home" reference T2)"
