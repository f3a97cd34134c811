#!/bin/sh
# Usage: run.sh BUILD-DIR [OPTION...]. All measurements of the program of that build: speed and
# memory, what grows with the square of the source, the language server. Options are those of run.py.
set -eu
build=$1
shift
bench=$(dirname "$0")
tarka=$build/tools/tarka/tarka
python3 "$bench/run.py" "$tarka" "$@"
echo
echo "language server"
python3 "$bench/lsp.py" "$tarka"
echo
echo "instructions for each of ten times as many, against those for as many; more than 11 is a fault"
exec python3 "$bench/growth.py" "$tarka"
