#!/bin/sh
# Usage: run.sh TARKA EXAMPLES WORKDIR
# Writes SARIF logs and has them validated by Microsoft's tool, which npm installs below WORKDIR once.
set -eu
tarka=$1 examples=$2 work=$3
version=5.7.0

fail() {
  echo "sarif: $1" >&2
  exit 1
}

for command in node npm; do
  command -v $command >/dev/null || fail "$command is missing; the Debian packages nodejs and npm have it"
done
mkdir -p "$work"
# No report comes from the user's cache.
export XDG_CACHE_HOME=/dev/null
tool=$work/node_modules/@microsoft/sarif-multitool
if ! grep -qs "\"version\": \"$version\"" "$tool/package.json"; then
  npm install --no-audit --no-fund --loglevel=error --prefix "$work" "@microsoft/sarif-multitool@$version" ||
    fail "npm could not install the validator"
fi
# npm may be set up not to run the script that does this.
chmod u+x "$tool"-linux/Sarif.Multitool
# It wants no tables of languages, which a bare system does not have.
export DOTNET_SYSTEM_GLOBALIZATION_INVARIANT=1

validate() {
  "$work/node_modules/.bin/sarif-multitool" validate "$@" >"$work/validation" 2>&1 || true
  grep -q 'Analysis completed successfully' "$work/validation" || { cat "$work/validation"; fail "the validator failed"; }
}
accept() {
  validate "$@"
  if grep ': error ' "$work/validation"; then fail "$* is not valid"; fi
}

# Errors and warnings, subjects, fixes and a file that cannot be read.
cd "$examples"
"$tarka" check --format=sarif --output "$work/examples.sarif" \
  update/CUSTUPDX.cbl premium/PREMIUMX.cbl inquiry/*X.cbl no-such-file.cbl 2>/dev/null || true

# Notes, a copybook that several programs share, names of files that URIs must escape.
mkdir -p "$work/odd names"
cd "$work/odd names"
cat >"a copybook.cpy" <<'END'
       01  g.
           05  twice pic x.
       01  h.
           05  twice pic x.
END
for name in "first äö#1.cbl" "second%20.cbl"; do
  cat >"$name" <<'END'
       identification division.
       program-id. p.
       data division.
       working-storage section.
           copy "a copybook.cpy".
           copy "a copybook.cpy".
       procedure division.
           display twice "日本", missing.
           goback.
END
done
"$tarka" check --format=sarif --output "$work/odd.sarif" ./*.cbl || true

# More results than a log takes.
{
  printf '       identification division.\n       program-id. p.\n       procedure division.\n'
  i=0
  while [ $i -lt 20005 ]; do
    echo "           display missing."
    i=$((i + 1))
  done
} >many.cbl
"$tarka" check --all --format=sarif --output "$work/many.sarif" many.cbl || true
results=$(grep -c '"ruleId"' "$work/many.sarif" "$work/many-2.sarif" | tr '\n' ' ')
case $results in
*many.sarif:20000*many-2.sarif:5*) ;;
*) fail "results are not split: $results" ;;
esac

accept "$work/examples.sarif" "$work/odd.sarif" "$work/many-2.sarif"

# The validator does find what is wrong.
sed '0,/"startLine": [0-9]*/s//"startLine": 0/' "$work/examples.sarif" >"$work/wrong.sarif"
validate "$work/wrong.sarif"
grep -q ': error ' "$work/validation" || fail "the validator accepts a wrong log"
