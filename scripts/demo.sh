#!/usr/bin/env bash
# Builds the library and the example host, cleans a real electrocardiogram with it and draws the result.
#   scripts/demo.sh
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/demo
results=$build/ecg
picture=$results/ecg.png
log=$build/build.log

scripts/install_packages.sh demo

mkdir -p "$build"
if ! { cmake --preset release -B "$build" -DTRELVANIX_BUILD_TESTS=OFF -DTRELVANIX_BUILD_BENCHMARKS=OFF &&
  cmake --build "$build" --parallel "$(nproc)"; } >"$log" 2>&1; then
  cat "$log" >&2
  echo "demo.sh: the build failed; the log above is $log" >&2
  exit 1
fi

"$build/examples/ecg_cleanup" examples/data/mitdb_208_mlii_60s.csv "$results"

# Under its name only when complete.
unfinished=$(mktemp "$results/ecg.XXXXXX.part")
trap 'rm -f "$unfinished"' EXIT
gnuplot -c examples/ecg_cleanup/plot.gp "$results" "$unfinished"
chmod 644 "$unfinished"
mv "$unfinished" "$picture"

echo
echo "cleaned signal   $results/cleaned.csv"
echo "picture          $picture"
