#!/usr/bin/env bash
# Builds Qt (base and SVG) for 64-bit Windows from the distribution's own source packages, once per machine, into
# the user's cache folder:
#   build-qt-windows.sh          Qt 5
#   build-qt-windows.sh --qt6    Qt 6, with the tools (moc, rcc, ...) of the distribution's native Qt 6
# LUMQT_QT_SOURCES may name a folder with source packages (.dsc and what it lists), for a machine whose archives do not
# serve them. Prints the prefix as its last line. Everything else goes to standard error, so that
#   prefix=$(scripts/build-qt-windows.sh)
# works. The folder's name is made of the Qt version and a digest of the options and the folder of sources: another
# version or another option is another folder, and a half-finished build never looks like a finished one.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=scripts/common.sh
. "$here/common.sh"

options5=(
  -xplatform win32-g++ -device-option CROSS_COMPILE=x86_64-w64-mingw32-
  -release -shared -opensource -confirm-license
  # The repacked source lacks the tablet header: tablet events and Direct2D would not build.
  -no-opengl -no-dbus -no-icu -no-openssl -no-direct2d -no-feature-tabletevent
  -no-feature-sql -no-feature-network -no-feature-concurrent -no-feature-printer -no-feature-vulkan
  -qt-zlib -qt-pcre -qt-libpng -qt-libjpeg -qt-freetype -qt-harfbuzz
  -nomake examples -nomake tests
)

# Qt 6 takes what it finds on the machine unless it is told not to, so whatever is bundled or left out is named.
options6=(
  -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=ON -DQT_QMAKE_TARGET_MKSPEC=win32-g++
  -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_TOOLS_BY_DEFAULT=OFF
  -DINPUT_opengl=no -DFEATURE_dbus=OFF -DFEATURE_icu=OFF -DFEATURE_glib=OFF -DFEATURE_zstd=OFF
  # The repacked source lacks the tablet header here too. The platform plugin does not link with DirectWrite alone:
  # its font database is built with Direct2D only.
  -DFEATURE_tabletevent=OFF -DFEATURE_direct2d=OFF -DFEATURE_directwrite=OFF
  -DFEATURE_sql=OFF -DFEATURE_network=OFF -DFEATURE_concurrent=OFF -DFEATURE_printsupport=OFF -DFEATURE_vulkan=OFF
  -DFEATURE_xml=OFF -DFEATURE_pkg_config=OFF
  -DFEATURE_system_zlib=OFF -DFEATURE_system_pcre2=OFF -DFEATURE_system_png=OFF -DFEATURE_system_jpeg=OFF
  -DFEATURE_system_freetype=OFF -DFEATURE_system_harfbuzz=OFF -DFEATURE_system_doubleconversion=OFF
  -DFEATURE_system_libb2=OFF -DFEATURE_system_textmarkdownreader=OFF
)

main() {
  local version digest cache prefix
  case ${1:-} in
    "")
      qt=5 name=qt options=("${options5[@]}") sources=(qtbase-opensource-src qtsvg-opensource-src)
      native=qtbase5-dev packages=(make perl) minutes=12
      ;;
    --qt6)
      qt=6 name=qt6 options=("${options6[@]}") sources=(qt6-base qt6-svg)
      native=qt6-base-dev packages=(qt6-base-dev-tools cmake ninja-build perl) minutes=20
      ;;
    *) fail "usage: build-qt-windows.sh [--qt6]" ;;
  esac
  ensure_packages "$native" dpkg-dev g++-mingw-w64-x86-64-posix "${packages[@]}" python3 >&2
  version=$(dpkg-query -W -f '${Version}' "$native" | sed 's/+.*//')
  digest=$(printf '%s\n' "${options[@]}" ${LUMQT_QT_SOURCES:+"$LUMQT_QT_SOURCES"} | sha256sum | cut -c1-10)
  cache=${XDG_CACHE_HOME:-$HOME/.cache}/lumqtlib
  prefix=$cache/$name-windows-$version-$digest
  if [ ! -e "$prefix/.complete" ]; then
    mkdir -p "$cache"
    # Two builds of the same Qt would install over each other: the second waits, and finds it done.
    exec 8>"$prefix.lock"
    flock 8
    [ -e "$prefix/.complete" ] || build "$cache" "$prefix"
  fi
  say "Qt $qt for Windows: $prefix" >&2
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

