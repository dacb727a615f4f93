(load again.lsp)
(load again.lsp)
(load other.lsp)
