; Files that end within a text, an escape or a form, zero bytes, other line ends, and closing brackets too many.
(load digits.lsp escape.lsp list.lsp)
(load zero.lsp) (load crlf.lsp) (load high.lsp)
)) (echo "still here") ) (exit)
