#!/usr/bin/env bash
# Builds the library alone, installs it into an empty prefix and builds the first filters against that.
#   test_install.sh SOURCE WORK CC CXX VERSION
set -euo pipefail
source=$1 work=$2 cc=$3 cxx=$4 version=$5
prefix=$work/prefix
rm -rf "$work"

cmake -S "$source" -B "$work/build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER="$cxx" \
  -DCMAKE_INSTALL_LIBDIR=lib -DTRELVANIX_BUILD_TESTS=OFF -DTRELVANIX_BUILD_BENCHMARKS=OFF \
  -DTRELVANIX_BUILD_EXAMPLES=OFF
cmake --build "$work/build"
cmake --install "$work/build" --prefix "$prefix"

installed=$(cd "$prefix" && find . ! -type d | sort | tr '\n' ' ')
expected="./include/trelvanix.h ./lib/libTrelvanix.so ./lib/libTrelvanix.so.${version%%.*} ./lib/libTrelvanix.so.$version "
[ "$installed" = "$expected" ] || { echo "installed: $installed; expected: $expected" >&2; exit 1; }

link=(-I "$prefix/include" -L "$prefix/lib" -lTrelvanix "-Wl,-rpath,$prefix/lib")
"$cc" -std=c11 -o "$work/first_filter_c" "$source/examples/hosts/first_filter.c" "${link[@]}"
"$cxx" -std=c++20 -o "$work/first_filter_cpp" "$source/examples/hosts/first_filter.cpp" "${link[@]}"
from_c=$("$work/first_filter_c")
from_cpp=$("$work/first_filter_cpp")
[ -n "$from_c" ] && [ "$from_c" = "$from_cpp" ] ||
  { printf 'C printed:\n%s\nC++ printed:\n%s\n' "$from_c" "$from_cpp" >&2; exit 1; }

# The library asks for the C and C++ runtime and nothing else.
needed=$(objdump -p "$prefix/lib/libTrelvanix.so" | awk '$1 == "NEEDED" { print $2 }' |
  grep -vE '^(libstdc\+\+|libm|libc|libgcc_s|ld-linux.*)\.so' || true)
[ -z "$needed" ] || { echo "depends on $needed" >&2; exit 1; }
