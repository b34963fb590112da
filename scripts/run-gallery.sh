#!/usr/bin/env bash
# Builds the gallery and shows it, or writes pictures of it.
#   run-gallery.sh                                      shows it; without a display, writes screenshots
#   run-gallery.sh --screenshots DIR [--scale 1..4]     one PNG per page, without a display
#   run-gallery.sh --class-pictures DIR                 one PNG per class, and the themes' colours, for the documentation
#   run-gallery.sh --theme NAME ...                     the same in another theme: dark, contrast, or a theme file
#   run-gallery.sh --windows ...                        the same with the Windows build under Wine
#   run-gallery.sh --qt6 ...                            the same with Qt 6 instead of Qt 5
# Installs what is missing with apt.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

usage="usage: run-gallery.sh [--qt6] [--windows] [--theme NAME] [--screenshots DIR [--scale 1..4] | --class-pictures DIR]"
platform=linux qt=5 target='' scale=1 kind=screenshots theme=light
while [ $# -gt 0 ]; do
  case $1 in
    --windows) platform=windows ;;
    --qt6) qt=6 ;;
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
preset=$platform
[ "$qt" -eq 5 ] || preset=$platform-qt6
ensure_native_packages "$qt"
program=build/$preset/lqprograms/lumqt-gallery
run=()
if [ "$platform" = windows ]; then
  ensure_windows_qt "$qt"
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
[ "$platform" = linux ] || folder="Z:${target//\//\\}"
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
