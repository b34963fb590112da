#!/usr/bin/env bash
# Builds and runs the benchmarks: prints ratios to plain Qt as a table, in time and in instructions, and writes them as
# JSON into build/benchmarks.json. Exits with 1 when a promised ratio is missed.
#   run-benchmarks.sh --compare REV   builds a revision, too, and prints what became slower or faster by more than 2 per
#                                     cent in instructions; exits with 1 when something became slower
#   run-benchmarks.sh --docs          also writes the table into docs/benchmarks.md
#   run-benchmarks.sh --qt6           with Qt 6 instead of Qt 5, into build/benchmarks-qt6.json
#   run-benchmarks.sh ... --only TEXT --rounds N    what has this in its name; so many rounds of it
# Where the kernel counts no instructions, the program runs a second time below Callgrind, which takes some minutes and
# leaves a file for each figure in build/benchmarks.counts; see benchmarks/README.md. Installs what is missing with apt.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

usage="usage: run-benchmarks.sh [--compare REV | --docs] [--qt6] [--only TEXT] [--rounds N]"
qt=5 suffix='' revision='' docs='' only='' options=()
while [ $# -gt 0 ]; do
  case $1 in
    --compare) revision=${2:?$usage} && shift ;;
    --docs) docs=1 ;;
    --qt6) qt=6 suffix=-qt6 ;;
    --only | --rounds)
      [ "$1" = --rounds ] || only=1
      options+=("$1" "${2:?$usage}") && shift
      ;;
    *) fail "$usage" ;;
  esac
  shift
done
# Revisions are built with Qt 5, and a part of the table is no table.
[ -z "$revision" ] || [ -z "$suffix$docs" ] || fail "$usage"
[ -z "$docs" ] || [ -z "$only" ] || fail "$usage"

tables() { python3 "$here/benchmarks.py" "$@"; }

# Runs a command. Offscreen, Qt warns of each window that it cannot hint at sizes.
run() {
  QT_HASH_SEED=0 QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES=default.warning=false "$@" ||
    fail "the benchmarks do not run"
}

# Leaves in NAME.json what the program of a tree measures: measure TREE NAME [OPTION ...]
measure() {
  local stage=$PWD/build/benchmarks name=$2
  local program=$stage/lqprograms/lumqt-benchmarks
  # At the same place for each tree: looking for a picture takes longer the longer its path is.
  rm -rf "$stage"
  mkdir -p "$stage/lqprograms"
  cp "$1/build/linux$suffix/lqprograms/lumqt-benchmarks" "$stage/lqprograms/"
  cp -r "$1/build/linux$suffix/res" "$stage/"
  shift 2
  say "Measuring times"
  run "$program" --json "$name.json" "$@"
  if grep -q ourInstructions "$name.json"; then return; fi
  say "Counting instructions below Callgrind"
  rm -rf "$name.counts"
  mkdir -p "$name.counts"
  run valgrind -q --tool=callgrind --instr-atstart=no "--callgrind-out-file=$name.counts/all" \
    "$program" --json "$name.counts/rows.json" "$@"
  tables merge "$name.json" "$name.counts" ||
    fail "if that tree was built before Valgrind was there, remove its folder build"
}

# Says what changed from one tree to this one. What seems slower is counted again, and the lowest counts: where threads
# meet, and where the heap has room, differs a little each time.
compare() {
  local before=$PWD/build/compare/benchmarks after=$PWD/build/benchmarks again=$PWD/build/compare/again titles title
  measure "$1" "$before" "${options[@]}"
  measure "$PWD" "$after" "${options[@]}"
  for _ in 1 2; do
    mapfile -t titles < <(tables slower "$before.json" "$after.json")
    for title in "${titles[@]}"; do
      measure "$1" "$again" --only "$title"
      tables lower "$before.json" "$again.json"
      measure "$PWD" "$again" --only "$title"
      tables lower "$after.json" "$again.json"
    done
  done
  tables compare "$before.json" "$after.json"
}

cd "$here/.."
ensure_native_packages "$qt"
ensure_packages valgrind
say "Building the benchmarks"
cmake --preset "linux$suffix" -Wno-dev >/dev/null
cmake --build --preset "linux$suffix" --target lumqt-benchmarks
if [ -n "$revision" ]; then
  say "Building the benchmarks of $revision"
  build_revision "$revision" LumQtLib
  for file in Bench.cpp Bench.h; do # an older one counts differently, or not at all
    cmp -s "benchmarks/$file" "$old_tree/benchmarks/$file" || cp "benchmarks/$file" "$old_tree/benchmarks/"
  done
  build_tree "$old_tree" lumqt-benchmarks
  compare "$old_tree"
  exit
fi
results=$PWD/build/benchmarks$suffix.json
measure "$PWD" "${results%.json}" "${options[@]}"
if [ -n "$docs" ]; then
  tables docs "$results" docs/benchmarks.md "$(sed -n 's/^project(LumQtLib VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)"
fi
tables table "$results"
