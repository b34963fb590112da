#!/usr/bin/env bash
# Builds and runs the benchmarks: prints ratios to plain Qt as a table, and writes them as JSON into
# build/benchmarks.json. Exits with 1 when a promised ratio is missed.
#   run-benchmarks.sh --qt6 ...    with Qt 6 instead of Qt 5, into build/benchmarks-qt6.json
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."
qt=5
suffix=''
if [ "${1:-}" = --qt6 ]; then
  qt=6
  suffix=-qt6
  shift
fi
ensure_native_packages "$qt"
say "Building the benchmarks"
cmake --preset "linux$suffix" -Wno-dev >/dev/null
cmake --build --preset "linux$suffix" --target lumqt-benchmarks
say "Measuring"
QT_QPA_PLATFORM=offscreen "build/linux$suffix/lqprograms/lumqt-benchmarks" --json "$PWD/build/benchmarks$suffix.json" "$@"
