#!/usr/bin/env bash
# Says which pages of the gallery look different from those of a revision, to the last bit, at 100 and 200 per cent.
#   compare-pictures.sh [--theme NAME] [REVISION]     HEAD, if none is given, beside the files as they are
# Lists the pages that differ and exits with 1 when there is one. The pictures, and what differs in red, are in
# build/compare/pictures. Both sides know the option --theme, or it is not given. Installs what is missing with apt.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

usage="usage: compare-pictures.sh [--theme NAME] [REVISION]"
options=() revision=
while [ $# -gt 0 ]; do
  case $1 in
    --theme) options=(--theme "${2:?$usage}") && shift ;;
    -*) fail "$usage" ;;
    *) [ -z "$revision" ] || fail "$usage" && revision=$1 ;;
  esac
  shift
done
revision=${revision:-HEAD}

cd "$here/.."
ensure_packages cmake ninja-build ccache g++ git qtbase5-dev qtbase5-private-dev libqt5svg5-dev qttools5-dev-tools \
  libxtst-dev fonts-open-sans fonts-noto-core imagemagick
say "Building the gallery of $revision"
build_revision "$revision" lumqt-gallery
say "Building the gallery as it is"
build_tree "$PWD" lumqt-gallery

pictures=$PWD/build/compare/pictures
rm -rf "$pictures"
mkdir -p "$pictures/differences"
moving_tries=5 # of a page that something moves on, until both sides show the same moment

# Takes pictures with the gallery of a tree: shoot TREE FOLDER SCALE [ARGUMENT ...]. Each runs at the same place, since
# a page says where that is.
shoot() {
  local built=$1/build/linux place=$pictures/place
  rm -rf "$place"
  mkdir -p "$place/lqprograms" "$2"
  cp "$built/lqprograms/lumqt-gallery" "$place/lqprograms/"
  ln -s "$built/res" "$built/translations" "$place/"
  LC_ALL=C QT_QPA_PLATFORM=offscreen QT_SCALE_FACTOR=$3 LD_LIBRARY_PATH=$built/src \
    "$place/lqprograms/lumqt-gallery" --screenshots "$2" "${options[@]}" "${@:4}" >"$2.log" 2>&1 ||
    fail "no pictures: $(cat "$2.log")"
}

# Whether any picture of a page before is one of those after.
any_same() {
  local before after
  for before in "$pictures/before$1"*/"$2.png"; do
    for after in "$pictures/after$1"*/"$2.png"; do
      cmp -s "$before" "$after" && return 0
    done
  done
  return 1
}

differ() {
  local page=$1 at=$2 try
  for try in $(seq "$moving_tries"); do
    any_same "$at" "$page" && return 1
    shoot "$old_tree" "$pictures/before$at-$try" "${at#@}" --page "$page"
    shoot "$PWD" "$pictures/after$at-$try" "${at#@}" --page "$page"
  done
  ! any_same "$at" "$page"
}

total=0 different=0
for at in @1 @2; do
  say "Looking at the pages at ${at#@}00 per cent"
  shoot "$old_tree" "$pictures/before$at" "${at#@}"
  shoot "$PWD" "$pictures/after$at" "${at#@}"
  for page in $(find "$pictures/before$at" "$pictures/after$at" -name '*.png' -printf '%f\n' | sort -u); do
    page=${page%.png}
    before=$pictures/before$at/$page.png after=$pictures/after$at/$page.png
    total=$((total + 1))
    what=
    if [ ! -f "$before" ]; then
      what="is new"
    elif [ ! -f "$after" ]; then
      what="is gone"
    elif differ "$page" "$at"; then
      what="differs: $(compare -metric AE "$before" "$after" "$pictures/differences/$page$at.png" 2>&1 || true) pixels"
    fi
    [ -n "$what" ] || continue
    different=$((different + 1))
    echo "$page at ${at#@}00 per cent $what"
  done
done
rm -rf "$pictures/place"
echo "$different of $total pictures differ (build/compare/pictures)"
[ "$different" -eq 0 ]
