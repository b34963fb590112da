#!/usr/bin/env bash
# Makes the packages to give away, and tries each: for Qt 5 and for Qt 6, a zip for Windows and a tar for Linux.
#   package.sh [--linux | --windows] [--qt5 | --qt6]    some of them instead of all four
# Each holds the library (on Windows with its import library), headers, package config, res/ and the documentation, lies
# in build/packages, and is unpacked into an empty folder in which examples/minimal is built and run against it.
# Installs what is missing with apt; builds Qt for Windows the first time.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."

platforms=(linux windows) qts=(5 6)
while [ $# -gt 0 ]; do
  case $1 in
    --linux) platforms=(linux) ;;
    --windows) platforms=(windows) ;;
    --qt5) qts=(5) ;;
    --qt6) qts=(6) ;;
    *) fail "usage: package.sh [--linux | --windows] [--qt5 | --qt6]" ;;
  esac
  shift
done

version=$(sed -n 's/^project(LumQtLib VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
packages=$PWD/build/packages
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

documentation=()
[ "${qts[*]}" != 6 ] || documentation=(--qt6) # whoever packs for one Qt needs no other
"$here/build-docs.sh" "${documentation[@]}"

make_package() {
  local preset=$1-release
  say "Building: $preset"
  cmake --preset "$preset" -Wno-dev >/dev/null
  cmake --build --preset "$preset"
  say "Packing: $name"
  cmake --install "build/$preset" --strip --prefix "$scratch/$name" >/dev/null
  mkdir -p "$scratch/$name/share/doc/$package" "$packages"
  cp -r build/docs/html README.md "$scratch/$name/share/doc/$package/"
  if [ "$platform" = windows ]; then
    archive=$packages/$name.zip
    (cd "$scratch" && cmake -E tar cf "$archive" --format=zip "$name")
  else
    archive=$packages/$name.tar.gz
    (cd "$scratch" && cmake -E tar czf "$archive" "$name")
  fi
}

# In a folder that has nothing but the package and the example.
try_package() {
  local place=$scratch/try-$name
  say "Trying: ${archive##*/}"
  mkdir -p "$place"
  (cd "$place" && cmake -E tar xf "$archive")
  try_prefix "$place/$name" "$place"
}

# With what is installed for both Qts in one prefix.
try_together() {
  local place=$scratch/together-$platform
  say "Trying both packages for $platform in one prefix"
  for package in LumQtLib LumQtLibQt6; do
    mkdir -p "$place/prefix"
    cp -r "$scratch/$package-$version-$platform/." "$place/prefix/"
  done
  for qt in 5 6; do
    package=LumQtLib
    [ "$qt" -eq 5 ] || package=LumQtLibQt6
    [ "$platform" = linux ] || ensure_windows_qt "$qt"
    try_prefix "$place/prefix" "$place/$package" -DOTHER=ON
  done
}

# Builds and runs the example in a folder, with what is installed in a prefix.
try_prefix() {
  local settings place=$2
  mkdir -p "$place/work"
  cp -r examples/minimal "$place/minimal"
  settings=(-DPREFIX="$1" -DPACKAGE="$package"
    -DSOURCE="$place/minimal" -DWORK="$place/work" "${@:3}" -DGENERATOR=Ninja -DCONFIG=Release)
  if [ "$platform" = windows ]; then
    settings+=(-DCXX=x86_64-w64-mingw32-g++-posix -DTOOLCHAIN="$PWD/cmake/toolchain-mingw64.cmake"
      -DQT="$LUMQT_QT_WINDOWS" -DRUN="$here/wine-run.sh")
  else
    settings+=(-DCXX=g++)
  fi
  "$here/with-display.sh" cmake "${settings[@]}" -P tests/package/try_package.cmake
}

for qt in "${qts[@]}"; do
  package=LumQtLib suffix=''
  [ "$qt" -eq 5 ] || package=LumQtLibQt6 suffix=-qt6
  ensure_native_packages "$qt"
  for platform in "${platforms[@]}"; do
    name=$package-$version-$platform
    [ "$platform" = linux ] || ensure_windows_qt "$qt"
    make_package "$platform$suffix"
    try_package
  done
done
for platform in "${platforms[@]}"; do
  [ "${#qts[@]}" -lt 2 ] || try_together
done
say "The packages:"
ls -l "$packages"
