; The English starter grammar. Run from a folder that holds a sentence in "sentense.dat" and this folder
; as "data".

(load english/attributes.lsp
      english/endings.lsp)

(load-lex english english/closed.lex     :no-dup 0)
(load-lex english english/nouns.lex      :no-dup 0)
(load-lex english english/names.lex      :no-dup 0)
(load-lex english english/verbs.lex      :no-dup 0)
(load-lex english english/irregular.lex  :no-dup 0)
(load-lex english english/adjectives.lex :no-dup 0)
(load-lex english english/adverbs.lex    :no-dup 0)
(load-lex english english/phrases.lex    :no-dup 0)

(load english/inflection.lsp
      english/unknown.lsp
      english/movement.lsp
      english/rules.lsp
      english/parser.lsp
      english/categories.lsp
      english/conditions.lsp
      english/nouns.lsp
      english/verbs.lsp
      english/clauses.lsp
      english/conjunction.lsp
      english/roots.lsp)
