(load "$(HOME_OF_CASE)a.lsp" "a$(NONE).lsp$(NONE)")
(exit)
