#!/bin/sh
# run.sh FUZZER SECONDS: runs one fuzzer for a time. Findings are stored in its build directory in
#   findings/, and its corpus in corpus/, which the next run continues.
# run.sh FUZZER smoke RUNS: the same inputs on every machine, so that the tests of a change fail for
#   that change. Exploring is what the first form is for.
set -eu
fuzzer=$1
cd "$(dirname "$fuzzer")"
name=$(basename "$fuzzer")
corpus=corpus/$name
mkdir -p "$corpus" findings
export ASAN_OPTIONS=detect_leaks=0:strict_string_checks=1:handle_abort=1:max_allocation_size_mb=2048
export UBSAN_OPTIONS=print_stacktrace=1
# The main thread does the runs; give it the stack that the program gives its own.
ulimit -s 1000000 2>/dev/null || true

fuzz() {
  "$@" -seed_inputs=@seeds -dict=cobol.dict -timeout=20 -rss_limit_mb=3072 \
    -artifact_prefix="findings/$name-" -print_final_stats=1
}

if [ "$2" = smoke ]; then
  rm -rf "$corpus-smoke" && mkdir "$corpus-smoke"
  # Hash tables order pointers, and so the addresses decide what counts as new coverage.
  fixed=
  setarch -R true 2>/dev/null && fixed="setarch -R"
  fuzz $fixed "./$name" "$corpus-smoke" -seed=1 -max_len=4096 -runs="$3"
  exit
fi

end=$(($(date +%s) + $2))
# A process ends when it has used up its memory; the next goes on with what it has learnt.
while left=$((end - $(date +%s))) && [ "$left" -gt 0 ]; do
  fuzz "./$name" "$corpus" -max_len=32768 -max_total_time="$left"
done
