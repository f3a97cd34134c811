-- Neovim with editors/nvim/tarka.lua on a program with copybooks, CICS and SQL. Run by run.sh in a
-- directory with the program; the first failure ends Neovim with an error.

local function check(holds, what)
  if not holds then
    io.stderr:write('nvim: ' .. what .. '\n')
    vim.cmd('cquit 1')
  end
end

local function wait(what, holds)
  check(vim.wait(20000, holds, 20), what)
end

local function at(pattern, offset)
  vim.fn.cursor(1, 1)
  check(vim.fn.search(pattern, 'W') > 0, 'no ' .. pattern)
  if offset then
    vim.cmd('normal! ' .. offset .. 'l')
  end
end

local function ask(method, extra)
  local params = vim.tbl_extend('force', vim.lsp.util.make_position_params(), extra or {})
  local answers = vim.lsp.buf_request_sync(0, method, params, 20000) or {}
  local _, answer = next(answers)
  return answer and answer.result
end

local function line(number)
  return vim.api.nvim_buf_get_lines(0, number - 1, number, false)[1]
end

vim.cmd('edit ORDERS.cbl')
check(vim.bo.filetype == 'cobol', 'the filetype is ' .. vim.bo.filetype)
wait('no server', function() return #vim.lsp.buf_get_clients(0) > 0 end)

-- Diagnostics come and go with the text.
at('MOVE WS-NAME')
local row = vim.fn.line('.')
local before = line(row)
vim.api.nvim_buf_set_lines(0, row - 1, row, false, { '           MOVE WS-NAMEX TO LK-NAME' })
wait('no diagnostic', function() return #vim.diagnostic.get(0) == 1 end)
local diagnostic = vim.diagnostic.get(0)[1]
check(diagnostic.lnum == row - 1 and diagnostic.col == 16, vim.inspect(diagnostic))
vim.api.nvim_buf_set_lines(0, row - 1, row, false, { before })
wait('the diagnostic stays', function() return #vim.diagnostic.get(0) == 0 end)

at('STATUS-OK AND', 2)
check(ask('textDocument/hover').contents.value:find('88 STATUS%-OK'), 'hover')
at('PERFORM SHOW-IT', 9)
vim.lsp.buf.definition()
wait('definition', function() return line(vim.fn.line('.')):find('^ +SHOW%-IT%.') end)
at('01  WS-COUNT', 5)
check(#ask('textDocument/references', { context = { includeDeclaration = true } }) == 3, 'references')

at('MOVE WS-NAME', 12)
vim.api.nvim_set_current_line('           MOVE WS-COU')
vim.cmd('startinsert!')
vim.fn.cursor(vim.fn.line('.'), 23)
local items = ask('textDocument/completion').items
check(items[1].label == 'WS-COUNT', 'completion: ' .. vim.inspect(items))
vim.cmd('stopinsert')
vim.api.nvim_set_current_line(before)

at('01  WS-COUNT', 5)
vim.lsp.buf.rename('WS-NUMBER')
wait('rename', function()
  return vim.fn.search('CALL .HELPER. USING WS-NUMBER', 'nw') > 0
end)

-- Without a server: the compiler plugin fills the quickfix list.
vim.cmd('edit! WRONG.cbl | compiler tarka | silent make!')
local found = vim.tbl_filter(function(entry) return entry.valid == 1 end, vim.fn.getqflist())
check(#found == 1 and found[1].lnum == 5 and found[1].type == 'e', vim.inspect(vim.fn.getqflist()))
vim.cmd('qall!')
