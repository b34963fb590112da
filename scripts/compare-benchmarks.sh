#!/usr/bin/env bash
# Says how the speed of what the benchmarks measure changed since a revision: both builds run in turn, so that what
# disturbs one disturbs the other.
#   compare-benchmarks.sh [--runs N] [--instructions] [--check] [REVISION]
#                                                             HEAD, if none is given, beside the files as they are
# Prints a ratio per figure, above 1 for slower. With --instructions, counts them (with Callgrind) instead of measuring
# times: for a machine that others keep busy. With --check, exits with 1 when a ratio is above 1.03. The figures of each
# run are in build/compare/benchmarks, those of instructions as callgrind_annotate reads them. Installs what is missing
# with apt.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

usage="usage: compare-benchmarks.sh [--runs N] [--instructions] [--check] [REVISION]"
revision='' runs='' instructions=() check=()
while [ $# -gt 0 ]; do
  case $1 in
    --runs) runs=${2:?$usage} && shift ;;
    --instructions) instructions=(--instructions) ;;
    --check) check=(--check) ;;
    -*) fail "$usage" ;;
    *) [ -z "$revision" ] || fail "$usage" && revision=$1 ;;
  esac
  shift
done
runs=${runs:-$([ ${#instructions[@]} -eq 0 ] && echo 7 || echo 3)} # counts hardly differ
case $runs in [1-9] | [1-9][0-9]) ;; *) fail "$usage" ;; esac
revision=${revision:-HEAD}

cd "$here/.."
ensure_packages cmake ninja-build ccache g++ git qtbase5-dev qtbase5-private-dev libqt5svg5-dev qttools5-dev-tools \
  libxtst-dev fonts-open-sans fonts-noto-core python3
[ ${#instructions[@]} -eq 0 ] || ensure_packages valgrind
say "Building the benchmarks of $revision"
build_revision "$revision" lumqt-benchmarks
if [ ${#instructions[@]} -gt 0 ]; then # older ones cannot count by themselves
  cp benchmarks/Bench.cpp benchmarks/Bench.h "$old_tree/benchmarks/"
  build_tree "$old_tree" lumqt-benchmarks
fi
say "Building the benchmarks as they are"
build_tree "$PWD" lumqt-benchmarks

figures=$PWD/build/compare/benchmarks
rm -rf "$figures"
mkdir -p "$figures"
# A promised ratio that is missed on a busy machine is no matter of this comparison.
measure() {
  local counter=()
  if [ ${#instructions[@]} -gt 0 ]; then
    mkdir "$2.counts"
    counter=(valgrind --tool=callgrind --instr-atstart=no "--callgrind-out-file=$2.counts/all")
  fi
  QT_HASH_SEED=0 QT_QPA_PLATFORM=offscreen "${counter[@]}" "$1/build/linux/lqprograms/lumqt-benchmarks" --json "$2" \
    >/dev/null 2>&1 || [ -s "$2" ] || fail "the benchmarks of $1 do not run"
  [ ${#counter[@]} -eq 0 ] || [ -e "$2.counts/all.1" ] ||
    fail "the benchmarks of $1 were built before Valgrind was there: remove $1/build"
}
for run in $(seq "$runs"); do
  say "Measuring, $run of $runs"
  measure "$old_tree" "$figures/before-$run.json"
  measure "$PWD" "$figures/after-$run.json"
done
python3 "$here/compare-benchmarks.py" "${instructions[@]}" "${check[@]}" "$figures"
