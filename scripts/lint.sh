#!/usr/bin/env bash
# Rules that a machine can check: layout of the sources, their opening line, and the borders of the
# module. Prints each breach and ends with 1 when there was one.
set -u
cd "$(dirname "$0")/.."
status=0
report() {
    echo "lint: $1"
    status=1
}

# Also what git does not know yet; not what only stands in its index any more.
listed() { git ls-files --cached --others --exclude-standard --deduplicate -- "$@" | while read -r file; do
    [ -e "$file" ] && echo "$file"
done; }
mapfile -t sources < <(listed '*.cpp' '*.h')
clang-format --dry-run -Werror "${sources[@]}" || report "run: clang-format -i on the files above"

for file in "${sources[@]}"; do
    head -n 1 "$file" | grep -q '^// ' || report "$file: does not open with a line on its purpose"
done

# The module builds from the same sources everywhere and sees only the platform.
module=(module/*.cpp module/*.h storage/* commands/* tracking/* support/*)
grep -nE '^\s*#\s*if' "${module[@]}" && report "conditional compilation in the module"
grep -nE '#include "(host|tests|drafthost|inspection|picture)/' "${module[@]}" && report "the module looks into the host"
grep -nE '#include <(windows|afx)' "${module[@]}" | grep -v '^support/platform.h' &&
    report "only support/platform.h names the platform's headers"

# The rooms of the host: an include goes to the same room or to one above it in host/rooms.txt. What
# stands beside the rooms (windows, mfc) sees them down to text.
awk '
    FILENAME == "host/rooms.txt" {
        if ($0 !~ /^#/ && NF > 0) { rank[$1] = ++rooms; if ($1 == "text") text_room = rooms }
        next
    }
    function room_of(path,   part) {  # the longest folder of the path that is a room
        sub(/^host\//, "", path)
        for (part = path; sub(/\/[^\/]*$/, "", part);) if (part in rank) return part
        return ""
    }
    FNR == 1 { sub(/^\.\//, "", FILENAME); own = room_of(FILENAME); top = own == "" ? text_room : rank[own] }
    FNR == 1 && own == "" && FILENAME !~ /^host\/(windows|mfc)\// {
        print FILENAME ": stands in no room of host/rooms.txt"; bad = 1
    }
    match($0, /^[ \t]*#[ \t]*include "(host\/[^"]+)"/) {
        split($0, piece, "\""); other = room_of(piece[2])
        if (piece[2] ~ /^host\/(windows|mfc)\// && own == "") next
        if (other == "" || rank[other] > top) { print FILENAME ":" FNR ": " $0; bad = 1 }
    }
    END { exit bad }' host/rooms.txt $(listed 'host/*.cpp' 'host/*.h') ||
    report "these files of the host look up; host/rooms.txt has the order"
# The inspection reads over the interface and takes names from the module; the picture sees the host
# down to picking.
grep -nE '#include "' inspection/*.cpp inspection/*.h |
    grep -vE '"(inspection/|host/(objectarx|text)/|(arxHeaders|group_naming|host_guards)\.h")' &&
    report "the inspection sees more than the interface, names and guards"
picture_sees=$(awk '!/^#/ && NF > 0 { print $1 } $1 == "picking" { exit }' host/rooms.txt | paste -sd '|')
grep -nE '#include "' picture/*.cpp picture/*.h |
    grep -vE "\"(picture|inspection|host/($picture_sees))/" &&
    report "the picture sees more than the host down to picking"
# What sets the module's per-user switches knows where they are from its version resource.
grep -rnE '#include "(module|storage|commands|tracking|support)/' host drafthost picture |
    grep -v '"module/version.h"' && report "the host knows the module"

# A test file without a test checks nothing.
for file in $(listed 'tests/*_test.cpp'); do
    grep -qE '^(TEST|TEST_F|TEST_P)\(' "$file" || report "$file: holds no test"
done
exit $status
