; A word of a phrase without a reading of its own hangs below the phrase's head word.
(load base.lsp)
(lex words (end, "the very," (avm ((cat n)))))
(p3 "New York boys")
(p3 "the New York")
