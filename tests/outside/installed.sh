#!/usr/bin/env bash
# Installs into an empty folder and works with what lies there, with nothing said about where it is.
#
#   installed.sh BUILD_FOLDER EMPTY_FOLDER
set -eu
build=$1
root=$2
rm -rf "$root"
cmake --install "$build" --prefix "$root/usr" >/dev/null
cd "$root"
printf 'VelmoGROUPMAKE\nALL\n\nSAVEAS "%s"\n' "$root/grouped.dxf" |
    env -i usr/bin/drafthost --script - usr/share/doc/velmogroup/samples/plan.dxf
grep -q 'VELMO_GB' grouped.dxf || { echo "no group was made"; exit 1; }
version=$(env -i usr/bin/drafthost --version)
grep -q "VelmoGroup ${version#drafthost }" usr/share/man/man1/drafthost.1 ||
    { echo "the manual page is of another version than $version"; exit 1; }
