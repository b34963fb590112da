#!/usr/bin/env bash
# Builds the guide and the reference into build/docs/html, with pictures of the classes and the colours of the themes.
#   build-docs.sh              takes the pictures of the gallery
#   build-docs.sh --qt6        takes those of the gallery with Qt 6; the text is the same
#   build-docs.sh PICTURES     takes those of a folder, one PNG per class, named after it, and themes.txt from there
# Installs what is missing with apt. What Doxygen warns of is an error.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

usage="usage: build-docs.sh [--qt6 | PICTURES]"
[ $# -le 1 ] || fail "$usage"
given='' gallery=()
case ${1:-} in
  "") ;;
  --qt6) gallery=(--qt6) ;;
  -*) fail "$usage" ;;
  *)
    [ -d "$1" ] || fail "there is no folder $1"
    given=$(cd "$1" && pwd)
    ;;
esac

cd "$here/.."
ensure_packages doxygen python3
output=build/docs
pictures=$output/pictures
# Nothing of an earlier run is to be taken for new.
rm -rf "$output"
mkdir -p "$pictures" "$output/generated"
if [ -n "$given" ]; then
  say "Taking the pictures of $given"
  find "$given" -maxdepth 1 '(' -name '*.png' -o -name themes.txt ')' -exec cp {} "$pictures" ';'
else
  "$here/run-gallery.sh" "${gallery[@]}" --class-pictures "$pictures"
fi

say "Checking the pictures"
python3 docs/class-pictures.py include "$pictures" docs/no-picture.txt "$output/generated" ||
  fail "pictures and classes do not match"
python3 docs/theme-table.py include/CBPTheme.h "$pictures/themes.txt" "$output/generated" ||
  fail "there is no table of the themes' colours"

# A class's page begins with what the class is, and its picture; the lists of members follow.
doxygen -l "$output/layout.xml"
description='<detaileddescription title="Description"/>'
sed -i "/<class>/,/<\/class>/{/<detaileddescription/d;s|<briefdescription.*|$description|}" "$output/layout.xml"
say "Running Doxygen $(doxygen --version)"
doxygen docs/Doxyfile || fail "Doxygen has something to say"
[ -s "$output/html/index.html" ] || fail "Doxygen wrote no main page"
say "Done: $PWD/$output/html/index.html"
