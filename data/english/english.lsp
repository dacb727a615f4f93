; English for `torvane parse`: the grammar of torvane.lsp, with what others call its words.
(load torvane.lsp english/universal.lsp english/sentences.lsp)
