#!/usr/bin/env bash
# Installs the Debian packages named as arguments that are missing; needs root or sudo only then.
set -eu
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
echo "installing: ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
