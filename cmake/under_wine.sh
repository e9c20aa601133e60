#!/usr/bin/env bash
# Runs a Windows program under Wine, in a Wine prefix of this build's own.
#   under_wine.sh PREFIX PROGRAM [ARGUMENT...]
#   under_wine.sh PREFIX --start      makes the prefix and leaves its server running: programs start fast
#   under_wine.sh PREFIX --stop       ends that server
# Without Wine it says so and exits with 77, which the tests take for "skipped".
set -euo pipefail
prefix=$1
shift

if ! command -v wine >/dev/null || ! command -v wineserver >/dev/null; then
  echo "skipped: wine is not installed (Debian packages wine and wine64)"
  exit 77
fi

export WINEPREFIX=$prefix WINEDEBUG=-all
# Neither menu entries nor the downloads of Mono and Gecko.
export WINEDLLOVERRIDES="winemenubuilder.exe,mscoree,mshtml="
unset DISPLAY

case $1 in
  --start)
    mkdir -p "$prefix"
    # What stays running must not keep the caller's output open.
    wineserver --persistent >"$prefix/start.log" 2>&1
    wine wineboot --init >>"$prefix/start.log" 2>&1 || { cat "$prefix/start.log"; exit 1; }
    ;;
  --stop) wineserver --kill ;;
  *) exec wine "$@" ;;
esac
