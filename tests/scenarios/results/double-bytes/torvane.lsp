; The words of a sentence follow the default of tokenizers as it stands when it is cut.
(load base.lsp)
(echo -- in two bytes)
(double-byte 1)
(p3 "big\195\169boy")
(echo -- in one)
(double-byte 0)
(p3 "big\195\169boy")
