#!/usr/bin/env bash
# Says how much the tests notice: changes one token of one line in src/ at a time, builds, runs the tests of that
# folder, and lists the changes that no test noticed.
#   mutate.sh [--count N] [--seed S] [--jobs J] [--again FILE] [FILE ...]
# Works on copies below build/mutate; the tree itself is not touched. Installs what is missing with apt.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."
ensure_packages cmake ninja-build ccache g++ qtbase5-dev qtbase5-private-dev libqt5svg5-dev qttools5-dev-tools \
  libxtst-dev xvfb openbox x11-utils fonts-open-sans fonts-noto-core python3
exec python3 "$here/mutate.py" "$@"
