#!/usr/bin/env bash
# Builds the library and runs its tests.
#   run-tests.sh               natively
#   run-tests.sh --windows     the Windows build, under Wine (builds Qt for Windows the first time)
#   run-tests.sh --sanitize    natively, under the address, undefined-behaviour and thread sanitizers
#   run-tests.sh --qt6 ...     with Qt 6 instead of Qt 5: natively, or with --windows
# Installs what is missing with apt. The last line is the total: N passed, N failed, N skipped.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."

# Configures, builds and tests one preset on a virtual screen; adds its results to the log.
run_preset() {
  local preset=$1 status=0 selection=()
  # Under the thread sanitizer the libraries of the X server are not instrumented, and their own threads drown ours:
  # what needs a screen is left to the other runs, and so are the pictures of all pages, which know one thread.
  [ "$preset" != linux-tsan ] || selection=(--label-exclude '^display$|^pictures$|^in-gallery$|^monkey$')
  say "Configuring: $preset"
  cmake --preset "$preset" -Wno-dev >"$log.configure" 2>&1 || {
    cat "$log.configure"
    fail "configuring failed"
  }
  say "Building: $preset"
  cmake --build --preset "$preset" || fail "building failed"
  say "Testing: $preset"
  "${screens[@]}" ctest --preset "$preset" --parallel "$side_by_side" --verbose "${selection[@]}" 2>&1 | tee -a "$log" | python3 "$here/test-report.py" --follow ||
    status=$?
  return "$status"
}

usage="usage: run-tests.sh [--qt6] [--windows] | --sanitize"

main() {
  local mode='' qt=5 suffix='' status=0 preset presets screens=()
  # Programs mostly wait, so more of them than the machine has processors.
  local side_by_side=$((2 * $(nproc) + 1))
  while [ $# -gt 0 ]; do
    case $1 in
      --qt6) qt=6 suffix=-qt6 ;;
      --windows | --sanitize)
        [ -z "$mode" ] || fail "$usage"
        mode=$1
        ;;
      *) fail "$usage" ;;
    esac
    shift
  done
  [ "$mode$qt" != --sanitize6 ] || fail "$usage"
  ensure_native_packages "$qt"
  case $mode in
    "") presets=("linux$suffix") ;;
    --windows)
      ensure_windows_qt "$qt"
      presets=("windows$suffix")
      side_by_side=$((1 + $(nproc)))
      screens=(env "LUMQT_SCREENS=$side_by_side" "$here/with-display.sh")
      start_wine
      ;;
    --sanitize) presets=(linux-asan linux-tsan) ;;
  esac
  log=$(mktemp)
  trap 'rm -f "$log" "$log.configure"' EXIT
  for preset in "${presets[@]}"; do
    run_preset "$preset" || status=$?
  done
  python3 "$here/test-report.py" --total "$log" || status=1
  exit "$status"
}

# The first start of a Wine prefix takes some seconds, which no test should pay for. Each screen has a copy of the first.
start_wine() {
  local number
  export WINEPREFIX=${WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/lumqtlib/wine}
  if [ ! -e "$WINEPREFIX/system.reg" ]; then
    say "Making the Wine prefix"
    mkdir -p "$WINEPREFIX"
    WINEDEBUG=-all WINEDLLOVERRIDES='mscoree,mshtml=' "$here/with-display.sh" wineboot --init
    wineserver -w
  fi
  for ((number = 0; number < side_by_side; ++number)); do
    [ -e "$WINEPREFIX-$number/system.reg" ] || cp -a "$WINEPREFIX" "$WINEPREFIX-$number"
  done
}

main "$@"
