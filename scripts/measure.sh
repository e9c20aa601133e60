#!/usr/bin/env bash
# Measures the library and writes docs/measured anew, each file with the command, the machine and the date above
# its tables.
#   scripts/measure.sh NAME...   NAME: elliptic_designs, growth, iir_accuracy, remez_convergence: a minute or two
#                                each; performance: scripts/bench.sh, some five minutes and best on a machine
#                                that does nothing else
# Installs the Debian packages that are missing (as root, or with sudo).
set -euo pipefail
cd "$(dirname "$0")/.."

usage="usage: scripts/measure.sh elliptic_designs|growth|iir_accuracy|performance|remez_convergence..."
[ $# -gt 0 ] || { echo "$usage" >&2; exit 2; }

measured=docs/measured
log=$(mktemp)
unfinished=$(mktemp)
trap 'rm -f "$log" "$unfinished"' EXIT

build() {
  if ! { cmake --preset release && cmake --build --preset release --parallel "$(nproc)" --target "$1"; } >"$log" 2>&1
  then
    cat "$log" >&2
    exit 1
  fi
}

# run_python SCRIPT: against the built library.
run_python() {
  build Trelvanix
  TRELVANIX_LIBRARY=$PWD/build/release/src/classic/libTrelvanix.so PYTHONDONTWRITEBYTECODE=1 /usr/bin/python3 "$1"
}

print_machine() {
  printf -- '- date: %s\n' "$(date --utc --iso-8601=seconds)"
  printf -- '- processor: %s, %s cores\n' "$(sed -n 's/^model name[[:blank:]]*: //p;T;q' /proc/cpuinfo)" "$(nproc)"
  printf -- '- system: %s, %s\n' "$(. /etc/os-release && echo "$PRETTY_NAME")" "$(getconf GNU_LIBC_VERSION)"
  printf -- '- compiler: %s\n\n' "$(c++ --version | head -n 1)"
}

# print_title NAME TITLE
print_title() {
  printf '# %s\n\n- command: `scripts/measure.sh %s`\n' "$2" "$1"
}

print_measured() {
  case $1 in
    elliptic_designs)
      print_title "$1" "Elliptic designs and minimum orders that keep their masks"
      print_machine
      run_python measure/accuracy/elliptic_accuracy.py
      ;;
    growth)
      print_title "$1" "How time and memory grow with the size of a request"
      print_machine
      run_python measure/growth.py
      ;;
    iir_accuracy)
      print_title "$1" "How far IIR designs are right"
      print_machine
      run_python measure/accuracy/iir_accuracy.py
      ;;
    remez_convergence)
      print_title "$1" "How equiripple designs converge"
      print_machine
      build remez_convergence
      build/release/measure/remez_convergence
      ;;
    performance) # the report states date and machine, and the versions of the peers
      print_title "$1" "Times beside other libraries"
      scripts/bench.sh
      ;;
    *) echo "unknown name '$1'; $usage" >&2; return 2 ;;
  esac
}

scripts/install_packages.sh test
mkdir -p "$measured"
for name in "$@"; do
  print_measured "$name" >"$unfinished" # only a complete run replaces the last one
  cp "$unfinished" "$measured/$name.md"
  [ "$name" != performance ] || cp build/release/measure/benchmarks/growth.png "$measured/performance_growth.png"
  echo "$measured/$name.md"
done
