#!/usr/bin/env bash
# Runs a command on a virtual display of its own: on_virtual_display.sh [--size 1280x800] COMMAND [ARGUMENT]...
set -euo pipefail

size=1280x800
if [ "${1:-}" = --size ]; then
    size=$2
    shift 2
fi

folder=$(mktemp -d)
trap 'kill "${server:-0}" 2>/dev/null || true; rm -rf "$folder"' EXIT
# The server chooses a free display number and writes it once it is ready.
mkfifo "$folder/number"
Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$folder/number" >"$folder/log" 2>&1 &
server=$!
if ! read -r -t 30 number <"$folder/number"; then
    cat "$folder/log" >&2
    echo "The virtual display did not start." >&2
    exit 1
fi
status=0
DISPLAY=:$number WAYLAND_DISPLAY='' QT_QPA_PLATFORM=xcb "$@" || status=$?
exit "$status"
