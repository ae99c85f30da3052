#!/usr/bin/env bash
# What it costs to turn a text readme into its page, in processor time, beside `perl` doing the plainest part of
# it (escaping, line breaks, one link, the labels) to the same file in the same run. bench/page.sh [KIB]; 100 KiB
# and 8 MiB unless told otherwise. The glossary has a hundred words. Builds what it needs for release.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release -DVANTROSK_WINDOW=OFF >/dev/null
cmake --build --preset release --target bench_make_page >/dev/null
bin=$PWD/build/release/bin
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT

for i in $(seq 100); do printf '[word%d]\nWhat it is, in a few words.\n' "$i"; done >"$home/intellitext.txt"

# readme KIB: a readme of that size; its words, labels and links come as often as authors use them.
readme() {
    perl -e 'my $size = shift() * 1024;
        my $text = "Title : The Vault\r\nAuthor : Ann Lee\r\nGame : Thief 2\r\nContact : ann\@vault.example\r\n"
                 . "Homepage : http://vault.example/~ann\r\nDate of Release : 1 May\r\n\r\n";
        for (my $line = 0; length($text) < $size; ++$line) {
            $text .= "The guards of the old town pass keys at the " . ($line % 100) . ". bell, and Garrett waits.\r\n";
            $text .= "Write to ann\@vault.example or see http://vault.example/~ann for word" . $line % 100 . " ones.\r\n"
                if $line % 40 == 0;
            $text .= "Known Bugs : caf\xe9 \x93lights\x94 \x96 they flicker. Runs from Darkloader.\r\n" if $line % 200 == 0;
        }
        print substr($text, 0, $size);' "$1" 2>/dev/null
}

plain() {
    perl -0777 -pe 's/</&lt;/g; s/>/&gt;/g; s/\r?\n/<br>/g; s/(ann\@vault\.example)/<a href="mailto:$1">$1<\/a>/g;
        s/Known Bugs ?:/<span>Known Bugs: <\/span>/gi; s/Date of Release {0,50}:/<span>Date of Release: <\/span>/gi;
        s/darkloader/DarkLoader/gi; s/\xe9/&eacute;/g; s/[\x93\x94]/"/g; s/\x96/-/g;' "$1" >"$1.perl.htm"
}

cpu_ms() {
    local TIMEFORMAT='%U %S'
    { time "$@" >/dev/null 2>&1; } 2>&1 | awk '{ printf "%.0f", ($1 + $2) * 1000 }'
}

echo "cores $(nproc)"
for kib in ${1:-100 8192}; do
    readme "$kib" >"$home/readme.txt"
    count=$((kib > 1000 ? 5 : 200))
    printf '%6d KiB  %-44s %8s ms\n' "$kib" "a page" "$("$bin/bench_make_page" "$home" "$home/readme.txt" "$count")"
    printf '%6d KiB  %-44s %8s ms\n' "$kib" "perl, the plainest part, its start included" "$(cpu_ms plain "$home/readme.txt")"
done
