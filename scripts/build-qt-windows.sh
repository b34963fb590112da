#!/usr/bin/env bash
# Builds Qt 5 (base and SVG) for 64-bit Windows from the distribution's own source packages, once per machine, into
# the user's cache folder. Prints the prefix as its last line. Everything else goes to standard error, so that
#   prefix=$(scripts/build-qt-windows.sh)
# works. The folder's name is made of the Qt version and a digest of the options: another version or another option
# is another folder, and a half-finished build never looks like a finished one.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

options=(
  -xplatform win32-g++ -device-option CROSS_COMPILE=x86_64-w64-mingw32-
  -release -shared -opensource -confirm-license
  # The repacked source lacks the tablet header: tablet events and Direct2D would not build.
  -no-opengl -no-dbus -no-icu -no-openssl -no-direct2d -no-feature-tabletevent
  -no-feature-sql -no-feature-network -no-feature-concurrent -no-feature-printer -no-feature-vulkan
  -qt-zlib -qt-pcre -qt-libpng -qt-libjpeg -qt-freetype -qt-harfbuzz
  -nomake examples -nomake tests
)

main() {
  local version digest cache prefix
  ensure_packages qtbase5-dev dpkg-dev g++-mingw-w64-x86-64-posix make perl python3 >&2
  version=$(dpkg-query -W -f '${Version}' qtbase5-dev | sed 's/+.*//')
  digest=$(printf '%s\n' "${options[@]}" | sha256sum | cut -c1-10)
  cache=${XDG_CACHE_HOME:-$HOME/.cache}/lumqtlib
  prefix=$cache/qt-windows-$version-$digest
  if [ ! -e "$prefix/.complete" ]; then
    build "$cache" "$prefix"
  fi
  say "Qt for Windows: $prefix" >&2
  printf '%s\n' "$prefix"
}

# A private sources list with the source index of the same archives the system itself uses.
private_source_index() {
  local dir=$1 codename
  # shellcheck source=/dev/null
  codename=$(. /etc/os-release && printf '%s' "$VERSION_CODENAME")
  mkdir -p "$dir/lists/partial" "$dir/cache/archives/partial" "$dir/parts"
  python3 - "$codename" "$dir/source.sources" <<'PY'
import glob, re, sys
codename, target = sys.argv[1:]
ours = re.compile(r'%s(-updates|-security|/updates)?$' % re.escape(codename))
out = []
for name in glob.glob('/etc/apt/sources.list.d/*.sources'):
    for stanza in re.split(r'\n\s*\n', open(name).read()):
        fields = {}
        for line in stanza.splitlines():
            match = re.match(r'([A-Za-z-]+):\s*(.*)$', line)
            if match:
                fields[match.group(1)] = match.group(2)
        if 'deb' not in fields.get('Types', '').split() or fields.get('Enabled', 'yes') == 'no':
            continue
        if not any(ours.match(suite) for suite in fields.get('Suites', '').split()):
            continue
        fields['Types'] = 'deb-src'
        out.append('\n'.join('%s: %s' % pair for pair in fields.items()))
for name in ['/etc/apt/sources.list'] + glob.glob('/etc/apt/sources.list.d/*.list'):
    try:
        lines = open(name).read().splitlines()
    except OSError:
        continue
    for line in lines:
        match = re.match(r'deb\s+(?:\[([^\]]*)\]\s+)?(\S+)\s+(\S+)\s+(.+)$', line)
        if match and ours.match(match.group(3)):
            stanza = 'Types: deb-src\nURIs: %s\nSuites: %s\nComponents: %s' % match.group(2, 3, 4)
            for option in (match.group(1) or '').split():
                if option.startswith('signed-by='):
                    stanza += '\nSigned-By: ' + option.split('=', 1)[1]
            out.append(stanza)
if not out:
    sys.exit('no Debian archive is configured in /etc/apt')
open(target, 'w').write('\n\n'.join(out) + '\n')
PY
}

download_sources() {
  local work=$1 dir=$1/apt options
  private_source_index "$dir"
  options=(-o "Dir::Etc::SourceList=$dir/source.sources" -o "Dir::Etc::SourceParts=$dir/parts"
    -o "Dir::State::Lists=$dir/lists" -o "Dir::Cache=$dir/cache" -o APT::Sandbox::User=root)
  say "Reading the index of Debian's source packages" >&2
  apt-get "${options[@]}" update >&2
  say "Downloading the sources of Qt" >&2
  (cd "$work" && apt-get "${options[@]}" source --download-only qtbase-opensource-src qtsvg-opensource-src >&2)
  (cd "$work" && dpkg-source --no-check -x qtbase-opensource-src_*.dsc qtbase >&2)
  (cd "$work" && dpkg-source --no-check -x qtsvg-opensource-src_*.dsc qtsvg >&2)
}

# Runs a step with its output in a log file; prints a dot every ten seconds, and the log's end when it fails.
step() {
  local title=$1 log=$2 pid status=0
  shift 2
  say "$title (log: $log)" >&2
  "$@" >"$log" 2>&1 &
  pid=$!
  while kill -0 "$pid" 2>/dev/null; do
    printf '.' >&2
    sleep 10 &
    wait -n "$pid" $! 2>/dev/null || true
  done
  printf '\n' >&2
  wait "$pid" || status=$?
  if [ "$status" -ne 0 ]; then
    tail -n 40 "$log" >&2
    fail "$title failed"
  fi
}

configure_base() { mkdir -p "$1/build-base" && cd "$1/build-base" && ../qtbase/configure "${options[@]}" -prefix "$2" -hostprefix "$2"; }
make_in() { cd "$1" && make -j"$(nproc)"; }
install_in() { cd "$1" && make install; }
configure_svg() { mkdir -p "$1/build-svg" && cd "$1/build-svg" && "$2/bin/qmake" ../qtsvg; }

build() {
  local cache=$1 prefix=$2
  mkdir -p "$cache"
  work=$(mktemp -d "$cache/qt-build.XXXXXX") # not local: the trap runs when this function is done
  trap 'rm -rf "$work"' EXIT
  rm -rf "$prefix"
  say "Qt for Windows is built once on this machine (about 12 minutes on two cores)" >&2
  download_sources "$work"
  step "Configuring qtbase" "$cache/qt-configure.log" configure_base "$work" "$prefix"
  step "Building qtbase" "$cache/qt-base.log" make_in "$work/build-base"
  step "Installing qtbase" "$cache/qt-install.log" install_in "$work/build-base"
  step "Configuring qtsvg" "$cache/qt-svg-configure.log" configure_svg "$work" "$prefix"
  step "Building qtsvg" "$cache/qt-svg.log" make_in "$work/build-svg"
  step "Installing qtsvg" "$cache/qt-svg-install.log" install_in "$work/build-svg"
  touch "$prefix/.complete"
}

main "$@"
