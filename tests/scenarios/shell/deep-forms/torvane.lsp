; Forms of a million brackets, whole and cut off.
(load balanced.lsp) (load open.lsp) (load heads.lsp) (load closed.lsp)
(echo done)
