#!/usr/bin/env bash
# Builds the library and the example hosts, cleans a real electrocardiogram with it, compares the families of
# filters on it and draws the results.
#   scripts/demo.sh
set -euo pipefail
cd "$(dirname "$0")/.."

build=build/demo
recording=examples/data/mitdb_208_mlii_60s.csv
log=$build/build.log

scripts/install_packages.sh demo

mkdir -p "$build"
if ! { cmake --preset release -B "$build" -DTRELVANIX_BUILD_TESTS=OFF -DTRELVANIX_BUILD_BENCHMARKS=OFF &&
  cmake --build "$build" --parallel "$(nproc)"; } >"$log" 2>&1; then
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
"$build/examples/ecg_cleanup" "$recording" "$build/ecg"
draw examples/ecg_cleanup/plot.gp "$build/ecg" "$build/ecg/ecg.png"
draw examples/ecg_cleanup/plot_excerpt.gp "$build/ecg" "$build/ecg/excerpt.png"

echo
echo "== filter_families: from requirements to a low-pass of each family"
"$build/examples/filter_families" "$recording" "$build/families"
draw examples/filter_families/plot_families.gp "$build/families" "$build/families/families.png"

echo
echo "cleaned signal   $build/ecg/cleaned.csv"
echo "pictures         $build/ecg/ecg.png"
echo "                 $build/families/families.png"
