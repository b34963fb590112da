#!/usr/bin/env bash
# Looks at the sources with clang-format, clang-tidy and clazy; prints what they say and fails when they say anything.
#   lint.sh            everything
#   lint.sh --format   clang-format only
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."

# A clone may belong to somebody else than who checks it: root in a container.
tracked() { git -c safe.directory="$PWD" ls-files "$@"; }
mapfile -t sources < <(tracked 'src/*.cpp' 'src/*.h' 'include/*.h' 'examples/*.cpp' 'examples/*.h' 'tests/*.cpp' \
  'tests/*.h' 'benchmarks/*.cpp' 'benchmarks/*.h')
[ "${#sources[@]}" -gt 0 ] || fail "git lists no sources"
ensure_packages clang-format
say "clang-format (${#sources[@]} files)"
clang-format --dry-run --Werror "${sources[@]}"
[ "${1:-}" != --format ] || exit 0

ensure_packages clang-tidy clazy cmake ninja-build g++ qtbase5-dev qtbase5-private-dev libqt5svg5-dev \
  qttools5-dev-tools libxtst-dev python3
cmake --preset linux -Wno-dev >/dev/null
cmake --build --preset linux >/dev/null # the meta-object files that the sources include
mapfile -t units < <(tracked 'src/*.cpp' 'examples/gallery/*.cpp' | grep -v /windows/)
status=0
say "clang-tidy (${#units[@]} files)"
printf '%s\n' "${units[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/linux --quiet 2>/dev/null || status=1
say "clazy (${#units[@]} files)"
# connect-by-name: slots named on_... belong to the public interface; nobody connects them by name.
clazy-standalone --version >/dev/null || fail "clazy does not run"
findings=$(printf '%s\n' "${units[@]}" | xargs -P "$(nproc)" -n 4 clazy-standalone -p build/linux -checks=level1,no-connect-by-name,no-qproperty-without-notify \
  -header-filter='(include|src)/.*' 2>&1 | grep -E 'warning:|error:' | sort -u || true)
if [ -n "$findings" ]; then
  printf '%s\n' "$findings"
  status=1
fi
[ "$status" -eq 0 ] && say "Nothing found"
exit "$status"
