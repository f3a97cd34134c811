#!/bin/sh
# Usage: pictures.sh TARKA. Draws the pictures of docs/images from programs of the test suite.
set -eu
tarka=$(realpath "$1")
cd "$(dirname "$0")/.."
mkdir -p docs/images

# draw NAME PROGRAM PARAGRAPH
draw() {
  "$tarka" cfg --format=dot --paragraph "$3" "test/Graph/$2.cbl" > "docs/images/$1.dot"
  dot -Tsvg "docs/images/$1.dot" -o "docs/images/$1.svg"
  rm "docs/images/$1.dot"
}

draw if branches NESTED
draw evaluate branches CASES
draw size-error arithmetic BOTH
draw read input-output READS
draw perform perform OUT-OF-LINE
draw perform-inline perform LOOPS
draw sort sort-merge MAIN
