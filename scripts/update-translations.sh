#!/usr/bin/env bash
# Brings translations/*.ts up to date with the texts in the sources. New ones are left unfinished, to be translated.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."
ensure_packages qttools5-dev-tools
/usr/lib/qt5/bin/lupdate -silent -no-obsolete -locations none -I include src -ts translations/*.ts
if grep -n 'type="unfinished"' translations/*.ts; then
  say "These are to be translated"
fi
