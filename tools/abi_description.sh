#!/usr/bin/env bash
# The binary interface of a released library, as libabigail describes it, stands in
# tests/abi/PRODUCT/LIBRARY.MAJOR.abi.
#   abi_description.sh check LIBRARY PRODUCT HEADER   fails when the library's interface differs from the description
#   abi_description.sh renew LIBRARY PRODUCT HEADER   writes the description anew; refuses a change for which the
#                                                     version has not been raised: the minor number for added
#                                                     functions, the major number for anything else
# LIBRARY is the shared library, its exported functions compiled with -g; PRODUCT is its folder below src/, HEADER its
# public header, which states the version. Exits with 77, which the tests take for
# "skipped", without abidiff or on another processor than the description's.
set -euo pipefail
action=$1 library=$2 product=$3 header=$4
root=$(cd "$(dirname "$0")/.." && pwd)

version_number() { sed -nE "s/^#define [A-Z]+_VERSION_$1 //p" "$header"; }
version=$(version_number MAJOR).$(version_number MINOR)
description=$root/tests/abi/$product/$(basename "${library%.so*}").so.$(version_number MAJOR).abi

command -v abidiff >/dev/null || { echo "skipped: abidiff is not installed (Debian package abigail-tools)"; exit 77; }
[ "$(uname -m)" = x86_64 ] || { echo "skipped: the description is that of x86_64"; exit 77; }

# Succeeds when nothing differs, with the option --no-added-syms when nothing but added functions does.
compare() { abidiff --harmless --headers-dir2 "$root/include" "$@" "$description" "$library"; }

case $action in
  check)
    [ -e "$description" ] || { echo "there is no $description" >&2; exit 1; }
    compare || { echo "The binary interface has changed; CONTRIBUTING.md tells what to do." >&2; exit 1; }
    ;;
  renew)
    if [ -e "$description" ] && ! compare; then
      compare --no-added-syms >/dev/null ||
        { echo "refused: this change breaks hosts and needs another major version" >&2; exit 1; }
      if grep -q "^<!-- version $version -->" "$description"; then
        echo "refused: an added function needs another minor version than $version" >&2
        exit 1
      fi
    fi
    # Without the paths of this machine, with the version in the second line.
    abidw --headers-dir "$root/include" --exported-interfaces-only --no-show-locs --no-corpus-path \
      --no-comp-dir-path --no-elf-needed "$library" |
      sed -e "s,path='$root/,path='," -e "1a <!-- version $version -->" >"$description.new"
    mv "$description.new" "$description"
    ;;
  *) echo "abi_description.sh: unknown action '$action'" >&2; exit 2 ;;
esac
