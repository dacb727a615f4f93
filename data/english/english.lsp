; English for `torvane parse`: the grammar of torvane.lsp, with what others call its words.
(load torvane.lsp english/universal.lsp english/features.lsp english/words.lsp english/contractions.lsp
      english/sentences.lsp)
