#!/usr/bin/env bash
# Builds and tests, in three tiers. Installs the Debian packages that are missing (as root, or with sudo), and prints
# what every step took.
#   scripts/test.sh quick   the release build, unit tests, binary interface, layers, style of the files that changed
#   scripts/test.sh         the gate: GCC, Clang, packages, the bits of both, sanitizers, a little fuzzing, the Windows
#                           DLL under Wine, style and the demonstration
#   scripts/test.sh all     the gate, then the style of the tests, long fuzzing, the battery of bits on every
#                           platform, Valgrind, coverage and all tests under all sanitizers: hours
set -euo pipefail
cd "$(dirname "$0")/.."

tier=${1:-gate}
if [ $# -gt 1 ] || [[ ! $tier =~ ^(quick|gate|all)$ ]]; then
  echo "usage: scripts/test.sh [quick | all]" >&2
  exit 2
fi

# Processor time of all programs that have ended, in seconds.
processor_time() {
  awk '{ print int(($16 + $17) / ticks) }' ticks="$(getconf CLK_TCK)" "/proc/$$/stat"
}

# Starts a step; the end of the run tells what each of them took.
steps=() starts=() processor_starts=()
step() {
  printf '\n== %s\n' "$*"
  steps+=("$*") starts+=("$SECONDS") processor_starts+=("$(processor_time)")
}

print_step_times() {
  local i
  starts+=("$SECONDS") processor_starts+=("$(processor_time)")
  printf '\n   time  processor\n'
  for i in "${!steps[@]}"; do
    printf '%5d s %8d s  %s\n' $((starts[i + 1] - starts[i])) \
      $((processor_starts[i + 1] - processor_starts[i])) "${steps[i]}"
  done
  printf '%5d s %8d s  all together\n' "$SECONDS" "$(processor_time)"
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

# run_tests PRESET [OPTION...]
run_tests() {
  ctest --preset "$1" --parallel "$(nproc)" --progress "${@:2}"
}

run_quick() {
  step "GCC: build with warnings as errors, unit tests, binary interface, layers"
  build release
  run_tests release --exclude-regex '^(bench|examples|hosts|package|peer|tables)\.|^correct_rounding$'

  step "Style of the files that changed"
  scripts/check_style.sh changed
}

run_gate() {
  step "GCC: build with warnings as errors, all tests, packages"
  build release
  run_tests release

  step "Clang: build with warnings as errors, all tests"
  build clang
  run_tests clang

  step "Kernels without vector types"
  build plain --target trelvanix_kernel_tests trelvanix_battery
  build/plain/tests/trelvanix_kernel_tests --gtest_brief=1

  step "Determinism: the same bits from both, of plain kernels, without optimisation and with all instructions"
  scripts/battery.sh build/release build/clang build/plain g++-O0 clang++-O3-native

  step "Address and undefined-behaviour sanitizers: all tests"
  build asan
  run_tests asan

  step "Thread sanitizer: all functions from eight threads"
  build tsan --target trelvanix_abi_tests
  build/tsan/tests/abi/classic/trelvanix_abi_tests --gtest_brief=1

  step "Memory sanitizer: every result was computed"
  build msan --target trelvanix_memory_host
  build/msan/tests/abi/classic/trelvanix_memory_host

  step "Fuzzing: the inputs found so far, then three seconds for each target"
  build fuzz
  run_tests fuzz
  scripts/fuzz.sh 3

  step "Windows DLL: cross build with warnings as errors, all tests under Wine"
  build mingw
  run_tests mingw

  step "Other platforms: the same bits on Windows, on ARM and on a big-endian processor"
  scripts/battery.sh --every 7 build/release build/mingw aarch64 s390x

  step "Style: clang-format, clang-tidy but for the tests"
  scripts/check_style.sh code

  step "Demonstration"
  scripts/demo.sh
}

run_nightly() {
  step "Style: clang-tidy of the tests"
  scripts/check_style.sh tests

  step "The battery of bits: every compiler, instruction set and platform"
  scripts/battery.sh

  step "Reliability: fuzzing, allocation, threads, sanitizers, Valgrind, coverage"
  scripts/reliability.sh 300 fuzz allocation concurrency sanitizers valgrind coverage
}

step "Debian packages that are missing"
scripts/install_packages.sh test
case $tier in
  quick) run_quick ;;
  gate) run_gate ;;
  all)
    run_gate
    run_nightly
    ;;
esac

print_step_times
printf '\n== All tests passed\n'
