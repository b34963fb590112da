#!/usr/bin/env bash
# Runs a command on a virtual X screen of its own, with a window manager: with-display.sh COMMAND [ARG ...]
# LUMQT_SCREEN is the size of the screen in pixels, WIDTHxHEIGHT. LUMQT_SCREENS asks for so many of them; LUMQT_DISPLAYS
# names them all.
set -uo pipefail
work=$(mktemp -d)
cleanup() {
  [ -z "${manager:-}" ] || kill "$manager" 2>/dev/null
  [ -z "${server:-}" ] || kill "$server" 2>/dev/null
  wait 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT

# The server chooses a free number and says which. It does not begin anew when its last client goes, which may be an xprop
# below while the window manager is about to come.
Xvfb -noreset -displayfd 3 -screen 0 "${LUMQT_SCREEN:-1600x1200}x24" -dpi 96 -nolisten tcp 3>"$work/display" >"$work/log" 2>&1 &
server=$!
for _ in $(seq 500); do
  [ -s "$work/display" ] && break
  kill -0 "$server" 2>/dev/null || break
  sleep 0.02
done
if [ ! -s "$work/display" ]; then
  cat "$work/log" >&2
  echo "error: Xvfb did not start" >&2
  exit 1
fi
DISPLAY=:$(tr -d '\n' <"$work/display")
export DISPLAY
start_manager() {
  openbox >>"$work/manager" 2>&1 &
  manager=$!
}
manages() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }
# A command that asks for the screen before the window manager has it would see windows that are never active.
if [ -z "${LUMQT_NO_WINDOW_MANAGER:-}" ]; then
  start_manager
  for _ in $(seq 1000); do
    manages && break
    kill -0 "$manager" 2>/dev/null || start_manager
    sleep 0.03
  done
  if ! manages; then
    cat "$work/manager" >&2
    echo "error: the window manager did not start" >&2
    exit 1
  fi
fi

export LUMQT_DISPLAYS="${LUMQT_DISPLAYS:+$LUMQT_DISPLAYS }$DISPLAY"
if [ "${LUMQT_SCREENS:-1}" -gt 1 ]; then
  LUMQT_SCREENS=$((LUMQT_SCREENS - 1)) "$0" "$@"
else
  "$@"
fi
