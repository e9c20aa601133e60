#!/usr/bin/env bash
# Fails when clang-format would change a source file or clang-tidy finds something in one.
#   scripts/check_style.sh [FOLDER...]   the folders for clang-tidy; default: src tests examples measure, of
#                                        which tests take most of the time
# Needs the release build folder, where the compile commands are.
set -euo pipefail
cd "$(dirname "$0")/.."

[ $# -gt 0 ] || set -- src tests examples measure
git ls-files '*.h' '*.c' '*.cpp' | xargs clang-format --dry-run --Werror
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! run-clang-tidy -quiet -p build/release -j "$(nproc)" "/($(IFS="|"; echo "$*"))/" >"$log" 2>&1; then
  grep -E 'warning:|error:' "$log" | sort -u >&2
  exit 1
fi
