#!/usr/bin/env bash
# Builds the library and runs its tests.
#   run-tests.sh               natively
#   run-tests.sh --windows     the Windows build, under Wine (builds Qt for Windows the first time)
#   run-tests.sh --sanitize    natively, under the address, undefined-behaviour and thread sanitizers
# Installs what is missing with apt. The last line is the total: N passed, N failed, N skipped.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."

native_packages=(cmake ninja-build ccache g++ qtbase5-dev qtbase5-private-dev libqt5svg5-dev qttools5-dev-tools
  libxtst-dev xvfb openbox x11-utils fonts-open-sans fonts-noto-core python3)

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

main() {
  local mode=${1:-} status=0 preset presets=(linux) screens=()
  # Programs mostly wait, so more of them than the machine has processors.
  local side_by_side=$((2 * $(nproc) + 1))
  case $mode in
    "") ensure_packages "${native_packages[@]}" ;;
    --windows)
      ensure_packages "${native_packages[@]}" g++-mingw-w64-x86-64-posix wine wine64
      LUMQT_QT_WINDOWS=$("$here/build-qt-windows.sh")
      export LUMQT_QT_WINDOWS
      presets=(windows)
      side_by_side=$((1 + $(nproc)))
      screens=(env "LUMQT_SCREENS=$side_by_side" "$here/with-display.sh")
      start_wine
      ;;
    --sanitize)
      ensure_packages "${native_packages[@]}"
      presets=(linux-asan linux-tsan)
      ;;
    *) fail "usage: run-tests.sh [--windows | --sanitize]" ;;
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
