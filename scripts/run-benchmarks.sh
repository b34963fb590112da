#!/usr/bin/env bash
# Builds and runs the benchmarks: prints ratios to plain Qt as a table, and writes them as JSON into
# build/benchmarks.json. Exits with 1 when a promised ratio is missed.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."
ensure_packages cmake ninja-build ccache g++ qtbase5-dev qtbase5-private-dev libqt5svg5-dev \
  qttools5-dev-tools libxtst-dev fonts-open-sans fonts-noto-core
say "Building the benchmarks"
cmake --preset linux -Wno-dev >/dev/null
cmake --build --preset linux --target lumqt-benchmarks
say "Measuring"
QT_QPA_PLATFORM=offscreen build/linux/lqprograms/lumqt-benchmarks --json "$PWD/build/benchmarks.json" "$@"
