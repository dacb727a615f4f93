; A small German grammar, for `torvane parse --grammar german`. docs/another-language.md tells how it came about.
(load german/attributes.lsp
      german/words.lsp
      german/inflection.lsp
      german/parser.lsp
      german/nouns.lsp
      german/clauses.lsp
      german/universal.lsp)
