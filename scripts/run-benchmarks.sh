#!/usr/bin/env bash
# Builds and runs the benchmarks: prints ratios to plain Qt as a table, in time and in instructions, and writes them as
# JSON into build/benchmarks.json. Exits with 1 when a promised ratio is missed.
#   run-benchmarks.sh --compare REV   builds a revision, too, and prints what became slower or faster by more than 2 per
#                                     cent in instructions; exits with 1 when something became slower
#   run-benchmarks.sh --docs          also writes the table into docs/benchmarks.md
#   run-benchmarks.sh --qt6           with Qt 6 instead of Qt 5, into build/benchmarks-qt6.json
#   run-benchmarks.sh ... --only TEXT --rounds N    what has this in its name; so many rounds of it
# Where the kernel counts no instructions, the program runs a second time below Callgrind, which takes some minutes; what
# that says of each figure stays in build/benchmarks.counts for callgrind_annotate. Installs what is missing with apt.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

usage="usage: run-benchmarks.sh [--compare REV | --docs] [--qt6] [--only TEXT] [--rounds N]"
qt=5 suffix='' revision='' docs='' options=()
while [ $# -gt 0 ]; do
  case $1 in
    --compare) revision=${2:?$usage} && shift ;;
    --docs) docs=1 ;;
    --qt6) qt=6 suffix=-qt6 ;;
    --only | --rounds) options+=("$1" "${2:?$usage}") && shift ;;
    *) fail "$usage" ;;
  esac
  shift
done
# Revisions are built with Qt 5, and a part of the table is no table.
[ -z "$revision" ] || [ -z "$suffix$docs" ] || fail "$usage"
[ -z "$docs" ] || [ ${#options[@]} -eq 0 ] || fail "$usage"

# Runs the program of a tree, below what is given after it: run TREE [COMMAND ...] -- OPTION ...
run() {
  local program=$1/build/linux$suffix/lqprograms/lumqt-benchmarks command=()
  shift
  while [ "$1" != -- ]; do command+=("$1") && shift; done
  shift
  # Offscreen, Qt warns of each window that it cannot hint at sizes.
  QT_HASH_SEED=0 QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES=default.warning=false \
    "${command[@]}" "$program" "${options[@]}" "$@" || fail "the benchmarks of $program do not run"
}

# Leaves in NAME.json what the program of a tree measures: measure TREE NAME
measure() {
  say "Measuring times"
  run "$1" -- --json "$2.json"
  if grep -q ourInstructions "$2.json"; then return; fi
  say "Counting instructions below Callgrind"
  rm -rf "$2.counts"
  mkdir -p "$2.counts"
  run "$1" valgrind -q --tool=callgrind --instr-atstart=no "--callgrind-out-file=$2.counts/all" -- \
    --json "$2.counts/rows.json"
  python3 "$here/benchmarks.py" merge "$2.json" "$2.counts" || fail "remove $1/build if it is older than Valgrind here"
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
  measure "$old_tree" "$PWD/build/compare/benchmarks"
fi
measure "$PWD" "$PWD/build/benchmarks$suffix"
if [ -n "$revision" ]; then
  python3 "$here/benchmarks.py" compare build/compare/benchmarks.json build/benchmarks.json
  exit
fi
[ -z "$docs" ] || python3 "$here/benchmarks.py" docs build/benchmarks.json docs/benchmarks.md
python3 "$here/benchmarks.py" table "build/benchmarks$suffix.json"
