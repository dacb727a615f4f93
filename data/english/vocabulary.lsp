; The vocabulary, a file a kind. script/lexicon makes a folder of grammars in which a large lexicon stands here.
(load-lex english english/closed.lex     :no-dup 0)
(load-lex english english/nouns.lex      :no-dup 0)
(load-lex english english/names.lex      :no-dup 0)
(load-lex english english/verbs.lex      :no-dup 0)
(load-lex english english/irregular.lex  :no-dup 0)
(load-lex english english/adjectives.lex :no-dup 0)
(load-lex english english/adverbs.lex    :no-dup 0)
(load-lex english english/phrases.lex    :no-dup 0)
