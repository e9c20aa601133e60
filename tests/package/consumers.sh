# Shell functions that build and run hosts of an installed Trelvanix. Expects the variables source, version and
# libraries (NAME:VERSION:HEADER[,HEADER...], an array), and cc and cxx, or for a cross build toolchain (a file) and
# emulator (a command).

# Calls a command for every library: COMMAND NAME VERSION HEADER...
for_each_library() {
  local library name libraryVersion headers
  for library in "${libraries[@]}"; do
    IFS=: read -r name libraryVersion headers <<<"$library"
    "$@" "$name" "$libraryVersion" ${headers//,/ }
  done
}

# Fails with the difference when a folder holds other files than expected, the chapters of the documentation aside.
expect_files() { # FOLDER EXPECTED
  local found
  found=$(cd "$1" && find . ! -type d | sed 's,^\./,,' | grep -v '^share/doc/.*/docs/' | sort)
  [ "$found" = "$(sort <<<"$2")" ] || { diff <(sort <<<"$2") <(echo "$found") >&2; return 1; }
}

# Runs a program and compares what it prints with what every first filter prints.
expect_first_filter() {
  local printed
  printed=$("$@" | tr -d '\r')
  [ "$printed" = "$(cat "$source/examples/hosts/first_filter_expected.txt")" ] ||
    { printf '%s printed:\n%s\n' "$*" "$printed" >&2; return 1; }
}

configure_consumer() { # PREFIX FOLDER VERSION
  local compilers
  if [ -n "${toolchain:-}" ]; then
    # Cross builds look for packages among those of the target system alone.
    compilers=(-DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_FIND_ROOT_PATH_MODE_PACKAGE=BOTH)
  else
    compilers=(-DCMAKE_C_COMPILER="$cc" -DCMAKE_CXX_COMPILER="$cxx")
  fi
  cmake -S "$source/tests/package/consumer" -B "$2" "${compilers[@]}" -DEXAMPLES="$source/examples/hosts" \
    -DVERSION="$3" -DCMAKE_PREFIX_PATH="$1" -DLIBRARIES="${libraries[*]}"
}

# By find_package, with its version check: PREFIX is where Trelvanix is installed.
check_cmake_consumer() { # PREFIX FOLDER
  configure_consumer "$1" "$2" "$version"
  grep -q "^Trelvanix_DIR:PATH=$1/" "$2/CMakeCache.txt" ||
    { echo "found another Trelvanix than that of $1" >&2; return 1; }
  cmake --build "$2"
  local program
  for program in "$2"/first_filter_c "$2"/first_filter_cpp; do
    if [ -n "${toolchain:-}" ]; then
      cp "$1"/bin/*.dll "$2"
      expect_first_filter $emulator "$program.exe"
    else
      expect_first_filter "$program"
    fi
  done
  local other=$((${version%%.*} + 1)).0
  if configure_consumer "$1" "$2-other-major" "$other" >"$2-other-major.log" 2>&1; then
    echo "find_package accepted $version where $other was wanted" >&2
    return 1
  fi
  grep -q "version: $version" "$2-other-major.log" ||
    { echo "not refused for its version:" >&2; cat "$2-other-major.log" >&2; return 1; }
}

check_pkg_config_file() { # LIBRARIES NAME VERSION HEADER...
  local file=${2,,}
  [ "$(pkg-config --modversion "$file")" = "$3" ] || { echo "$file.pc states another version" >&2; return 1; }
  [ "$(realpath "$(pkg-config --variable=libdir "$file")")" = "$(realpath "$1")" ] ||
    { echo "$file.pc points to $(pkg-config --variable=libdir "$file"), not $1" >&2; return 1; }
  [[ " $(pkg-config --libs "$file") " == *" -l$2 "* ]] || { echo "$file.pc links another library" >&2; return 1; }
}

# By pkg-config: LIBRARIES is the folder of the libraries.
check_pkg_config_consumer() { # LIBRARIES FOLDER
  local flags
  mkdir -p "$2"
  export PKG_CONFIG_PATH=$1/pkgconfig
  for_each_library check_pkg_config_file "$1"
  read -ra flags <<<"$(pkg-config --cflags --libs trelvanix)"
  "$cc" -std=c11 -o "$2/first_filter_c" "$source/examples/hosts/first_filter.c" "${flags[@]}"
  "$cxx" -std=c++20 -o "$2/first_filter_cpp" "$source/examples/hosts/first_filter.cpp" "${flags[@]}"
  expect_first_filter env LD_LIBRARY_PATH="$1" "$2/first_filter_c"
  expect_first_filter env LD_LIBRARY_PATH="$1" "$2/first_filter_cpp"
}
