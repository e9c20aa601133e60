#!/usr/bin/env bash
# Installs the Debian packages that the given jobs need and that are missing.
#   scripts/install_packages.sh JOB...     JOB: battery, bench, demo, test, reliability
# As root, or with sudo; does nothing, and takes no time, when everything is there.
set -euo pipefail

demo_packages=(cmake make g++ gnuplot-nox libcli11-dev)
bench_packages=(
  cmake make g++ pkg-config
  libbenchmark-dev                                 # measuring
  libfftw3-dev libgsl-dev libkissfft-dev libliquid-dev   # peers with a C or C++ interface
  python3 python3-numpy python3-scipy              # peers in Python,
  libopenblas0-serial                              # with the fast one of Debian's libraries below them
  python3-matplotlib                               # the figure
)
test_packages=(
  "${demo_packages[@]}"
  "${bench_packages[@]}"
  git                                              # the list of source files
  libgtest-dev                                     # unit tests
  libmpfr-dev python3-gmpy2                        # exact values of functions
  python3 python3-pytest python3-numpy python3-scipy python3-mpmath   # independent oracles
  clang libclang-rt-dev clang-format clang-tidy    # second compiler and its sanitizers, style
  g++-mingw-w64-x86-64-posix googletest            # Windows cross build and its tests
  g++-aarch64-linux-gnu g++-s390x-linux-gnu qemu-user-static   # the bits of other processors
  dpkg-dev file lintian pkg-config                 # Debian packages, hosts built by pkg-config
  abigail-tools                                    # description of the binary interface
  gfortran mono-mcs mono-runtime libjna-java       # example hosts in Fortran, C# and Java
)
reliability_packages=(
  gcovr llvm                                       # coverage by the tests, by fuzzing
  valgrind                                         # memory checker
  ninja-build                                      # the many builds of the mutation test
)
battery_packages=(
  cmake make g++ clang
  g++-i686-linux-gnu                               # other processors,
  g++-aarch64-linux-gnu g++-riscv64-linux-gnu g++-s390x-linux-gnu
  qemu-user-static                                 # emulated
  g++-mingw-w64-x86-64-posix                       # Windows
  emscripten                                       # WebAssembly
)
# Tools of the example hosts that a machine may well have from elsewhere.
for tool in javac:default-jdk-headless node:nodejs npm:npm rustc:rustc; do
  command -v "${tool%%:*}" >/dev/null || test_packages+=("${tool#*:}")
done

# Tests that need one of these are skipped where it can't be had.
optional_test_packages=(
  wine wine64                                      # runs the tests of the Windows DLL
)

packages=() optional_packages=()
for job in "$@"; do
  case $job in
    battery)
      packages+=("${battery_packages[@]}") optional_packages+=("${optional_test_packages[@]}")
      ;;
    bench) packages+=("${bench_packages[@]}") ;;
    demo) packages+=("${demo_packages[@]}") ;;
    test) packages+=("${test_packages[@]}") optional_packages+=("${optional_test_packages[@]}") ;;
    reliability)
      packages+=("${test_packages[@]}" "${reliability_packages[@]}")
      optional_packages+=("${optional_test_packages[@]}")
      ;;
    *) echo "install_packages.sh: unknown job '$job'; it is battery, bench, demo, test or reliability" >&2; exit 2 ;;
  esac
done

is_missing() {
  [ "$(dpkg-query --show --showformat='${db:Status-Status}' "$1" 2>/dev/null || true)" != installed ]
}

missing=() optional_missing=()
for package in "${packages[@]}"; do
  ! is_missing "$package" || missing+=("$package")
done
for package in "${optional_packages[@]}"; do
  ! is_missing "$package" || optional_missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || [ ${#optional_missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || {
    echo "These Debian packages are missing: ${missing[*]}" >&2
    echo "Run as root or install sudo, so that they can be installed." >&2
    exit 1
  }
  as_root=(sudo)
fi

install() {
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@"
}

echo "Installing Debian packages: ${missing[*]} ${optional_missing[*]}"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { "${as_root[@]}" apt-get update -qq && install "${missing[@]}"; } >"$log" 2>&1; then
  cat "$log" >&2
  exit 1
fi
if [ ${#optional_missing[@]} -gt 0 ] && ! install "${optional_missing[@]}" >"$log" 2>&1; then
  tail -n 3 "$log" >&2
  echo "Not installed: ${optional_missing[*]}; the tests that need them will be skipped." >&2
fi
