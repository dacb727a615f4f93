; A type that lacks what the parser looks for, or gives it another class.
(load base.lsp)
(lex words (boy (avm ((cat n)))))
(def-category N) (roots (N))
(echo -- a parse all the same) (p3 "boy")
