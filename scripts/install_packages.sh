#!/usr/bin/env bash
# Installs the Debian packages named as arguments that are missing, and says which before it begins.
# Needs root or sudo only then. Without apt-get it leaves the system as it is and goes on.
set -eu
if ! command -v apt-get >/dev/null; then
    echo "no apt-get here, nothing is installed; docs/other-systems.md names what is needed" >&2
    exit 0
fi
missing=()
for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
        missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
        echo "missing packages: ${missing[*]}; install them as root, or install sudo" >&2
        exit 1
    }
    as_root=(sudo)
fi
echo "these Debian packages are missing and are installed now, with apt-get${as_root:+ and sudo}:"
echo "    ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
