#!/usr/bin/env bash
# Fails when clang-format would change a source file or clang-tidy finds something in one. Needs the
# release build folder, where the compile commands are.
set -euo pipefail
cd "$(dirname "$0")/.."

git ls-files '*.h' '*.c' '*.cpp' | xargs clang-format --dry-run --Werror
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! run-clang-tidy -quiet -p build/release -j "$(nproc)" "/(src|tests|examples|bench)/" >"$log" 2>&1; then
  grep -E 'warning:|error:' "$log" | sort -u >&2
  exit 1
fi
