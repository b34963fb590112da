# shellcheck shell=bash
# Shared by the scripts of this folder; sourced, not run. They set `here`, their folder.

say() { printf '\033[1m==>\033[0m %s\n' "$*"; }

fail() {
  printf 'error: %s\n' "$*" >&2
  exit 1
}

# Runs a command as root: directly, or through sudo.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null 2>&1; then
    sudo "$@"
  else
    fail "'$*' needs root: run as root or install sudo"
  fi
}

# Installs those of the named Debian packages that are missing, and says which.
ensure_packages() {
  local package missing=()
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
  done
  [ "${#missing[@]}" -gt 0 ] || return 0
  say "Installing with apt: ${missing[*]}"
  as_root apt-get update -q
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# Installs what building and running natively needs, with the Qt of that major version.
ensure_native_packages() {
  local dev=(qtbase5-dev qtbase5-private-dev libqt5svg5-dev qttools5-dev qttools5-dev-tools)
  [ "$1" -eq 5 ] || dev=(qt6-base-dev qt6-base-private-dev qt6-svg-dev qt6-tools-dev libqt6opengl6-dev qt6-l10n-tools)
  ensure_packages cmake ninja-build ccache g++ "${dev[@]}" \
    libxtst-dev xvfb openbox x11-utils fonts-open-sans fonts-noto-core python3
}

# Installs what the Windows build needs besides, and builds Qt of that major version the first time.
ensure_windows_qt() {
  local option=()
  [ "$1" -eq 5 ] || option=(--qt6)
  ensure_packages g++-mingw-w64-x86-64-posix wine wine64
  LUMQT_QT_WINDOWS=$("${here:?}/build-qt-windows.sh" "${option[@]}")
  export LUMQT_QT_WINDOWS
}

# Builds a program of a revision, in a tree of its own below build/compare, and leaves that tree's path in $old_tree.
build_revision() {
  local commit
  commit=$(git -c safe.directory="$PWD" rev-parse --verify --quiet "$1^{commit}") || fail "there is no revision $1"
  old_tree=$PWD/build/compare/$commit
  if [ ! -d "$old_tree" ]; then
    mkdir -p "$old_tree.new"
    git -c safe.directory="$PWD" archive "$commit" | tar -x -C "$old_tree.new"
    mv "$old_tree.new" "$old_tree"
  fi
  build_tree "$old_tree" "$2"
}

# Builds a program of the tree in a folder, with what the compiler cache knows of other trees.
build_tree() (
  cd "$1" || exit
  export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1
  cmake --preset linux -Wno-dev -DCMAKE_CXX_COMPILER_LAUNCHER=ccache >/dev/null
  cmake --build --preset linux --target "$2" >&2
)
