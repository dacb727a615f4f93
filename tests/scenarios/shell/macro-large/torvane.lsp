(load big.lsp)
(exit)
