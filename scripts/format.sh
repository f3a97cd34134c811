#!/bin/sh
# Checks the format of all C++ sources; with --fix, rewrites them.
set -eu
cd "$(dirname "$0")/.."

mode="--dry-run -Werror"
[ "${1:-}" != --fix ] || mode=-i
find bench fuzz include lib tools unittests test \( -name '*.h' -o -name '*.cpp' \) -print0 |
  xargs -0 clang-format-19 $mode
