#!/usr/bin/env bash
# Fails when a mathematics function of the C library is off by more than it may be.
#   check_math_functions.sh PYTHON COMMAND...      COMMAND runs math_functions, under Wine for instance
set -euo pipefail
python=$1
values=$(mktemp)
trap 'rm -f "$values"' EXIT
status=0
"${@:2}" >"$values" || status=$?
if ((status)); then
  cat "$values"
  exit $status
fi
"$python" "$(dirname "$0")/measure_math_functions.py" check "$values"
