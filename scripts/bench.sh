#!/usr/bin/env bash
# Measures the library beside its peers and prints Markdown tables of times and ratios.
#   scripts/bench.sh [FILTER]     FILTER: regular expression of the rows wanted, as '^FIR/16 taps';
#                                 everything without it, which takes some five minutes
# Installs the Debian packages that are missing. The tables, the figures they are made from and a picture
# of how time and memory grow stay in build/release/measure/benchmarks. Fails when an answer does not agree.
set -euo pipefail
cd "$(dirname "$0")/.."

filter=${1:-.}
results=build/release/measure/benchmarks
log=$results/build.log

scripts/install_packages.sh bench

mkdir -p "$results"
if ! { cmake --preset release -DTRELVANIX_BUILD_BENCHMARKS=ON &&
  cmake --build --preset release --parallel "$(nproc)" --target trelvanix_bench; } >"$log" 2>&1; then
  cat "$log" >&2
  echo "bench.sh: the build failed; the log above is $log" >&2
  exit 1
fi

# Rows take turns, in random order, so that a slow moment does not meet all repetitions of one.
"$results/trelvanix_bench" --benchmark_filter="$filter" --benchmark_repetitions=9 --benchmark_min_time=0.02 \
  --benchmark_enable_random_interleaving=true --benchmark_out_format=json \
  --benchmark_out="$results/library.json" >/dev/null 2>"$results/library.log" ||
  { cat "$results/library.log" >&2; exit 1; }
TRELVANIX_LIBRARY=build/release/src/classic/libTrelvanix.so PYTHONDONTWRITEBYTECODE=1 \
  /usr/bin/python3 measure/benchmarks/python_peers.py "$results/python.json" "$filter"
/usr/bin/python3 measure/benchmarks/report.py --figure "$results/growth.png" \
  "$results/library.json" "$results/python.json" | tee "$results/performance.md"
