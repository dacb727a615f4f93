; The chunks of the first forty sentences of the list that scores the grammar.
(load data/torvane.lsp)
(load data/english/chunks.lsp)
(set-deps-modifier english-parser chunks)
(load sentences.lsp)
(exit)
