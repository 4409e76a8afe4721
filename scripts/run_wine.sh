#!/usr/bin/env bash
# Runs a command with Wine at hand: a prefix of the build folder's own, a screen that is not shown, and
# one Wine server for all programs that the command starts.
#
#   scripts/run_wine.sh BUILD_FOLDER COMMAND...
#
# A COMMAND that ends in .exe is itself run by Wine. Inside another run_wine.sh it shares what that
# one has set up, so that `run_wine.sh build/windows ctest` starts Wine once.
set -eu
build=$(cd "$1" && pwd)
shift

run() {
    case "$1" in
        *.exe) "$WINE" "$@" ;;
        *) "$@" ;;
    esac
}

if [ "${VELMO_WINE-}" = "$build" ]; then
    run "$@"
    exit
fi

export WINEPREFIX="$build/wine" WINEARCH=win64 WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="
# Debian keeps the programs out of the search path.
WINE=$(command -v wine64 || command -v /usr/lib/wine/wine64 || command -v wine)
server=$(command -v wineserver || command -v /usr/lib/wine/wineserver)
export WINE

if [ "${VELMO_SCREEN-}" != "$build" ]; then
    VELMO_SCREEN="$build" exec xvfb-run --auto-servernum --server-args="-screen 0 1024x768x24" \
        "$(readlink -f "$0")" "$build" "$@"
fi
export VELMO_WINE="$build"

mkdir -p "$WINEPREFIX"
"$server" -p600  # stays between the programs; goes by itself should this script be killed
trap '"$server" -k >/dev/null 2>&1 || true' EXIT
if [ ! -f "$WINEPREFIX/ready" ]; then
    "$WINE" wineboot --init >/dev/null 2>&1
    # No window manager is there, whose answer Wine would await for seconds at each window.
    "$WINE" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f >/dev/null
    touch "$WINEPREFIX/ready"
fi
# A program that stays open keeps Wine's services and its desktop running. They would start anew for
# each test otherwise, and hold on to the test's output.
"$WINE" notepad.exe </dev/null >/dev/null 2>&1 &
for _ in $(seq 50); do
    grep -qsa 'explorer.exe' /proc/[0-9]*/cmdline && break
    sleep 0.1
done
run "$@"
