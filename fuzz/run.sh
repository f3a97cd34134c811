#!/bin/sh
# run.sh FUZZER SECONDS [smoke]
# Runs one fuzzer. Findings are stored in its build directory in findings/, and its corpus in corpus/,
# which the next run continues. A smoke run uses neither the corpus nor random choices.
set -eu
fuzzer=$1 seconds=$2
cd "$(dirname "$fuzzer")"
name=$(basename "$fuzzer")
corpus=corpus/$name
mkdir -p "$corpus" findings
export ASAN_OPTIONS=detect_leaks=0:strict_string_checks=1:handle_abort=1:max_allocation_size_mb=2048
export UBSAN_OPTIONS=print_stacktrace=1

if [ "${3:-}" = smoke ]; then
  rm -rf "$corpus-smoke" && mkdir "$corpus-smoke"
  set -- "$corpus-smoke" -seed=1 -max_len=4096
else
  set -- "$corpus" -max_len=32768
fi
# The main thread does the runs; give it the stack that the program gives its own.
ulimit -s 1000000 2>/dev/null || true
end=$(($(date +%s) + seconds))
# A process ends when it has used up its memory; the next goes on with what it has learnt.
while left=$((end - $(date +%s))) && [ "$left" -gt 0 ]; do
  "./$name" "$@" -seed_inputs=@seeds -dict=cobol.dict -timeout=20 -rss_limit_mb=3072 \
    -artifact_prefix="findings/$name-" -max_total_time="$left" \
    -print_final_stats=1
done
