#!/usr/bin/env bash
# Says how the speed of what the benchmarks measure changed since a revision: both builds run in turn, so that what
# disturbs one disturbs the other.
#   compare-benchmarks.sh [--runs N] [--check] [REVISION]     HEAD, if none is given, beside the files as they are
# Prints a ratio per figure, above 1 for slower. With --check, exits with 1 when one is above 1.03. The figures of each
# run are in build/compare/benchmarks. Installs what is missing with apt.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

usage="usage: compare-benchmarks.sh [--runs N] [--check] [REVISION]"
revision='' runs=7 check=()
while [ $# -gt 0 ]; do
  case $1 in
    --runs) runs=${2:?$usage} && shift ;;
    --check) check=(--check) ;;
    -*) fail "$usage" ;;
    *) [ -z "$revision" ] || fail "$usage" && revision=$1 ;;
  esac
  shift
done
case $runs in [1-9] | [1-9][0-9]) ;; *) fail "$usage" ;; esac
revision=${revision:-HEAD}

cd "$here/.."
ensure_packages cmake ninja-build ccache g++ git qtbase5-dev qtbase5-private-dev libqt5svg5-dev qttools5-dev-tools \
  libxtst-dev fonts-open-sans fonts-noto-core python3
say "Building the benchmarks of $revision"
build_revision "$revision" lumqt-benchmarks
say "Building the benchmarks as they are"
build_tree "$PWD" lumqt-benchmarks

figures=$PWD/build/compare/benchmarks
rm -rf "$figures"
mkdir -p "$figures"
# A promised ratio that is missed on a busy machine is no matter of this comparison.
measure() {
  QT_QPA_PLATFORM=offscreen "$1/build/linux/lqprograms/lumqt-benchmarks" --json "$2" >/dev/null 2>&1 || [ -s "$2" ] ||
    fail "the benchmarks of $1 do not run"
}
for run in $(seq "$runs"); do
  say "Measuring, $run of $runs"
  measure "$old_tree" "$figures/before-$run.json"
  measure "$PWD" "$figures/after-$run.json"
done
python3 "$here/compare-benchmarks.py" "${check[@]}" "$figures"
