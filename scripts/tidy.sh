#!/usr/bin/env bash
# Runs clang-tidy with the checks of .clang-tidy. Prints what it finds and ends with 1 then.
#
#   scripts/tidy.sh          the module, and of everything else what differs from the last commit
#   scripts/tidy.sh --all    everything but tests and benchmarks; minutes
#
# How each file is compiled comes from a build folder that is configured and never built: there each
# file stands alone, which in the preset native it does not. Files for Windows only have no place there.
set -eu
cd "$(dirname "$0")/.."
command -v clang-tidy >/dev/null || { echo "clang-tidy is not installed"; exit 1; }
folders=(module storage commands tracking support inspection)
others=(host drafthost picture window json)
cmake --preset native -B build/tidy -DVELMO_QUICK_BUILD=OFF >/dev/null

listed() { # of the folders named; what is there, known to git or not
    [ $# -eq 0 ] || git ls-files --cached --others --exclude-standard --deduplicate -- "$@"
}
mapfile -t changed < <(git diff --name-only HEAD -- "${others[@]}"
    git ls-files --others --exclude-standard -- "${others[@]}")
[ "${1-}" = --all ] && changed=("${others[@]}")

status=0
{ listed "${folders[@]}"; listed "${changed[@]}"; } | grep '\.cpp$' | grep -v '_windows\.cpp$' |
    while read -r file; do [ -e "$file" ] && echo "$file"; done |
    xargs -r -P "$(nproc)" -n 4 clang-tidy -p build/tidy --quiet 2>/dev/null || status=1
exit $status
