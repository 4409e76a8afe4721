#!/usr/bin/env bash
# Rules that a machine can check: layout of the sources, their opening line, the borders of the rooms,
# what headers include, and the checks of clang-tidy. Prints each breach and ends with 1 when there
# was one. --without-tidy leaves clang-tidy out, for who runs it over everything.
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

for file in $(awk 'FNR == 1 && !/^\/\/ / { print FILENAME }' "${sources[@]}"); do
    report "$file: does not open with a line on its purpose"
done

# The module builds from the same sources everywhere and sees only the platform.
module=(module/*.cpp module/*.h module/entry/* storage/* commands/* tracking/* support/*)
grep -nE '^\s*#\s*if' "${module[@]}" && report "conditional compilation in the module"
grep -nE '#include "(host|tests|drafthost|inspection|picture|window)/' "${module[@]}" && report "the module looks into the host"
grep -nE '#include <(windows|afx)' "${module[@]}" | grep -v '^support/platform.h' &&
    report "only support/platform.h names the platform's headers"
scripts/module_language.py || report "the platform's compiler cannot compile the lines above"

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
grep -rnE '#include "' picture | grep -vE "\"(picture|inspection|host/($picture_sees))/" &&
    report "the picture sees more than the host down to picking"
grep -nE '#include "picture/svg/' picture/*.* window/*.* && report "somebody looks up at picture/svg"
# The window sees the host, the picture and the inspection; of all others the program alone sees it.
grep -nE '#include "' window/*.cpp window/*.h | grep -vE '"(window|picture|inspection|host|json)/' &&
    report "the window sees more than host, picture, inspection and JSON"
grep -nE '#include "' json/* | grep -v '"json/' && report "JSON sees anything at all"
grep -rnE '#include "window/' host inspection picture && report "somebody looks up at the window"
# The folders of the program, lowest first; all of them see its options, and what a job is.
lower='options\.h|job\.h'
for folder in system files groups reports prompt; do
    lower="$lower|$folder/"
    grep -nE '#include "drafthost/' drafthost/$folder/* | grep -vE "\"drafthost/($lower)" &&
        report "drafthost/$folder looks up"
done
# What sets the module's per-user switches knows where they are from its version resource.
grep -rnE '#include "(module|storage|commands|tracking|support)/' host drafthost picture window |
    grep -v '"module/version.h"' && report "the host knows the module"

# Each header compiles by itself. One that a source includes before all others is shown to by the
# builds that compile each file alone (sanitize, windows, fuzz); the rest is tried here.
first=$(listed '*.cpp' | grep -v '_windows\.cpp$' | xargs awk '
    FNR == 1 { found = 0 }
    !found && /^#include/ { found = 1; gsub(/[<>"]/, "", $2); print $2 }' | sort -u)
interface=(host/objectarx host/mfc host/windows)
rooms=(support module storage commands tracking)
for header in $(listed '*.h' ':!tests' ':!bench'); do
    name=$header  # as sources write it: the module and the interface without a folder
    case " ${interface[*]} ${rooms[*]} " in *" ${header%/*} "*) name=${header##*/} ;; esac
    grep -qxF -e "$header" -e "$name" <<<"$first" || echo "$header"
done | xargs -P "$(nproc)" -n 1 g++ -std=c++17 -fsyntax-only -w -x c++ -I. \
    "${interface[@]/#/-I}" "${rooms[@]/#/-I}" || report "the headers above do not include what they use"
# Nor does the module lean on what the platform's headers include, which differs between platforms.
awk '
    function lacking(   header) {
        for (header in used) if (!(header in included)) { print file ":" used[header] ": <" header ">"; bad = 1 }
    }
    BEGIN {
        names["string"] = "w?string"; names["vector"] = "vector"; names["map"] = "map"
        names["memory"] = "unique_ptr|shared_ptr"; names["functional"] = "function"
        names["optional"] = "optional"; names["unordered_map"] = "unordered_map"
    }
    FNR == 1 { lacking(); split("", used); split("", included); file = FILENAME }
    /^#include </ { gsub(/[<>]/, "", $2); included[$2] }
    { for (header in names) if ($0 ~ "std::(" names[header] ")[^a-z_]" && !(header in used)) used[header] = FNR }
    END { lacking(); exit bad }' $(listed "${rooms[@]/%//*.h}") ||
    report "these headers of the module use what they do not include"

# A test file without a test checks nothing.
for file in $(listed 'tests/*_test.cpp'); do
    grep -qE '^(TEST|TEST_F|TEST_P)\(' "$file" || report "$file: holds no test"
done

# The first heading of the changes is the version of the sources.
version=$(awk '/^#define VELMO_VERSION_(MAJOR|MINOR|PATCH)/ { printf "%s%s", dot, $3; dot = "." }' module/version.h)
grep -m 1 '^## ' CHANGELOG.md | grep -qE "^## $version( |$)" ||
    report "CHANGELOG.md does not begin with version $version of module/version.h"

[ "${1-}" = --without-tidy ] || scripts/tidy.sh || report "clang-tidy complains (.clang-tidy has its checks)"
exit $status
