(load big.lsp)
