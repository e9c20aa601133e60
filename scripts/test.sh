#!/usr/bin/env bash
# Builds everything and runs every test: GCC, Clang, packages, the bits of both, sanitizers, a little fuzzing, the
# Windows DLL under Wine, style and the demonstration. Installs the Debian packages that are missing (as root, or
# with sudo).
set -euo pipefail
cd "$(dirname "$0")/.."

# Starts a step; the end of the run tells what each of them took.
steps=() starts=()
step() {
  printf '\n== %s\n' "$*"
  steps+=("$*") starts+=("$SECONDS")
}

print_step_times() {
  local i
  starts+=("$SECONDS")
  printf '\n'
  for i in "${!steps[@]}"; do
    printf '%5d s  %s\n' $((starts[i + 1] - starts[i])) "${steps[i]}"
  done
  printf '%5d s  all together\n' "$SECONDS"
}

# Quiet while all goes well.
quietly() {
  local log
  log=$(mktemp)
  if ! "$@" >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    return 1
  fi
  rm -f "$log"
}

# build PRESET [OPTION...]
build() {
  quietly cmake --preset "$1" -DTRELVANIX_WARNINGS_AS_ERRORS=ON
  quietly cmake --build --preset "$1" --parallel "$(nproc)" "${@:2}"
}

run_tests() {
  ctest --preset "$1" --parallel "$(nproc)" --progress
}

step "Debian packages that are missing"
scripts/install_packages.sh test

step "GCC: build with warnings as errors, all tests, packages"
build release
run_tests release

step "Clang: build with warnings as errors, all tests"
build clang
run_tests clang

step "Determinism: the same bits without optimisation and with all instructions"
scripts/compare_builds.sh g++-O0 clang++-O3-avx512

step "Address and undefined-behaviour sanitizers: all tests"
build asan
run_tests asan

step "Thread sanitizer: all functions from eight threads"
build tsan --target trelvanix_abi_tests
build/tsan/tests/abi/trelvanix_abi_tests --gtest_brief=1

step "Memory sanitizer: every result was computed"
build msan --target trelvanix_memory_host
build/msan/tests/abi/trelvanix_memory_host

step "Fuzzing: the inputs found so far, then three seconds for each target"
build fuzz
run_tests fuzz
scripts/fuzz.sh 3

step "Windows DLL: cross build with warnings as errors, all tests under Wine"
build mingw
run_tests mingw

step "Style: clang-format, clang-tidy but for the tests"
scripts/check_style.sh src examples measure

step "Demonstration"
scripts/demo.sh

print_step_times
printf '\n== All tests passed\n'
