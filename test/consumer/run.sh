#!/bin/sh
# Usage: run.sh PREFIX WORKDIR STATIC|SHARED COMPILER
# Builds the project of this folder against the copy of Tarka installed below PREFIX, with LLVM from
# the static archives or from libLLVM.so, runs it, and makes sure that exactly one copy of LLVM is in
# the process.
set -eu
source=$(cd "$(dirname "$0")" && pwd)
prefix=$1 work=$2 llvm=$3 compiler=$4

fail() {
  echo "consumer: $1" >&2
  exit 1
}

# Which of LLVM's own functions and variables a file defines. Inline functions and instances of
# templates, which every file may have and the loader makes one, are weak and do not count.
defined_of_llvm() {
  nm -C --defined-only "$@" | grep -E '^[0-9a-f]+ [TDBR] llvm::' || true
}

# The installed program finds its libraries.
"$prefix/bin/tarka" --version

rm -rf "$work"
cmake -S "$source" -B "$work" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_CXX_COMPILER="$compiler" \
  -DTarka_LLVM="$llvm" >/dev/null
cmake --build "$work"
"$work/consumer" | tee "$work/output"
grep -q 'declare void @MAIN' "$work/output" || fail "the module lacks its function"

cat > "$work/dead.cbl" <<'END'
identification division.
program-id. dead.
procedure division.
first-one.
    go to last-one.
in-between.
    display 'never'.
last-one.
    stop run.
END
[ "$("$work/dead" "$work/dead.cbl")" = "6 in-between" ] || fail "the dead paragraph is not found"

# No library of Tarka brings a copy, and they do need one.
libraries=$(find "$prefix" -name 'libtarka*.so')
[ -n "$libraries" ] || fail "no installed libraries"
for library in $libraries; do
  [ -z "$(defined_of_llvm -D "$library")" ] || fail "$library contains LLVM code"
done
nm -DC --undefined-only $libraries | grep -q ' U llvm::' || fail "the libraries refer to nothing of LLVM"

# The one copy is where it was asked for.
copies=$(ldd "$work/consumer" | grep -c libLLVM || true)
own=$(defined_of_llvm "$work/consumer" | wc -l)
echo "LLVM $llvm: $own functions and variables in the program, $copies shared libraries"
case $llvm in
STATIC) [ "$copies" -eq 0 ] && [ "$own" -gt 0 ] || fail "expected the program to have the only copy" ;;
SHARED) [ "$copies" -eq 1 ] && [ "$own" -eq 0 ] || fail "expected libLLVM.so to be the only copy" ;;
esac
