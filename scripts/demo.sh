#!/usr/bin/env bash
# Builds the library and the example hosts, cleans a real electrocardiogram with it, compares the families of
# filters on it and draws the results.
#   scripts/demo.sh
set -euo pipefail
cd "$(dirname "$0")/.."

results=build/demo
recording=examples/data/mitdb_208_mlii_60s.csv
log=$results/build.log

scripts/install_packages.sh demo

# The release build, where the tests have made one; else one of the examples alone.
mkdir -p "$results"
if grep -qs '^TRELVANIX_BUILD_EXAMPLES:[A-Z]*=ON' build/release/CMakeCache.txt; then
  build=build/release
  configure=(true)
else
  build=build/demo
  configure=(cmake --preset release -B "$build" -DTRELVANIX_BUILD_TESTS=OFF -DTRELVANIX_BUILD_BENCHMARKS=OFF)
fi
if ! { "${configure[@]}" &&
  cmake --build "$build" --parallel "$(nproc)" --target ecg_cleanup filter_families; } >"$log" 2>&1; then
  cat "$log" >&2
  echo "demo.sh: the build failed; the log above is $log" >&2
  exit 1
fi

unfinished=
trap 'rm -f "$unfinished"' EXIT

# draw SCRIPT FOLDER PICTURE: the picture gets its name only when complete.
draw() {
  unfinished=$(mktemp "$2/picture.XXXXXX.part")
  gnuplot -c "$1" "$2" "$unfinished"
  chmod 644 "$unfinished"
  mv "$unfinished" "$3"
}

echo "== ecg_cleanup: baseline, mains and muscle noise taken off"
"$build/examples/ecg_cleanup" "$recording" "$results/ecg"
draw examples/ecg_cleanup/plot.gp "$results/ecg" "$results/ecg/ecg.png"
draw examples/ecg_cleanup/plot_excerpt.gp "$results/ecg" "$results/ecg/excerpt.png"

echo
echo "== filter_families: from requirements to a low-pass of each family"
"$build/examples/filter_families" "$recording" "$results/families"
draw examples/filter_families/plot_families.gp "$results/families" "$results/families/families.png"

echo
echo "cleaned signal   $results/ecg/cleaned.csv"
echo "pictures         $results/ecg/ecg.png"
echo "                 $results/families/families.png"
