; A type that lacks what the parser looks for, or gives it another class.
(load base.lsp)
(lex words (boy (avm ((cat n)))))
(a-parser () ())
(def-category N) (roots (N))
(echo -- a parse all the same) (p3 "boy")
