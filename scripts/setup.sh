#!/bin/sh
# Installs the Debian packages of packages.txt that are missing. Quick when none is.
set -eu
cd "$(dirname "$0")/.."

packages=$(sed -e 's/#.*//' packages.txt)

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

# Root needs nothing; with sudo, ask for a password only where somebody can type one.
if [ "$(id -u)" = 0 ]; then
  as_root=""
elif command -v sudo >/dev/null && { [ -t 0 ] || sudo -n true 2>/dev/null; }; then
  as_root="sudo"
else
  give_up "not root, and no way to become root"
fi

echo "setup: installing" $missing
$as_root apt-get -qq update || give_up "apt-get update failed"
$as_root env DEBIAN_FRONTEND=noninteractive \
  apt-get -qq -y install --no-install-recommends $missing </dev/null || give_up "apt-get install failed"

missing=$(missing_packages)
[ -z "$missing" ] || give_up "apt-get install left something out"