# What is missing in the folder that the caller gave comes from the archives.
download_sources() {
  local work=$1 dir=$1/apt given=${LUMQT_QT_SOURCES:-/nowhere} apt_options missing=() source
  for source in "${sources[@]}"; do
    compgen -G "$given/${source}_*.dsc" >/dev/null || missing+=("$source")
  done
  if [ ${#missing[@]} -gt 0 ]; then
    private_source_index "$dir"
    apt_options=(-o "Dir::Etc::SourceList=$dir/source.sources" -o "Dir::Etc::SourceParts=$dir/parts"
      -o "Dir::State::Lists=$dir/lists" -o "Dir::Cache=$dir/cache" -o APT::Sandbox::User=root)
    say "Reading the index of Debian's source packages" >&2
    apt-get "${apt_options[@]}" update >&2
    say "Downloading the sources of Qt $qt" >&2
    (cd "$work" && apt-get "${apt_options[@]}" source --download-only "${missing[@]}" >&2) ||
      fail "the archives in /etc/apt do not give the sources of Qt $qt (${missing[*]}): see LUMQT_QT_SOURCES"
  fi
  unpack "$work" "${sources[0]}" qtbase
  unpack "$work" "${sources[1]}" qtsvg
}

unpack() {
  local file
  for file in "${LUMQT_QT_SOURCES:-/nowhere}/$2"_*.dsc "$1/$2"_*.dsc; do
    [ -e "$file" ] || continue
    say "Unpacking $(basename "$file")" >&2
    dpkg-source --no-check -x "$file" "$1/$3" >&2
    return
  done
  fail "there is no source package $2"
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

# Each of these is a step: WORK is the folder with the sources, PREFIX the one that Qt is installed into.
configure_base5() { in_folder "$1/build-base" ../qtbase/configure "${options[@]}" -prefix "$2" -hostprefix "$2"; }
configure_svg5() { in_folder "$1/build-svg" "$2/bin/qmake" ../qtsvg; }
make5() { make -C "$1" -j"$(nproc)"; }
install5() { make -C "$1" install; }

configure_base6() {
  local multiarch
  multiarch=$(dpkg-architecture -q DEB_BUILD_MULTIARCH)
  configure_cmake "$1/qtbase" "$1/build-base" "$2" "${options[@]}" \
    -DQT_HOST_PATH=/usr "-DQT_HOST_PATH_CMAKE_DIR=/usr/lib/$multiarch/cmake"
}
configure_svg6() { configure_cmake "$1/qtsvg" "$1/build-svg" "$2" -DCMAKE_BUILD_TYPE=Release; }
make6() { cmake --build "$1" --parallel "$(nproc)"; }
install6() { cmake --install "$1" --strip; }

in_folder() { mkdir -p "$1" && cd "$1" && shift && "$@"; }
configure_cmake() {
  cmake -G Ninja -Wno-dev -S "$1" -B "$2" "-DCMAKE_INSTALL_PREFIX=$3" "-DLUMQT_QT_WINDOWS=$3" \
    "-DCMAKE_TOOLCHAIN_FILE=$here/../cmake/toolchain-mingw64.cmake" "${@:4}"
}

build() {
  local cache=$1 prefix=$2
  work=$(mktemp -d "$cache/$name-build.XXXXXX") # not local: the trap runs when this function is done
  trap 'rm -rf "$work"' EXIT
  rm -rf "$prefix"
  say "Qt $qt for Windows is built once on this machine (about $minutes minutes on two cores)" >&2
  download_sources "$work"
  step "Configuring qtbase" "$cache/$name-configure.log" "configure_base$qt" "$work" "$prefix"
  step "Building qtbase" "$cache/$name-base.log" "make$qt" "$work/build-base"
  step "Installing qtbase" "$cache/$name-install.log" "install$qt" "$work/build-base"
  step "Configuring qtsvg" "$cache/$name-svg-configure.log" "configure_svg$qt" "$work" "$prefix"
  step "Building qtsvg" "$cache/$name-svg.log" "make$qt" "$work/build-svg"
  step "Installing qtsvg" "$cache/$name-svg-install.log" "install$qt" "$work/build-svg"
  touch "$prefix/.complete"
}

main "$@"
