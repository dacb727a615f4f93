; The English starter grammar. Run from a folder that holds a sentence in "sentense.dat" and this folder
; as "data".

(load english/attributes.lsp
      english/endings.lsp
      english/vocabulary.lsp)

(load english/inflection.lsp
      english/unknown.lsp
      english/context.lsp
      english/movement.lsp
      english/rules.lsp
      english/parser.lsp
      english/predicates.lsp
      english/categories.lsp
      english/conditions.lsp
      english/frames.lsp
      english/nouns.lsp
      english/verbs.lsp
      english/clauses.lsp
      english/text.lsp
      english/conjunction.lsp
      english/roots.lsp)
