#!/bin/sh
# Usage: pictures.sh TARKA. Draws the pictures of docs/images from programs of the test suite.
set -eu
tarka=$(realpath "$1")
cd "$(dirname "$0")/.."
mkdir -p docs/images

# draw NAME PROGRAM OPTION...
draw() {
  name=$1 program=$2
  shift 2
  "$tarka" cfg --format=dot "$@" "test/Graph/$program.cbl" > "docs/images/$name.dot"
  dot -Tsvg "docs/images/$name.dot" -o "docs/images/$name.svg"
  rm "docs/images/$name.dot"
}

draw if branches --paragraph NESTED
draw evaluate branches --paragraph CASES
draw size-error arithmetic --paragraph BOTH
draw read input-output --paragraph READS
draw perform perform --paragraph OUT-OF-LINE
draw perform-inline perform --paragraph LOOPS
draw sort sort-merge --paragraph MAIN
draw flow flow --function FLOWS
draw flow-collapsed flow --function FLOWS --collapse
