#!/usr/bin/env bash
# Installs a build, makes its archive and its Debian packages, and builds and runs hosts against each, after moving
# what was installed to another place.
#   test_packages.sh SOURCE BUILD WORK CC CXX VERSION LIBRARY...     LIBRARY: NAME:VERSION:HEADER[,HEADER...]
set -euo pipefail
source=$1 build=$2 work=$3 cc=$4 cxx=$5 version=$6
libraries=("${@:7}")
rm -rf "$work"
mkdir -p "$work"
. "$source/tests/package/consumers.sh"

print_library_files() { # FOLDER NAME VERSION HEADER...
  printf 'include/%s\n' "${@:4}"
  printf "$1/%s\n" "lib$2.so" "lib$2.so.${3%%.*}" "lib$2.so.$3" "pkgconfig/${2,,}.pc"
}

# Headers, libraries and what finds them; FOLDER is that of the libraries.
print_files() { # FOLDER
  for_each_library print_library_files "$1"
  printf "$1/cmake/Trelvanix/%s\n" \
    "TrelvanixConfig-release.cmake" "TrelvanixConfig.cmake" "TrelvanixConfigVersion.cmake"
}

# A library asks for the C and C++ runtime and nothing else, and for the C++ runtime as a shared library: a second
# one inside it would not understand the exceptions of the host.
check_needed() { # FOLDER NAME VERSION HEADER...
  local needed others
  needed=$(objdump -p "$1/lib$2.so" | awk '$1 == "NEEDED" { print $2 }')
  grep -q '^libstdc++\.so' <<<"$needed" || { echo "$2: the C++ runtime is linked statically" >&2; return 1; }
  others=$(grep -vE '^(libstdc\+\+|libm|libc|libgcc_s|ld-linux.*)\.so' <<<"$needed" || true)
  [ -z "$others" ] || { echo "$2 depends on $others" >&2; return 1; }
}

echo "== install"
cmake --install "$build" --prefix "$work/installed"
expect_files "$work/installed" "$(print_files lib)
share/doc/Trelvanix/CHANGELOG.md
share/doc/Trelvanix/LICENSE
share/doc/Trelvanix/README.md"
mkdir "$work/elsewhere"
mv "$work/installed" "$work/elsewhere/prefix"
check_cmake_consumer "$work/elsewhere/prefix" "$work/install-cmake"
check_pkg_config_consumer "$work/elsewhere/prefix/lib" "$work/install-pkg-config"
for_each_library check_needed "$work/elsewhere/prefix/lib"

echo "== archive"
(cd "$build" && cpack -B "$work/packages")
mkdir "$work/unpacked"
tar -xzf "$work/packages/trelvanix-$version-linux-$(uname -m).tar.gz" -C "$work/unpacked"
prefix=$work/moved-archive
mv "$work/unpacked/trelvanix-$version-linux-$(uname -m)" "$prefix"
diff <(cd "$prefix" && find . | sort) <(cd "$work/elsewhere/prefix" && find . | sort)
check_cmake_consumer "$prefix" "$work/archive-cmake"
check_pkg_config_consumer "$prefix/lib" "$work/archive-pkg-config"

echo "== Debian packages"
(cd "$build" && cpack -G DEB -B "$work/packages")
triplet=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
architecture=$(dpkg --print-architecture)
print_package_name() { # NAME VERSION HEADER...
  echo "lib${1,,}${2%%.*}"
}
mapfile -t runtimes < <(for_each_library print_package_name)
for package in "${runtimes[@]}" libtrelvanix-dev; do
  dpkg-deb -x "$work/packages/${package}_${version}_$architecture.deb" "$work/root"
done
expect_files "$work/root/usr" "$(print_files "lib/$triplet")
share/doc/libtrelvanix-dev/README.md
$(for package in "${runtimes[@]}" libtrelvanix-dev; do
  printf "share/doc/$package/%s\n" changelog.gz copyright
done)"
wanted=
for package in "${runtimes[@]}"; do
  depends=$(dpkg-deb -f "$work/packages/${package}_${version}_$architecture.deb" Depends)
  [[ $depends == *libc6* && $depends == *libstdc++6* ]] || { echo "$package depends on: $depends" >&2; exit 1; }
  wanted+="${wanted:+, }$package (= $version)"
done
depends=$(dpkg-deb -f "$work/packages/libtrelvanix-dev_${version}_$architecture.deb" Depends)
[ "$depends" = "$wanted" ] || { echo "libtrelvanix-dev depends on: $depends" >&2; exit 1; }
mv "$work/root" "$work/moved-root"
check_cmake_consumer "$work/moved-root/usr" "$work/debian-cmake"
check_pkg_config_consumer "$work/moved-root/usr/lib/$triplet" "$work/debian-pkg-config"
lintian --allow-root --no-cfg --fail-on error "$work"/packages/*.deb
