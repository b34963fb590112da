#!/usr/bin/env bash
# Builds the gallery and shows it, or writes pictures of it.
#   run-gallery.sh                                      shows it; without a display, writes screenshots
#   run-gallery.sh --screenshots DIR [--scale 1..4]     one PNG per page, without a display
#   run-gallery.sh --class-pictures DIR                 one PNG per class, and the themes' colours, for the documentation
#   run-gallery.sh --theme NAME ...                     the same in another theme: dark, contrast, or a theme file
#   run-gallery.sh --windows ...                        the same with the Windows build under Wine
# Installs what is missing with apt.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

usage="usage: run-gallery.sh [--windows] [--theme NAME] [--screenshots DIR [--scale 1..4] | --class-pictures DIR]"
preset=linux target= scale=1 kind=screenshots theme=light
while [ $# -gt 0 ]; do
  case $1 in
    --windows) preset=windows ;;
    --screenshots) target=${2:?$usage} && shift ;;
    --class-pictures) target=${2:?$usage} kind=class-pictures && shift ;;
    --theme) theme=${2:?$usage} && shift ;;
    --scale) scale=${2:?$usage} && shift ;;
    *) fail "$usage" ;;
  esac
  shift
done
case $scale in [1-4] | [1-3].[0-9] | [1-3].[0-9][0-9]) ;; *) fail "$usage" ;; esac
[ ! -f "$theme" ] || theme=$(realpath "$theme")
if [ -z "$target" ] && [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  say "No display: writing screenshots instead"
  target=$PWD/screenshots
fi
if [ -n "$target" ]; then
  mkdir -p "$target"
  target=$(cd "$target" && pwd)
fi

cd "$here/.."
ensure_packages cmake ninja-build ccache g++ qtbase5-dev qtbase5-private-dev libqt5svg5-dev qttools5-dev-tools \
  libxtst-dev xvfb openbox x11-utils fonts-open-sans fonts-noto-core python3
program=build/$preset/lqprograms/lumqt-gallery
run=()
if [ "$preset" = windows ]; then
  ensure_packages g++-mingw-w64-x86-64-posix wine wine64
  LUMQT_QT_WINDOWS=$("$here/build-qt-windows.sh")
  export LUMQT_QT_WINDOWS
  program=$program.exe
  run=("$here/wine-run.sh")
fi
say "Building the gallery ($preset)"
cmake --preset "$preset" -Wno-dev >/dev/null
cmake --build --preset "$preset" --target lumqt-gallery

if [ -z "$target" ]; then
  say "Showing the gallery"
  exec "${run[@]}" "$program" --theme "$theme"
fi
say "Writing $kind at scale $scale into $target"
folder=$target
[ "$preset" = linux ] || folder="Z:${target//\//\\}"
# Those of an earlier run go, and nothing else.
if [ -f "$target/screenshots.txt" ]; then
  while read -r name; do
    name=${name##*/}
    rm -f "$target/${name##*\\}"
  done < <(tr -d '\r' <"$target/screenshots.txt")
fi
# A page is as tall as it needs, and on Windows it is photographed from the screen.
LUMQT_SCREEN=2560x6400 QT_SCALE_FACTOR=$scale "$here/with-display.sh" "${run[@]}" "$program" --theme "$theme" "--$kind" "$folder"
find "$target" -maxdepth 1 -name '*.png' | sort
