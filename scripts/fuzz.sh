#!/usr/bin/env bash
# Looks for inputs that break the library.
#   scripts/fuzz.sh SECONDS [TARGET...]   each target (default: all) for that long, one process a core
#   scripts/fuzz.sh --merge               adds what was found to tests/fuzz/corpus, the smallest set of
#                                         inputs that reaches the same code
#   scripts/fuzz.sh --coverage            how much of src/ the inputs found so far reach (llvm-cov)
# Inputs that reach new code are kept in build/fuzz/corpus, inputs that break an invariant in
# build/fuzz/findings; a second run goes on where the first ended.
set -euo pipefail
cd "$(dirname "$0")/.."

targets=(fuzz_filters fuzz_fir fuzz_iir fuzz_order fuzz_roots fuzz_transforms)
programs=build/fuzz/tests/fuzz
found=$PWD/build/fuzz/corpus
findings=$PWD/build/fuzz/findings

if [ "${1:-}" = --merge ]; then
  for target in "${targets[@]}"; do
    mkdir -p "$found/$target"
    "$programs/$target" -merge=1 "tests/fuzz/corpus/$target" "$found/$target" 2>/dev/null
  done
  exit 0
fi

if [ "${1:-}" = --coverage ]; then
  counted=build/fuzz-coverage
  cmake --preset fuzz -B "$counted" -DCMAKE_CXX_FLAGS='-fprofile-instr-generate -fcoverage-mapping' >/dev/null
  cmake --build "$counted" --parallel "$(nproc)" >/dev/null
  for target in "${targets[@]}"; do
    mkdir -p "$found/$target"
    LLVM_PROFILE_FILE=$counted/$target.profraw "$counted/tests/fuzz/$target" -runs=0 -timeout=10 \
      "tests/fuzz/corpus/$target" "$found/$target" 2>/dev/null
  done
  llvm-profdata merge -o "$counted/all.profdata" "$counted"/*.profraw
  llvm-cov report "$counted/src/classic/libTrelvanix.so" -instr-profile="$counted/all.profdata" "$PWD/src"
  exit 0
fi

seconds=${1:?usage: scripts/fuzz.sh SECONDS [TARGET...], or scripts/fuzz.sh --merge}
shift
[ $# -eq 0 ] || targets=("$@")
cmake --preset fuzz -DTRELVANIX_WARNINGS_AS_ERRORS=ON >/dev/null
cmake --build --preset fuzz --parallel "$(nproc)" >/dev/null
mkdir -p "$findings"

status=0
for target in "${targets[@]}"; do
  mkdir -p "$found/$target"
  log=$findings/$target.log
  if "$programs/$target" -max_total_time="$seconds" -timeout=30 -max_len=4096 -print_final_stats=1 \
    -fork="$(nproc)" -ignore_timeouts=0 -ignore_ooms=0 -artifact_prefix="$findings/$target-" \
    "$found/$target" "tests/fuzz/corpus/$target" >"$log" 2>&1; then
    printf '%-16s nothing found (executions, covered edges: %s)\n' "$target" \
      "$(sed -nE 's/^#([0-9]+): cov: ([0-9]+).*/\1, \2/p' "$log" | tail -1)"
  else
    printf '%-16s found something, see %s\n' "$target" "$log"
    status=1
  fi
done
exit $status
