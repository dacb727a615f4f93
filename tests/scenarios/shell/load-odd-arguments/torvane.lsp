; What load takes as names of files.
(load)
(load () (a b) missing.lsp folder good.lsp "")
(LOAD good.lsp)
(load "$(NOSUCH_VARIABLE)good.lsp" "good$(NONE).lsp$(NONE)" "$GOOD.lsp" "$(GOOD.lsp")
