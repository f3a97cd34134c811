#!/bin/sh
# Usage: demo.sh TARKA. Shows the program at work on an example, one plain line before each command.
set -eu
tarka=$(realpath "$1")
root=$(realpath "$(dirname "$0")/..")
cd "$root/examples/hello"

# show STATUS TEXT ARGUMENT...: says what comes, runs tarka, and insists on its exit status.
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

show 0 "A correct program: nothing to report." check hello.cbl
show 1 "The same program with two mistakes, and where they are:" check faulty.cbl
show 0 "The control-flow graph of the correct one:" cfg hello.cbl

# The picture of a larger one stays behind to be looked at.
picture=$root/build/demo/CUSTUPD
mkdir -p "$root/build/demo"
echo
echo "The procedures of a larger program and the ways between them, as a picture:"
echo "\$ tarka cfg --format=dot --collapse CUSTUPD.cbl | dot -Tsvg"
"$tarka" cfg --format=dot --collapse "$root/examples/update/CUSTUPD.cbl" > "$picture.dot"
dot -Tsvg "$picture.dot" -o "$picture.svg"
echo "see $picture.svg"
