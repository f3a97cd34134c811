#!/bin/sh
# usage: run.sh TARKA DIRECTORY {nvim|emacs}
# Runs the editor with what editors/ has for it; the editor is installed where it is missing.
set -eu
tarka=$1 directory=$2 editor=$3
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
case $editor in
  nvim) command -v nvim >/dev/null || "$root/scripts/setup.sh" neovim ;;
  emacs) dpkg-query -W elpa-eglot >/dev/null 2>&1 || "$root/scripts/setup.sh" emacs-nox elpa-eglot ;;
esac

rm -rf "$directory" && mkdir -p "$directory/home" "$directory/program" && cd "$directory/program"
cp "$here"/../Lsp/Inputs/*.c[bp][ly] .
printf 'cics = true\nsql = true\n' > tarka.toml
printf '%7sIDENTIFICATION DIVISION.\n%7sPROGRAM-ID. WRONG.\n%7sPROCEDURE DIVISION.\n%11sDISPLAY 1\n%11sDISPLAY NOWHERE.\n' > WRONG.cbl
export HOME="$directory/home" XDG_CONFIG_HOME="$directory/home" XDG_DATA_HOME="$directory/home" \
  XDG_STATE_HOME="$directory/home" TARKA="$tarka" PATH="$(dirname "$tarka"):$PATH"
case $editor in
  nvim)
    timeout 120 nvim --headless -u NONE -i NONE --cmd "set rtp^=$root/editors/vim" \
      -c "luafile $root/editors/nvim/tarka.lua" -c "lua
        local ok, fault = pcall(dofile, '$here/nvim.lua')
        if not ok then io.stderr:write(fault .. '\n') end
        vim.cmd('cquit 1')" ;;
  emacs)
    timeout 120 emacs --batch --no-init-file --no-splash \
      --eval "(setq package-directory-list (list \"/usr/share/emacs/site-lisp/elpa\"))" -L "$root/editors/emacs" -l "$here/emacs.el" ;;
esac
