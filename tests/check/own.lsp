; A small grammar in which tests/check_faults.py puts faults.
(load attributes.lsp words.lsp)
(load rules.lsp)
(load network.lsp)
(load trees.lsp)
