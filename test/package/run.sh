#!/bin/bash
# Usage: run.sh BUILD WORKDIR SOURCE COMPILER
# Packs the build as a Debian package, unpacks it into an empty tree, and uses everything in it there.
set -eu
build=$1 work=$2 source=$3 compiler=$4

fail() {
  echo "package: $1" >&2
  exit 1
}

rm -rf "$work"
mkdir -p "$work/tree"
cd "$work"
# Compressing takes longer than everything else.
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$work" -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip \
  >cpack.log 2>&1 || { cat cpack.log; fail "cpack failed"; }
package=$(echo "$work"/tarka_*.deb)
dpkg-deb -x "$package" tree
tarka=$work/tree/usr/bin/tarka

# The package names all packages that the program's libraries are in. Then the libraries are put into
# the tree, and the program runs there with nothing else.
depends=$(dpkg-deb -f "$package" Depends)
ldd "$tarka" | sed -n 's/.* => \(\/[^ ]*\) .*/\1/p; s/^\t\(\/lib64[^ ]*\) .*/\1/p' >libraries
[ -s libraries ] || fail "the libraries that the program loads are not found"
while read -r library; do
  case $library in "$work"/*) continue ;; esac
  mkdir -p "tree$(dirname "$library")"
  cp -L "$library" "tree$library"
  # With a merged /usr a package may know its files by either name.
  file=$(realpath "$library")
  owner=$(dpkg -S "$file" "${file#/usr}" 2>/dev/null | sed 's/:.*//; q')
  [ -n "$owner" ] || fail "$library belongs to no package"
  echo "$depends" | grep -qw -- "$owner" || fail "$library is of $owner, which is not among: $depends"
done <libraries
cp -r "$source/examples" tree/examples
run() { if [ "$(id -u)" = 0 ]; then chroot tree /usr/bin/tarka "$@"; else (cd tree && "$tarka" "$@"); fi; }
run --version | grep -q '^tarka [0-9]' || fail "tarka --version"
(run check --no-cache examples/update/CUSTUPD.cbl) || fail "the example is not accepted"
status=0
run check --no-cache --format=json examples/update/CUSTUPDX.cbl >report.json || status=$?
[ $status -eq 1 ] && grep -q '"number": 220' report.json || fail "the wrong example ends with $status"

# Every command has its page, and troff has nothing to complain about.
pages=tree/usr/share/man/man1
for command in $("$tarka" --help | sed -n '/^Subcommands:/,$s/^  \([a-z]*\) .*/\1/p') ""; do
  page=$(echo "$pages/tarka${command:+-$command}".1*)
  [ -f "$page" ] || fail "there is no page $page"
  MANROFFSEQ= MANWIDTH=100 man --warnings -E UTF-8 -l "$page" >page.txt 2>warnings.txt || fail "man -l $page"
  [ ! -s warnings.txt ] || { cat warnings.txt; fail "$page has faults"; }
done
man -E UTF-8 -l "$pages"/tarka-check.1* | grep -q -- '--max-errors N' || fail "tarka-check(1) lacks an option"
man -E UTF-8 -l "$pages"/tarka.1* | grep -q 'EXIT STATUS' || fail "tarka(1) lacks the exit status"

# What bash offers for a line whose last word is to be completed.
completions=tree/usr/share/bash-completion/completions/tarka
bash -n "$completions"
cat >complete.bash <<END
source $completions
COMP_WORDS=("\$@"); COMP_CWORD=\$((\$# - 1))
\$(complete -p tarka | sed 's/.*-F \([^ ]*\) .*/\1/') tarka "\${COMP_WORDS[COMP_CWORD]}" "\${COMP_WORDS[COMP_CWORD-1]}"
printf '%s\n' "\${COMPREPLY[@]}"
END
offers() { # the line, and words of which each is offered; -WORD is not
  local line=$1
  shift
  # shellcheck disable=SC2086
  bash complete.bash ${line//_/ } >offered
  [ "${line: -1}" != _ ] || bash complete.bash ${line//_/ } "" >offered
  for word in "$@"; do
    case $word in
    !*) ! grep -qx -- "${word#!}" offered || fail "'$line' offers ${word#!}" ;;
    *) grep -qx -- "$word" offered || { cat offered; fail "'$line' does not offer $word"; } ;;
    esac
  done
}
offers "tarka ch" check "!cfg"
offers "tarka check --for" --format "!--off"
offers "tarka check --format = sa" sarif "!json"
offers "tarka check --format = _" sarif pretty
offers "tarka cfg --format = d" dot
offers "tarka layout --re" --record "!--paragraph"
offers "tarka program.cbl --max" --max-errors
offers "tarka generate _" zsh man
zsh -n tree/usr/share/zsh/vendor-completions/_tarka
# zsh knows the form of the words only when they are used.
zsh -f -c 'autoload -U compinit && compinit -D -u; source '"$work"'/tree/usr/share/zsh/vendor-completions/_tarka' \
  2>&1 | grep -iE 'parse error|invalid' && fail "zsh does not understand the completion"
fish --no-execute tree/usr/share/fish/vendor_completions.d/tarka.fish
XDG_CONFIG_HOME=$work/fish HOME=$work fish -c "source tree/usr/share/fish/vendor_completions.d/tarka.fish; complete -C 'tarka check --format='" \
  >offered
grep -q sarif offered || { cat offered; fail "fish does not offer the forms"; }

# A program that is linked by pkg-config.
export PKG_CONFIG_PATH=$work/tree/usr/lib/pkgconfig
[ "$(pkg-config --modversion tarka)" = "$(dpkg-deb -f "$package" Version)" ] || fail "tarka.pc has another version"
# shellcheck disable=SC2046
"$compiler" -std=c++20 "$source/test/consumer/main.cpp" $(pkg-config --cflags --libs tarka) -o consumer
LD_LIBRARY_PATH=$work/tree/usr/lib ./consumer | grep -q 'declare void @MAIN' || fail "the program linked by pkg-config"
