#!/usr/bin/env bash
# Makes the Windows archive of a cross build, unpacks it and builds hosts against it, which run under Wine.
#   test_zip.sh SOURCE BUILD WORK TOOLCHAIN VERSION EMULATOR...
set -euo pipefail
source=$1 build=$2 work=$3 toolchain=$4 version=$5
emulator=${*:6}
rm -rf "$work"
mkdir -p "$work"
. "$source/tests/package/consumers.sh"

(cd "$build" && cpack -B "$work/packages")
name=trelvanix-$version-windows-x86_64
(cd "$work" && cmake -E tar xf "packages/$name.zip")
prefix=$work/moved
mv "$work/$name" "$prefix"
found=$(cd "$prefix" && find . -type f | sed 's,^\./,,' | grep -v '/docs/' | sort)
expected="bin/Trelvanix.dll
include/trelvanix.h
lib/Trelvanix.def
lib/cmake/Trelvanix/TrelvanixConfig-release.cmake
lib/cmake/Trelvanix/TrelvanixConfig.cmake
lib/cmake/Trelvanix/TrelvanixConfigVersion.cmake
lib/libTrelvanix.dll.a
lib/pkgconfig/trelvanix.pc
share/doc/Trelvanix/CHANGELOG.md
share/doc/Trelvanix/LICENSE
share/doc/Trelvanix/README.md"
[ "$found" = "$expected" ] || { diff <(echo "$expected") <(echo "$found") >&2; exit 1; }

command -v wine >/dev/null || { echo "skipped: the hosts can't run, wine is not installed"; exit 77; }
check_cmake_consumer "$prefix" "$work/consumer"
