#!/bin/sh
# Usage: demo.sh TARKA. Runs the program on examples, with a line of explanation before each command.
set -eu
tarka=$(realpath "$1")
root=$(realpath "$(dirname "$0")/..")
cd "$root/examples"

# show STATUS TEXT ARGUMENT...: prints the text, runs tarka, and checks its exit status.
show() {
  expected=$1
  echo
  echo "$2"
  shift 2
  echo "\$ tarka $*"
  status=0
  "$tarka" "$@" || status=$?
  if [ "$status" -ne "$expected" ]; then
    echo "demo: tarka $* ended with status $status, not $expected" >&2
    exit 1
  fi
}

show 0 "A daily update of a customer master, 300 lines with two copybooks: nothing to report." \
  check update/CUSTUPD.cbl
show 1 "The same program with seven mistakes, and where they are, as a terminal shows them:" \
  check --format=pretty update/CUSTUPDX.cbl
show 0 "The control-flow graph of one paragraph of a premium calculation:" \
  cfg --paragraph FIND-RATE premium/PREMIUM.cbl
show 0 "Where the bytes of one of its records lie:" layout --record POLICY premium/PREMIUM.cbl

# The picture of the graph is kept in build/demo.
picture=$root/build/demo/CUSTUPD
mkdir -p "$root/build/demo"
echo
echo "The procedures of the customer update and the ways between them, as a picture:"
echo "\$ tarka cfg --format=dot --collapse update/CUSTUPD.cbl | dot -Tsvg"
"$tarka" cfg --format=dot --collapse update/CUSTUPD.cbl > "$picture.dot"
dot -Tsvg "$picture.dot" -o "$picture.svg"
echo "see $picture.svg"
