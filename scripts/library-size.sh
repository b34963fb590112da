#!/usr/bin/env bash
# Says how large the release of the library is, stripped as it is shipped, what it consists of and what it costs to load.
#   library-size.sh [--windows] [--qt6]
# Prints the file's sections; on Linux also its symbols by kind, the largest functions, and what a program that does
# nothing pays for the library beside Qt Widgets alone: instructions from its start to its end (with Callgrind) and the
# memory that it has written to (the median of 20 starts). Installs what is missing with apt.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"
cd "$here/.."

preset=linux tools='' name=libLumQtLib qt=5
while [ $# -gt 0 ]; do
  case $1 in
    --windows) preset=windows tools=x86_64-w64-mingw32- name=LumQtLib ;;
    --qt6) qt=6 ;;
    *) fail "usage: library-size.sh [--windows] [--qt6]" ;;
  esac
  shift
done
[ $preset = windows ] && ensure_windows_qt $qt
ensure_native_packages $qt
[ $qt = 5 ] || preset+=-qt6 name+=Qt6
preset+=-release
cmake --preset "$preset" -Wno-dev >/dev/null
cmake --build --preset "$preset" --target LumQtLib >&2

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
case $preset in windows*) file=build/$preset/lqprograms/$name.dll ;; *) file=build/$preset/src/$name.so.1 ;; esac
"${tools}strip" --strip-unneeded -o "$scratch/${file##*/}" "$file"

say "Sections of ${file##*/}, $(stat -c %s "$scratch/${file##*/}") bytes"
"${tools}size" -A "$scratch/${file##*/}" | awk '/^\./ && $2 > 1000 { printf "%9d %s\n", $2, $1 }'
[ -z "$tools" ] || exit 0 # a DLL's symbols have no sizes
say "Symbols by kind: bytes, number"
"${tools}nm" -S -C -t d --defined-only "$file" | awk 'NF > 3 && $3 !~ /[bB]/ && !seen[$1]++ {
  bytes = $2 + 0; type = $3; $1 = $2 = $3 = ""; print bytes, type $0 # those with two names for one address once
}' | sort -rn >"$scratch/symbols"
awk '{
  name = $0; sub(/^[^ ]+ [^ ]+ +/, "", name); plain = name; sub(/\(.*/, "", plain)
  if (name ~ /qt_resource/) kind = "embedded files"
  else if (name ~ /qt_meta|staticMetaObject|qt_static_metacall|::metaObject\(/) kind = "moc"
  else if (name ~ /^(vtable|VTT|construction vtable|typeinfo)/) kind = "virtual tables, names of types"
  else if (name ~ /thunk to /) kind = "thunks"
  else if (name ~ /\.cold/) kind = "cold parts"
  else if (name ~ /SlotObject|QCallableObject|\{lambda/) kind = "lambdas and slots"
  else if (plain ~ /(^|[ :])Q(Map|Hash|Vector|List|Set|Cache|TypedArray)[A-Za-z]*</) kind = "templates of Qt"
  else if (plain ~ /(^| )(std|__gnu_cxx)::/) kind = "templates of the standard library"
  else if (name ~ /::~/) kind = "destructors"
  else if ($2 ~ /[rRdDV]/) kind = "tables and literals"
  else kind = "functions"
  bytes[kind] += $1; number[kind]++
} END { for (kind in bytes) printf "%9d %6d  %s\n", bytes[kind], number[kind], kind }' "$scratch/symbols" | sort -rn
say "The largest functions"
awk '$2 ~ /[tTwW]/ && shown++ < 15 { printf "%9d %s\n", $1, substr($0, length($1) + 4, 90) }' "$scratch/symbols"
ensure_packages valgrind pkg-config
cat >"$scratch/load.cpp" <<'END'
#include <QWidget>
#include <cstdio>
#ifdef WITH_LIBRARY
#include "Util.h"
auto *volatile used = &Util::IsIPAddress;
#endif
int main(int argc, char **)
{
    char line[200];
    std::FILE *rollup = argc > 1 ? std::fopen("/proc/self/smaps_rollup", "r") : nullptr;
    for (int kilobytes = 0; rollup && std::fgets(line, sizeof line, rollup);) {
        if (std::sscanf(line, "Private_Dirty: %d", &kilobytes) == 1)
            std::printf("%d\n", kilobytes);
    }
}
END
build_program() { # its name, and what is not the same for both
  # shellcheck disable=SC2046 # several words
  g++ -std=c++17 -O1 -fPIC "$scratch/load.cpp" -o "$scratch/$1" $(pkg-config --cflags "Qt${qt}Widgets") "${@:2}" \
    -Wl,--no-as-needed $(pkg-config --libs "Qt${qt}Widgets")
}
build_program plain
ln -s "${file##*/}" "$scratch/$name.so"
build_program library -DWITH_LIBRARY -Iinclude "-Ibuild/$preset/include" "-L$scratch" "-l${name#lib}" "-Wl,-rpath,$scratch"
sync # what was written just now would count as memory of the program
say "Starting a program: instructions, KB of its own"
for program in plain library; do
  instructions=$(valgrind --tool=callgrind --callgrind-out-file=/dev/null "$scratch/$program" 2>&1 |
    awk '/Collected/ { print $4 }')
  memory=$(for _ in {1..20}; do "$scratch/$program" memory; done | sort -n | sed -n 10p)
  printf '%12d %6d  %s\n' "$instructions" "$memory" "$program"
done
