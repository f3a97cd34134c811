-- Tarka in Neovim 0.7 and later. Put this file into ~/.config/nvim/plugin/.

vim.api.nvim_create_autocmd({ 'BufRead', 'BufNewFile' }, {
  pattern = { '*.cbl', '*.cob', '*.cobol', '*.pco', '*.cpy', '*.copy', '*.CBL', '*.COB', '*.CPY' },
  callback = function() vim.bo.filetype = 'cobol' end,
})

local clients = {} -- by directory, for Neovim 0.7

local function start(config, buffer)
  if vim.lsp.start then
    return vim.lsp.start(config, { bufnr = buffer })
  end
  clients[config.root_dir] = clients[config.root_dir] or vim.lsp.start_client(config)
  vim.lsp.buf_attach_client(buffer, clients[config.root_dir])
end

vim.api.nvim_create_autocmd('FileType', {
  pattern = 'cobol',
  callback = function(event)
    local directory = vim.fn.fnamemodify(event.file, ':p:h')
    local found = vim.fn.findfile('tarka.toml', directory .. ';')
    start({
      name = 'tarka',
      cmd = { vim.g.tarka or 'tarka', 'lsp' },
      root_dir = found ~= '' and vim.fn.fnamemodify(found, ':p:h') or directory,
    }, event.buf)
    -- Names of COBOL have hyphens; completion is Ctrl-X Ctrl-O.
    vim.bo[event.buf].iskeyword = '@,48-57,-,_'
    vim.bo[event.buf].omnifunc = 'v:lua.vim.lsp.omnifunc'
    local function map(keys, action)
      vim.keymap.set('n', keys, action, { buffer = event.buf })
    end
    map('K', vim.lsp.buf.hover)
    map('gd', vim.lsp.buf.definition)
    map('gr', vim.lsp.buf.references)
    map('<F2>', vim.lsp.buf.rename)
    map('<F8>', vim.lsp.buf.code_action)
  end,
})
