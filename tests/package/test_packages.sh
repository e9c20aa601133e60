#!/usr/bin/env bash
# Builds the library alone, installs it, makes the archive and the Debian packages, and builds and runs hosts
# against each, after moving what was installed to another place.
#   test_packages.sh SOURCE WORK CC CXX VERSION
set -euo pipefail
source=$1 work=$2 cc=$3 cxx=$4 version=$5
rm -rf "$work"
mkdir -p "$work"
. "$source/tests/package/consumers.sh"

expect_files() { # FOLDER EXPECTED
  local found
  found=$(cd "$1" && find . ! -type d | sed 's,^\./,,' | grep -v '^share/doc/.*/docs/' | sort)
  [ "$found" = "$(sort <<<"$2")" ] || { diff <(sort <<<"$2") <(echo "$found") >&2; return 1; }
}

echo "== install"
cmake -S "$source" -B "$work/build" --preset package -DCMAKE_CXX_COMPILER="$cxx"
cmake --build "$work/build"
cmake --install "$work/build" --prefix "$work/installed"
expect_files "$work/installed" "include/trelvanix.h
lib/cmake/Trelvanix/TrelvanixConfig-release.cmake
lib/cmake/Trelvanix/TrelvanixConfig.cmake
lib/cmake/Trelvanix/TrelvanixConfigVersion.cmake
lib/libTrelvanix.so
lib/libTrelvanix.so.${version%%.*}
lib/libTrelvanix.so.$version
lib/pkgconfig/trelvanix.pc
share/doc/Trelvanix/CHANGELOG.md
share/doc/Trelvanix/LICENSE
share/doc/Trelvanix/README.md"
mkdir "$work/elsewhere"
mv "$work/installed" "$work/elsewhere/prefix"
check_cmake_consumer "$work/elsewhere/prefix" "$work/install-cmake"
check_pkg_config_consumer "$work/elsewhere/prefix/lib" "$work/install-pkg-config"

# The library asks for the C and C++ runtime and nothing else, and for the C++ runtime as a shared library:
# a second one inside it would not understand the exceptions of the host.
needed=$(objdump -p "$work/elsewhere/prefix/lib/libTrelvanix.so" | awk '$1 == "NEEDED" { print $2 }')
grep -q '^libstdc++\.so' <<<"$needed" || { echo "the C++ runtime is linked statically" >&2; exit 1; }
others=$(grep -vE '^(libstdc\+\+|libm|libc|libgcc_s|ld-linux.*)\.so' <<<"$needed" || true)
[ -z "$others" ] || { echo "depends on $others" >&2; exit 1; }

echo "== archive"
(cd "$work/build" && cpack)
mkdir "$work/unpacked"
tar -xzf "$work/build/packages/trelvanix-$version-linux-$(uname -m).tar.gz" -C "$work/unpacked"
prefix=$work/moved-archive
mv "$work/unpacked/trelvanix-$version-linux-$(uname -m)" "$prefix"
diff <(cd "$prefix" && find . | sort) <(cd "$work/elsewhere/prefix" && find . | sort)
check_cmake_consumer "$prefix" "$work/archive-cmake"
check_pkg_config_consumer "$prefix/lib" "$work/archive-pkg-config"

echo "== Debian packages"
# Where files go is no matter of compiling, so this takes the library that is there.
cmake -S "$source" -B "$work/build" -U CMAKE_INSTALL_LIBDIR -DCMAKE_INSTALL_PREFIX=/usr \
  -DTRELVANIX_DEBIAN_PACKAGES=ON
rm -rf "$work/build/packages"
(cd "$work/build" && cpack)
triplet=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
architecture=$(dpkg --print-architecture)
runtime=libtrelvanix${version%%.*}
for package in "$runtime" libtrelvanix-dev; do
  dpkg-deb -x "$work/build/packages/${package}_${version}_$architecture.deb" "$work/root"
done
expect_files "$work/root/usr" "include/trelvanix.h
lib/$triplet/cmake/Trelvanix/TrelvanixConfig-release.cmake
lib/$triplet/cmake/Trelvanix/TrelvanixConfig.cmake
lib/$triplet/cmake/Trelvanix/TrelvanixConfigVersion.cmake
lib/$triplet/libTrelvanix.so
lib/$triplet/libTrelvanix.so.${version%%.*}
lib/$triplet/libTrelvanix.so.$version
lib/$triplet/pkgconfig/trelvanix.pc
share/doc/libtrelvanix-dev/README.md
share/doc/libtrelvanix-dev/changelog.gz
share/doc/libtrelvanix-dev/copyright
share/doc/$runtime/changelog.gz
share/doc/$runtime/copyright"
depends=$(dpkg-deb -f "$work/build/packages/${runtime}_${version}_$architecture.deb" Depends)
[[ $depends == *libc6* && $depends == *libstdc++6* ]] || { echo "$runtime depends on: $depends" >&2; exit 1; }
depends=$(dpkg-deb -f "$work/build/packages/libtrelvanix-dev_${version}_$architecture.deb" Depends)
[ "$depends" = "$runtime (= $version)" ] || { echo "libtrelvanix-dev depends on: $depends" >&2; exit 1; }
mv "$work/root" "$work/moved-root"
check_cmake_consumer "$work/moved-root/usr" "$work/debian-cmake"
check_pkg_config_consumer "$work/moved-root/usr/lib/$triplet" "$work/debian-pkg-config"
lintian --allow-root --no-cfg --fail-on error "$work"/build/packages/*.deb
