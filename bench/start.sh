#!/usr/bin/env bash
# What a start costs in processor time, beside starts of well-known programs in the same run: `vantrosk-cli settings
# get`, which is a whole start without a window, and the window until it is shown, its browser process aside. And how
# long a large registry of a Wine prefix takes to be read. bench/start.sh [RUNS]; the median of 11 runs unless told
# otherwise. Builds what it needs for release; the window only when this build has one.
set -euo pipefail
cd "$(dirname "$0")/.."

runs=${1:-11}
cmake --preset release >/dev/null
cmake --build --preset release --target vantrosk-cli bench_read_registry >/dev/null
bin=$PWD/build/release/bin
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
home=$work/home
mkdir "$home"
export XDG_CONFIG_HOME=$work/config # the user's own store stays as it is

# cpu_ms WHOSE COMMAND...: milliseconds of processor time, the median of the runs: of `all` processes that it started
# and waited for, or of its `own`, which is read between its end and the moment it is forgotten, in steps of 10 ms.
cpu_ms() {
    RUNS=$runs python3 - "$@" <<'EOF'
import os, subprocess, sys
whose, command = sys.argv[1], sys.argv[2:]
def once():
    nothing = subprocess.DEVNULL
    child = subprocess.Popen(command, stdin=nothing, stdout=nothing, stderr=nothing)
    os.waitid(os.P_PID, child.pid, os.WEXITED | os.WNOWAIT)
    with open(f"/proc/{child.pid}/stat") as stat:
        fields = stat.read().rsplit(")", 1)[1].split()
    own = (int(fields[11]) + int(fields[12])) * 1000 / os.sysconf("SC_CLK_TCK")
    usage = os.wait4(child.pid, 0)[2]
    return own if whose == "own" else (usage.ru_utime + usage.ru_stime) * 1000
once()
times = sorted(once() for _ in range(int(os.environ["RUNS"])))
print(f"{times[len(times) // 2]:.1f}")
EOF
}

row() { printf '%-58s %8s ms\n' "$1" "$2"; }

if ! command -v python3 >/dev/null 2>&1; then
    echo "python3 is needed to look at the processes" >&2
    exit 1
fi
"$bin/vantrosk-cli" --home "$home" settings get >/dev/null

echo "cores $(nproc), median of $runs, processor time"
row "vantrosk-cli settings get" "$(cpu_ms all "$bin/vantrosk-cli" --home "$home" settings get)"
row "python3 -c pass" "$(cpu_ms all python3 -c pass)"
if command -v sqlite3 >/dev/null 2>&1; then
    row "sqlite3 shell, a count of the same database" "$(cpu_ms all sqlite3 "$home/Vantrosk.mdb" 'select count(*) from table_messages')"
fi

if [ -x "$bin/vantrosk" ] && QT_QPA_PLATFORM=offscreen "$bin/vantrosk" --help 2>&1 | grep -c -- --quit-when-shown >/dev/null; then
    [ "$(id -u)" -ne 0 ] || export QTWEBENGINE_DISABLE_SANDBOX=1
    row "vantrosk until its window is shown" \
        "$(scripts/on_virtual_display.sh --size 1280x800 bash -c "$(declare -f cpu_ms); runs=$runs; cpu_ms own $bin/vantrosk --home $home --quit-when-shown")"
else
    echo "no window in this build, or none that ends when it is shown"
fi

echo
"$bin/bench_read_registry" "$work/prefix" 20
