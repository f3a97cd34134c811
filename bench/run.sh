#!/bin/sh
# Usage: run.sh BUILD-DIR [OPTION...]. Measures the program of that build.
set -eu
build=$1
shift
exec python3 "$(dirname "$0")/run.py" "$build/tools/tarka/tarka" "$@"
