#!/bin/sh
# usage: setup.sh [PACKAGE...]
# Installs the Debian packages given, or those of packages.txt, that are missing. Quick when none is.
set -eu
cd "$(dirname "$0")/.."

# A line is a package, or a package and the command that it is needed for.
packages=$(sed -e 's/#.*//' packages.txt | while read -r package command; do
  [ -n "$command" ] && command -v "$command" >/dev/null || echo "$package"
done)
[ $# -eq 0 ] || packages=$*

if ! command -v dpkg-query >/dev/null; then
  echo "setup: this is not a Debian system. Tarka needs what these Debian packages contain:" >&2
  echo $packages >&2
  echo "setup: with those in place, build with: cmake --preset release && cmake --build --preset release" >&2
  exit 1
fi

missing_packages() {
  installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' $packages 2>/dev/null |
    sed -n 's/ installed$//p')
  for package in $packages; do
    echo "$installed" | grep -qx -- "$package" || echo "$package"
  done
}

missing=$(missing_packages)
[ -n "$missing" ] || exit 0

give_up() {
  echo "setup: $1" >&2
  echo "setup: these packages are missing:" $missing >&2
  echo "setup: as root, run: apt-get update && apt-get install --no-install-recommends" $missing >&2
  exit 1
}

# Root needs no sudo. Let sudo ask for a password only on a terminal.
if [ "$(id -u)" = 0 ]; then
  as_root=""
elif command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
  as_root="sudo"
else
  give_up "neither root nor sudo is available"
fi

echo "setup: installing" $missing
log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt_get() {
  $as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o Dpkg::Use-Pty=0 "$@" </dev/null >"$log" 2>&1
}

# A failed update is not fatal: the package lists may be recent enough.
apt_get update || tail -n 5 "$log" >&2
if ! apt_get install --no-install-recommends $missing; then
  tail -n 20 "$log" >&2
  give_up "apt-get install failed"
fi

missing=$(missing_packages)
[ -z "$missing" ] || give_up "apt-get install did not install all packages"
