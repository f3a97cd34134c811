#!/bin/sh
# Prints how many lines the tests have for the code that they test, and fails when they are more
# than a third of it. CI prints the last line.
#
# Code is what is built into the product: include/, lib/, tools/ and editors/. Tests are unittests/,
# test/ and the tests that an editor's extension keeps in editors/NAME/test. Explanations,
# documentation, examples, fuzzers, benchmarks and scripts are neither.
set -e
cd "$(dirname "$0")/.."

lines() {
  find "$@" -type f \( -name '*.h' -o -name '*.cpp' -o -name '*.def' -o -name '*.py' -o -name '*.sh' \
    -o -name '*.js' -o -name '*.ts' -o -name '*.lua' -o -name '*.el' -o -name '*.vim' \
    -o -name '*.cbl' -o -name '*.cob' -o -name '*.cpy' -o -name '*.bms' -o -name '*.test' \) \
    -not -path '*/node_modules/*' -exec cat {} + | wc -l
}

code=include\ lib\ tools
tests=unittests\ test
for editor in editors/*/; do
  [ -d "$editor" ] && code="$code $editor"
  [ -d "$editor/test" ] && tests="$tests $editor/test"
done

# The tests of an editor lie within its folder, so they are counted with the code first.
all=$(lines $code)
tested=$(lines $tests)
inside=$([ -z "${tests#unittests test}" ] && echo 0 || lines ${tests#unittests test})
code=$((all - inside))
echo "Proportion: $tested lines of tests for $code lines of code, $((100 * tested / code)) %; at most 33 %"
[ $((3 * tested)) -le "$code" ]
