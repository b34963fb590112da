#!/usr/bin/env bash
# Runs a command on a virtual X screen of its own, with a window manager: with-display.sh COMMAND [ARG ...]
# LUMQT_SCREEN is the size of the screen in pixels, WIDTHxHEIGHT.
set -uo pipefail
work=$(mktemp -d)
cleanup() {
  [ -z "${manager:-}" ] || kill "$manager" 2>/dev/null
  [ -z "${server:-}" ] || kill "$server" 2>/dev/null
  wait 2>/dev/null
  rm -rf "$work"
}
trap cleanup EXIT

# The server chooses a free number and says which.
Xvfb -displayfd 3 -screen 0 "${LUMQT_SCREEN:-1600x1200}x24" -dpi 96 -nolisten tcp 3>"$work/display" >"$work/log" 2>&1 &
server=$!
for _ in $(seq 100); do
  [ -s "$work/display" ] && break
  kill -0 "$server" 2>/dev/null || break
  sleep 0.1
done
if [ ! -s "$work/display" ]; then
  cat "$work/log" >&2
  echo "error: Xvfb did not start" >&2
  exit 1
fi
DISPLAY=:$(tr -d '\n' <"$work/display")
export DISPLAY
if [ -z "${LUMQT_NO_WINDOW_MANAGER:-}" ]; then
  openbox >"$work/manager" 2>&1 &
  manager=$!
fi
# A command that asks for the screen before the window manager has it would see windows that are never active.
for _ in $(seq 300); do
  [ -n "${manager:-}" ] || break
  xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break
  sleep 0.1
done

"$@"
