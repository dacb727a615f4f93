; Files that load themselves and one another without end.
(load again.lsp)
(echo back)
(load other.lsp)
(load again.lsp)
