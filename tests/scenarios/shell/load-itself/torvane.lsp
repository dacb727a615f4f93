(load again.lsp)
(echo back)
(load other.lsp)
(load again.lsp)
