#!/usr/bin/env bash
# Runs a Windows program of this project under Wine: wine-run.sh PROGRAM [ARG ...]
#
# Finds the DLLs of Qt (LUMQT_QT_WINDOWS) and of the compiler, and further ones in the folder LUMQT_DLL_PATH. A Qt Test program's
# standard output is lost there, so it writes into a file, which is printed when it is done.
#
# Where LUMQT_DISPLAYS names several screens, a test program waits for one that is free: focus and the pointer are the
# screen's. Each screen has a Wine prefix of its own, since a prefix stays with the screen it was first used on.
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
qt=${LUMQT_QT_WINDOWS:-}
if [ -z "$qt" ]; then
  qt=$("$here/build-qt-windows.sh")
fi

windows_path() { printf 'Z:%s' "${1//\//\\}"; }

dll_path=$(windows_path "$qt/bin")
for folder in /usr/lib/gcc/x86_64-w64-mingw32/*-posix /usr/x86_64-w64-mingw32/lib \
  ${LUMQT_DLL_PATH:+"$LUMQT_DLL_PATH"}; do
  dll_path="$dll_path;$(windows_path "$folder")"
done
export WINEPATH=$dll_path
# Wine hands on no variable whose name begins with QT_, but takes this prefix off.
export WINEQT_PLUGIN_PATH
WINEQT_PLUGIN_PATH=$(windows_path "$qt/plugins")
for name in QT_SCALE_FACTOR QT_FONT_DPI; do
  [ -z "${!name:-}" ] || export "WINE$name=${!name}"
done
export WINEDEBUG=${WINEDEBUG:--all}
export WINEPREFIX=${WINEPREFIX:-${XDG_CACHE_HOME:-$HOME/.cache}/lumqtlib/wine}
# No dialogs that offer to download something.
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=}

# Takes a free screen, with its prefix, for as long as this script runs.
take_screen() {
  local displays=() number prefix=$WINEPREFIX
  read -ra displays <<<"${LUMQT_DISPLAYS:-}"
  [ "${#displays[@]}" -gt 1 ] || return 0
  while :; do
    for number in "${!displays[@]}"; do
      exec 9>"$prefix-$number.lock"
      if flock -n 9; then
        export DISPLAY=${displays[number]} WINEPREFIX=$prefix-$number
        return 0
      fi
    done
    sleep 0.2
  done
}

program=$1
shift
case ${program##*/} in
  tst_*)
    take_screen
    mkdir -p "$WINEPREFIX"
    results=$(mktemp -d)
    trap 'rm -rf "$results"' EXIT
    # CTest would end this script before it could print what a hanging program wrote. LUMQT_TIMEOUT: seconds.
    # The lock is this script's alone: Wine's own server outlives the program.
    timeout "${LUMQT_TIMEOUT:-280}" wine "$program" -o "$(windows_path "$results/results.txt"),txt" "$@" 9>&-
    status=$?
    cat "$results/results.txt" 2>/dev/null
    exit "$status"
    ;;
  *)
    mkdir -p "$WINEPREFIX"
    wine "$program" "$@"
    ;;
esac
