#!/usr/bin/env bash
# Fails when clang-format would change a source file or clang-tidy finds something in one.
#   scripts/check_style.sh [all]     every file
#   scripts/check_style.sh code      clang-tidy for everything but the tests, which take most of the time
#   scripts/check_style.sh tests     clang-tidy for the tests alone
#   scripts/check_style.sh changed   the files that differ from those of the branch main, or are new
# Needs the release build folder, where the compile commands are.
set -euo pipefail
cd "$(dirname "$0")/.."

scope=${1:-all}
case $scope in
  all | code | tests) mapfile -t files < <(git ls-files '*.h' '*.c' '*.cpp') ;;
  changed)
    base=$(git merge-base HEAD origin/main 2>/dev/null || git merge-base HEAD main 2>/dev/null || echo HEAD)
    mapfile -t files < <({ git diff --name-only --diff-filter=d "$base" -- '*.h' '*.c' '*.cpp'
      git ls-files --others --exclude-standard -- '*.h' '*.c' '*.cpp'; } | sort -u)
    ;;
  *) echo "usage: scripts/check_style.sh [all | code | tests | changed]" >&2; exit 2 ;;
esac
if [ ${#files[@]} -eq 0 ]; then
  echo "no source file has changed"
  exit 0
fi
clang-format --dry-run --Werror "${files[@]}"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
python3 tools/tidy_commands.py "$scope" build/release/compile_commands.json "${files[@]}" \
  >"$work/compile_commands.json"
if ! run-clang-tidy -quiet -p "$work" -j "$(nproc)" >"$work/log" 2>&1; then
  grep -E 'warning:|error:' "$work/log" | sort -u >&2
  exit 1
fi
