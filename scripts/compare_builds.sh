#!/usr/bin/env bash
# Builds the library with GCC and Clang, without and with optimisation, for the plain x86-64 processor and
# for newer ones, and fails when two of the builds answer the same requests with different bits.
#   scripts/compare_builds.sh [BUILD...]    e.g. g++-O0 clang++-O3-avx512; default: all
# Builds for instruction sets that this machine lacks are left out.
set -euo pipefail
cd "$(dirname "$0")/.."

avx2="-mavx2 -mfma"
avx512="$avx2 -mavx512f -mavx512dq -mavx512vl -mavx512bw"
all=({g++,clang++}-{O0,O2,O3,O3-avx2,O3-avx512})
[ $# -gt 0 ] || set -- "${all[@]}"

reference=
for build in "$@"; do
  flags=-${build#*++-}
  case $build in
    *-avx2) flags="${flags%-avx2} $avx2"; needs='avx2 fma' ;;
    *-avx512) flags="${flags%-avx512} $avx512"; needs='avx512f avx512dq avx512vl avx512bw' ;;
    *) needs= ;;
  esac
  for feature in $needs; do
    if ! grep -qw "$feature" /proc/cpuinfo; then
      echo "$build: skipped, this processor lacks $feature"
      continue 2
    fi
  done
  folder=build/compare/$build
  cmake -S . -B "$folder" -DCMAKE_CXX_COMPILER="${build%%-*}" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_CXX_FLAGS_RELEASE="$flags" -DTRELVANIX_BUILD_EXAMPLES=OFF \
    -DTRELVANIX_BUILD_BENCHMARKS=OFF >/dev/null
  cmake --build "$folder" --parallel "$(nproc)" --target trelvanix_bits_host >/dev/null
  "$folder/tests/abi/trelvanix_bits_host" >"$folder/bits"
  if [ -z "$reference" ]; then
    reference=$folder
    echo "$build: $(wc -l <"$folder/bits") numbers, what the others are compared with"
  elif cmp -s "$reference/bits" "$folder/bits"; then
    echo "$build: the same bits"
  else
    echo "$build: other bits than ${reference##*/}, the first:"
    diff "$reference/bits" "$folder/bits" | head -4
    exit 1
  fi
done
