; The style of `torvane count`: a row for each dependency, under the names that the parser asks a database for.
(load english/triples.lsp)
(set-deps-modifier english-parser parser-triples)
