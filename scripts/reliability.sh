#!/usr/bin/env bash
# Measures what docs/RELIABILITY.md reports.
#   scripts/reliability.sh SECONDS [STEP...]   STEP: fuzz, allocation, concurrency, sanitizers, valgrind,
#                                              coverage, builds, mutation; default: all, in this order
# SECONDS is the time that each of the six fuzz targets gets; the other steps take what they take, hours
# in all, of which mutation takes most. Installs the Debian packages that are missing (as root, or with
# sudo).
set -euo pipefail
cd "$(dirname "$0")/.."

usage="usage: scripts/reliability.sh SECONDS [STEP...]"
fuzz_seconds=${1:?$usage}
shift
[[ $fuzz_seconds =~ ^[0-9]+$ ]] || { echo "$usage" >&2; exit 2; }
[ $# -gt 0 ] || set -- fuzz allocation concurrency sanitizers valgrind coverage builds mutation

build() {
  local preset=$1
  shift
  cmake --preset "$preset" -DTRELVANIX_WARNINGS_AS_ERRORS=ON >/dev/null
  cmake --build --preset "$preset" --parallel "$(nproc)" "$@" >/dev/null
}

# Random inputs, mutated towards new code, against the invariants of tests/fuzz.
fuzz() {
  build fuzz
  ctest --preset fuzz --progress
  scripts/fuzz.sh "$fuzz_seconds"
  scripts/fuzz.sh --coverage
}

# Every allocation of every function fails once.
allocation() {
  build release
  ctest --preset release --tests-regex '^abi\.AllocationFailure' --no-tests=error
}

# Eight threads, all functions, the same inputs: 200 times 24 rounds.
concurrency() {
  build release
  ctest --preset release --tests-regex '^abi\.Concurrency' --no-tests=error --repeat until-fail:200
}

sanitizers() {
  build asan
  ctest --preset asan --parallel "$(nproc)" --progress
  build tsan
  ctest --preset tsan --parallel "$(nproc)" --progress
  build msan
  ctest --preset msan --parallel "$(nproc)" --progress
}

# Invalid reads and writes, leaks, decisions on values that were never written, in the ordinary build.
# Left out: the cases that run out of memory on purpose, for which Valgrind needs some itself, and the one
# about the x87 unit, which it doesn't imitate.
valgrind() {
  build release
  local check=(command valgrind --quiet --leak-check=full --errors-for-leak-kinds=definite,indirect
    --error-exitcode=1)
  local program
  for program in build/release/tests/{,*/}trelvanix_*tests build/release/tests/abi/*/trelvanix_abi_tests; do
    "${check[@]}" "$program" --gtest_brief=1 --gtest_filter='-*DeathTest.*:HostPrecision.*'
  done
  for program in build/release/tests/abi/*/trelvanix_memory_host; do
    "${check[@]}" "$program"
  done
}

# Lines and branches of src/ that the unit tests, the hosts and the Python oracles reach. Branches that
# only the compiler makes, for exceptions, are left out.
coverage() {
  build coverage
  find build/coverage -name '*.gcda' -delete
  ctest --preset coverage --parallel "$(nproc)" --progress
  local report=(gcovr --root . --filter src/ --exclude-throw-branches --exclude-unreachable-branches
    build/coverage)
  "${report[@]}" --print-summary
  "${report[@]}" --branches
}

# GCC and Clang, -O0 to -O3, every instruction set and platform: the same bits.
builds() {
  scripts/battery.sh
}

# The library broken in 300 places, one at a time.
mutation() {
  nice -n 19 /usr/bin/python3 tools/mutate.py --sample 300 --log build/mutants.log
}

scripts/install_packages.sh reliability
for step in "$@"; do
  case $step in
    fuzz | allocation | concurrency | sanitizers | valgrind | coverage | builds | mutation)
      printf '\n== %s\n' "$step"
      start=$SECONDS
      "$step"
      printf '%s: %d s\n' "$step" $((SECONDS - start))
      ;;
    *) echo "unknown step '$step'; $usage" >&2; exit 2 ;;
  esac
done
