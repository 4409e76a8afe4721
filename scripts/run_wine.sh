#!/usr/bin/env bash
# Runs a command with Wine at hand: a prefix of the build folder's own, a screen that is not shown, and
# one Wine server for all programs that the command starts.
#
#   scripts/run_wine.sh BUILD_FOLDER COMMAND...
#
# A COMMAND that ends in .exe is itself run by Wine.
set -eu
build=$(cd "$1" && pwd)
shift

export WINEPREFIX="$build/wine" WINEARCH=win64 WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="
export WINE=${WINE:-$(command -v wine64 || command -v /usr/lib/wine/wine64 || command -v wine)}
# Debian keeps the server out of the search path.
server=$(command -v wineserver || echo /usr/lib/wine/wineserver)

if [ -z "${DISPLAY-}" ] || [ -z "${VELMO_SCREEN-}" ]; then
    export VELMO_SCREEN=1
    exec xvfb-run --auto-servernum --server-args="-screen 0 1024x768x24" \
        "$(readlink -f "$0")" "$build" "$@"
fi

if [ ! -f "$WINEPREFIX/system.reg" ]; then
    "$WINE" wineboot --init >/dev/null 2>&1
fi
"$server" -p3600  # it stays between the programs, and goes by itself should this script be killed
trap '"$server" -k >/dev/null 2>&1 || true' EXIT
case "$1" in
    *.exe) "$WINE" "$@" ;;
    *) "$@" ;;
esac
