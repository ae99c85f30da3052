#!/usr/bin/env bash
# How long one statement by key takes on a large Table_Scores, beside the same statements in the `sqlite3` shell,
# and what a start without a window costs with such a database. bench/statement.sh [ROWS [COUNT]]; 10,000 rows
# and 20,000 statements unless told otherwise. Builds what it needs for release.
set -euo pipefail
cd "$(dirname "$0")/.."

rows=${1:-10000}
count=${2:-20000}
cmake --preset release >/dev/null
cmake --build --preset release --target vantrosk-cli bench_make_database >/dev/null
bin=$PWD/build/release/bin
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT

# cpu_ms COMMAND...: milliseconds of processor time, its output thrown away.
cpu_ms() {
    local TIMEFORMAT='%U %S'
    { time "$@" >/dev/null 2>&1; } 2>&1 | awk '{ printf "%.0f", ($1 + $2) * 1000 }'
}

"$bin/bench_make_database" "$home" "$rows" 1 >/dev/null
ours=$("$bin/bench_make_database" "$home" "$rows" "$count")

echo "cores $(nproc), $rows rows, $count statements"
printf '%-52s %8s us\n' "a statement by key" "$ours"

if command -v sqlite3 >/dev/null 2>&1; then
    # The shell does not know the program's way to compare text, so it gets the same rows in a table that
    # compares without case in its own way, and an index of the same columns.
    shell=$home/shell.db
    columns=id,zip_name,FM_name,author,game,review
    sqlite3 "$home/Vantrosk.mdb" "ATTACH '$shell' AS s; CREATE TABLE s.t (id INTEGER PRIMARY KEY, \
        zip_name TEXT COLLATE NOCASE, FM_name TEXT, author TEXT, game TEXT COLLATE NOCASE, review TEXT); \
        INSERT INTO s.t SELECT $columns FROM Table_Scores NOT INDEXED; CREATE INDEX s.by_zip ON t(zip_name, game);"
    awk -v rows="$rows" -v count="$count" 'BEGIN { for (i = 0; i < count; ++i)
        printf "SELECT * FROM t WHERE zip_name = '\''bench_%05d.zip'\'' and game = '\''T2'\'';\n", i * 7919 % rows + 1 }' \
        >"$home/statements.sql"
    start=$(date +%s%N)
    sqlite3 "$shell" <"$home/statements.sql" >/dev/null
    end=$(date +%s%N)
    awk -v ns=$((end - start)) -v count="$count" -v ours="$ours" 'BEGIN { us = ns / 1000 / count
        printf "%-52s %8.1f us\n%-52s %8.2f\n", "the same in the sqlite3 shell", us, "ratio", ours / us }'
else
    echo "no sqlite3 shell here to compare with"
fi

# The first start of a day looks the whole file over; the others find it as it was left.
rm -f "$home/backups/checked.log"
printf '%-52s %8s ms of processor time\n' "settings get, the first of a day" "$(cpu_ms "$bin/vantrosk-cli" --home "$home" settings get)"
printf '%-52s %8s ms of processor time\n' "settings get, later" "$(cpu_ms "$bin/vantrosk-cli" --home "$home" settings get)"
