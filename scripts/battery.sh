#!/usr/bin/env bash
# The battery of bits: builds the library and a host that asks all functions fixed requests, for many compilers
# and platforms, and fails when one of them answers with other bits than the first. A difference is printed with
# function, arguments and both values.
#   scripts/battery.sh [--every STEP] [BUILD...]   only every STEPth request, for the slow emulations; default: all
#     g++-O0 g++-O2 g++-O3-native clang++-O0 clang++-O2 clang++-O3-native
#     g++-baseline g++-avx2 g++-avx512     the instruction sets among which kernels are chosen, by emulated
#                                          processors that lack the later ones
#     i686 aarch64 riscv64 s390x           32-bit x86, 64-bit ARM, RISC-V, big-endian IBM Z; GCC, emulated
#     g++-plain                            kernels without the compiler's vector types
#     windows webassembly                  the DLL under Wine, the module under Node
#     build/release ...                    a folder, by a slash in its name: the host of a build of all, which is not
#                                          built again
# What stays: the builds in build/battery/BUILD, where `run` starts the host (tests/bits/battery_host.cpp tells
# its options). Installs the Debian packages that are missing (as root, or with sudo).
set -euo pipefail
cd "$(dirname "$0")/.."

all=({g++,clang++}-{O0,O2,O3-native} g++-{baseline,avx2,avx512,plain} i686 aarch64 riscv64 s390x windows webassembly)
every=1
if [ "${1-}" = --every ]; then
  every=$2
  shift 2
fi
[ $# -gt 0 ] || set -- "${all[@]}"
for name in "$@"; do
  case $name in
    */* | *-O[0-9]* | g++-plain | aarch64 | s390x | windows) ;; # what the tests need, too
    *)
      scripts/install_packages.sh battery
      break
      ;;
  esac
done

# Where the host of a build is.
folder_of() {
  case $1 in
    */*) echo "$1/tests/bits" ;;
    *) echo "build/battery/$1" ;;
  esac
}

# Sets options to what CMake is told for a build. Returns 1, with a message, where it can't run.
options_of() {
  [[ $1 != */* ]] || return 0
  options=(-DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O2)
  case $1 in
    *-O0) options+=(-DCMAKE_CXX_COMPILER="${1%-*}" -DCMAKE_CXX_FLAGS_RELEASE=-O0) ;;
    *-O2) options+=(-DCMAKE_CXX_COMPILER="${1%-*}") ;;
    *-O3-native) options+=(-DCMAKE_CXX_COMPILER="${1%%-*}" -DCMAKE_CXX_FLAGS_RELEASE="-O3 -march=native") ;;
    g++-baseline) options+=("-DCMAKE_CROSSCOMPILING_EMULATOR=qemu-x86_64-static;-cpu;Nehalem") ;;
    g++-avx2)
      # Without what the emulation warns that it lacks.
      options+=("-DCMAKE_CROSSCOMPILING_EMULATOR=qemu-x86_64-static;-cpu;Haswell,-pcid,-x2apic,-tsc-deadline,-hle,-invpcid,-rtm")
      ;;
    g++-plain) options+=(-DTRELVANIX_PLAIN_LANES=ON) ;;
    g++-avx512)
      if ! grep -qw avx512bw /proc/cpuinfo; then
        echo "$1: skipped, this processor lacks AVX-512"
        return 1
      fi
      ;;
    i686 | aarch64 | riscv64 | s390x | webassembly)
      options+=(-DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/toolchains/$1.cmake") ;;
    windows) options+=(-DCMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64-x86_64.cmake") ;;
    *) echo "battery.sh: unknown build '$1'; it is one of ${all[*]}" >&2; exit 2 ;;
  esac
  if command -v ccache >/dev/null; then
    options+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  fi
}

# build BUILD, quiet while all goes well
build() {
  [[ $1 != */* ]] || return 0
  local folder=build/battery/$1
  mkdir -p "$folder"
  if ! { cmake -S tests/bits -B "$folder" "${options[@]}" &&
         cmake --build "$folder" --parallel "$(nproc)" --target trelvanix_battery; } >"$folder/log" 2>&1; then
    cat "$folder/log" >&2
    exit 1
  fi
}

# run BUILD [ARGUMENT...], with the line ends of this system
run() {
  "$(folder_of "$1")/run" "${@:2}" | tr -d '\r'
}

# explain REFERENCE BUILD FUNCTION: how many answers differ; the first of them with its values
explain() {
  local work=build/battery/difference index
  mkdir -p "$work"
  run "$1" --list "$3" >"$work/list.1"
  run "$2" --list "$3" >"$work/list.2"
  paste -d '\n' "$work/list.1" "$work/list.2" |
    awk 'NR % 2 { line = $0; next } $0 != line { print $1 }' >"$work/indices"
  index=$(head -n 1 "$work/indices")
  printf '  %s: %d of %d answers differ, the first:\n' "$3" "$(wc -l <"$work/indices")" "$(wc -l <"$work/list.1")"
  run "$1" --values "$3" "$index" >"$work/values.1"
  run "$2" --values "$3" "$index" >"$work/values.2"
  sed -n "1s/^/    #$index /p" "$work/values.1"
  paste -d '\n' "$work/values.1" "$work/values.2" | awk -v first="$1" -v second="$2" '
    NR % 2 { line = $0; next }
    $0 != line && ++shown <= 4 { printf "    %-14s %s\n    %-14s %s\n", first, line, second, $0 }
    END { if (shown > 4) printf "    and %d more values\n", shown - 4 }'
}

reference='' compared=0 differing=()
for name in "$@"; do
  options_of "$name" || continue
  build "$name"
  start=$SECONDS digests=$(folder_of "$name")/digests
  run "$name" --every "$every" >"$digests" && status=0 || status=$?
  if [ "$status" -eq 77 ]; then
    echo "$name: $(cat "$digests")"
    continue
  elif [ "$status" -ne 0 ]; then
    echo "$name: the host ended with status $status" >&2
    exit 1
  fi
  if [ -z "$reference" ]; then
    reference=$name
    echo "$name: $(awk '{ calls += $2 } END { print NR " functions, " calls }' "$digests") calls," \
      "what the others are compared with"
    continue
  fi
  compared=$((compared + 1))
  if cmp -s "$(folder_of "$reference")/digests" "$digests"; then
    echo "$name: the same bits ($((SECONDS - start)) s)"
    continue
  fi
  differing+=("$name")
  echo "$name: other bits than $reference ($((SECONDS - start)) s)"
  while read -r function _; do
    explain "$reference" "$name" "$function" </dev/null
  done < <(diff "$(folder_of "$reference")/digests" "$digests" | sed -n 's/^> //p')
done

if [ ${#differing[@]} -gt 0 ]; then
  echo "${#differing[@]} of $compared builds answer with other bits than $reference: ${differing[*]}" >&2
  exit 1
fi
echo "$compared builds answer with the bits of $reference"
