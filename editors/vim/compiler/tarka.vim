" Tarka in Vim without a language server: put this file into ~/.vim/compiler/, then
" :compiler tarka   and   :make   check the file and fill the quickfix list.
if exists('current_compiler')
  finish
endif
let current_compiler = 'tarka'

CompilerSet makeprg=tarka\ check\ --format=gcc\ %:S
CompilerSet errorformat=%f:%l:%c:\ fatal\ %trror:\ %m,%f:%l:%c:\ %trror:\ %m,%f:%l:%c:\ %tarning:\ %m,%f:%l:%c:\ %tote:\ %m,tarka:\ %m
