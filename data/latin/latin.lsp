; A small Latin grammar, for `torvane parse --grammar latin`. docs/another-language.md tells how it came about.
(load latin/attributes.lsp
      latin/words.lsp
      latin/inflection.lsp
      latin/parser.lsp
      latin/nouns.lsp
      latin/clauses.lsp
      latin/universal.lsp)
