# Shared by the scripts of this folder; sourced, not run.

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
