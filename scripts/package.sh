#!/usr/bin/env bash
# Makes the packages to give away, and tries each: a zip for Windows, a tar for Linux.
#   package.sh [--linux | --windows]    one of them instead of both
# Each holds the library (on Windows with its import library), headers, package config, res/ and the documentation, lies
# in build/packages, and is unpacked into an empty folder in which examples/minimal is built and run against it.
# Installs what is missing with apt; builds Qt for Windows the first time.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."

platforms=(linux windows)
case ${1:-} in
  "") ;;
  --linux) platforms=(linux) ;;
  --windows) platforms=(windows) ;;
  *) fail "usage: package.sh [--linux | --windows]" ;;
esac

version=$(sed -n 's/^project(LumQtLib VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
packages=$PWD/build/packages
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

ensure_packages cmake ninja-build ccache g++ qtbase5-dev qtbase5-private-dev libqt5svg5-dev qttools5-dev-tools \
  xvfb openbox x11-utils fonts-open-sans fonts-noto-core
if [[ " ${platforms[*]} " == *" windows "* ]]; then
  ensure_packages g++-mingw-w64-x86-64-posix wine wine64
  LUMQT_QT_WINDOWS=$("$here/build-qt-windows.sh")
  export LUMQT_QT_WINDOWS
fi
"$here/build-docs.sh"

make_package() {
  local platform=$1 preset=$1-release name=LumQtLib-$version-$1
  say "Building: $preset"
  cmake --preset "$preset" -Wno-dev >/dev/null
  cmake --build --preset "$preset"
  say "Packing: $name"
  cmake --install "build/$preset" --strip --prefix "$scratch/$name" >/dev/null
  mkdir -p "$scratch/$name/share/doc/LumQtLib" "$packages"
  cp -r build/docs/html README.md "$scratch/$name/share/doc/LumQtLib/"
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
  local platform=$1 name=LumQtLib-$version-$1 settings=()
  local place=$scratch/try-$platform
  say "Trying: ${archive##*/}"
  mkdir -p "$place/work"
  (cd "$place" && cmake -E tar xf "$archive")
  cp -r examples/minimal "$place/minimal"
  settings=(-DPREFIX="$place/$name" -DSOURCE="$place/minimal" -DWORK="$place/work" -DGENERATOR=Ninja -DCONFIG=Release)
  if [ "$platform" = windows ]; then
    settings+=(-DCXX=x86_64-w64-mingw32-g++-posix -DTOOLCHAIN="$PWD/cmake/toolchain-mingw64.cmake"
      -DQT="$LUMQT_QT_WINDOWS" -DRUN="$here/wine-run.sh")
  else
    settings+=(-DCXX=g++)
  fi
  "$here/with-display.sh" cmake "${settings[@]}" -P tests/package/try_package.cmake
}

for platform in "${platforms[@]}"; do
  make_package "$platform"
  try_package "$platform"
done
say "The packages:"
ls -l "$packages"
