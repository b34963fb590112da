#!/usr/bin/env bash
# Renders every picture of res/ from the drawings beside this script.
#
#   artwork/render.sh [FOLDER]     FOLDER: where to write, the repository's res/ by default
#
# Installs what the rendering needs; the same drawings give the same bytes on every run.
set -euo pipefail

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/../scripts/common.sh"
ensure_packages librsvg2-bin imagemagick zopfli python3

out=${1:-$here/../res}
say "Rendering the pictures into $out"
python3 -B "$here/render.py" "$out"
