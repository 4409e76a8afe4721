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

mapfile -t sources < <(git ls-files '*.cpp' '*.h')
clang-format --dry-run -Werror "${sources[@]}" || report "run: clang-format -i on the files above"

for file in "${sources[@]}"; do
    head -n 1 "$file" | grep -q '^// ' || report "$file: does not open with a line on its purpose"
done

# The module builds from the same sources everywhere and sees only the platform.
module=(module/*.cpp module/*.h module/entry/* storage/* commands/* tracking/* support/*)
grep -nE '^\s*#\s*if' "${module[@]}" && report "conditional compilation in the module"
grep -nE '#include "(host|tests|drafthost)/' "${module[@]}" && report "the module looks into the host"
grep -nE '#include <(windows|afx)' "${module[@]}" | grep -v '^support/platform.h' &&
    report "only support/platform.h names the platform's headers"
grep -rnE '#include "(host/(editor|commands|application)|drafthost)/' host/database host/dxf \
    host/control && report "a lower room of the host looks up"
# What sets the module's per-user switches knows where they are from its version resource.
grep -rnE '#include "(module|storage|commands|tracking|support)/' host drafthost |
    grep -v '"module/version.h"' && report "the host knows the module"

# A test file without a test checks nothing.
for file in $(git ls-files 'tests/*_test.cpp'); do
    grep -qE '^(TEST|TEST_F|TEST_P)\(' "$file" || report "$file: holds no test"
done
exit $status
