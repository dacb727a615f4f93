(load digits.lsp escape.lsp list.lsp)
(load zero.lsp) (load crlf.lsp) (load high.lsp)
)) (echo "still here") ) (exit)
