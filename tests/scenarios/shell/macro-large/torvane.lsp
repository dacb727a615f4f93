; A macro with a very large body, and one with very many arguments.
(load big.lsp)
