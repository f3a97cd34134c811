#!/bin/sh
# Puts the program of a build and the libraries that it needs below dist/, from where they are packed
# into the extension. Only what every Linux system has is left out. usage: bundle.sh BUILD-DIRECTORY
set -eu
build=$(cd "$1" && pwd)
cd "$(dirname "$0")"
rm -rf dist
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
cmake --install "$build" --prefix "$stage" --strip >/dev/null
mkdir -p dist/bin dist/lib
cp "$stage/bin/tarka" dist/bin/
# "name => path (address)"; the installed program finds those of the build beside itself.
ldd "$stage/bin/tarka" | awk '$2 == "=>" { print $1, $3 }' | while read -r name path; do
  case $name in
  libc.so.* | libm.so.* | libdl.so.* | libpthread.so.* | librt.so.* | ld-linux*) ;;
  *) cp -L "$path" "dist/lib/$name" ;;
  esac
done
# The copy runs by itself, with the libraries that have been copied.
if env -i ldd dist/bin/tarka | grep 'not found'; then exit 1; fi
env -i dist/bin/tarka --version
