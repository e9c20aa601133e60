#!/usr/bin/env bash
# Makes the Windows archive of a cross build, unpacks it and builds hosts against it, which run under Wine.
#   test_zip.sh SOURCE BUILD WORK TOOLCHAIN EMULATOR VERSION LIBRARY...  LIBRARY: NAME:VERSION:HEADER[,HEADER...]
set -euo pipefail
source=$1 build=$2 work=$3 toolchain=$4 emulator=$5 version=$6
libraries=("${@:7}")
rm -rf "$work"
mkdir -p "$work"
. "$source/tests/package/consumers.sh"

print_library_files() { # NAME VERSION HEADER...
  printf 'include/%s\n' "${@:3}"
  printf '%s\n' "bin/$1.dll" "lib/$1.def" "lib/lib$1.dll.a" "lib/pkgconfig/${1,,}.pc"
}

(cd "$build" && cpack -B "$work/packages")
name=trelvanix-$version-windows-x86_64
(cd "$work" && cmake -E tar xf "packages/$name.zip")
prefix=$work/moved
mv "$work/$name" "$prefix"
expect_files "$prefix" "$(for_each_library print_library_files)
lib/cmake/Trelvanix/TrelvanixConfig-release.cmake
lib/cmake/Trelvanix/TrelvanixConfig.cmake
lib/cmake/Trelvanix/TrelvanixConfigVersion.cmake
share/doc/Trelvanix/CHANGELOG.md
share/doc/Trelvanix/LICENSE
share/doc/Trelvanix/README.md"

command -v wine >/dev/null || { echo "skipped: the hosts can't run, wine is not installed"; exit 77; }
check_cmake_consumer "$prefix" "$work/consumer"
