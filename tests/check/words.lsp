(make-lexicon words 101 :ending-table (
  (:conditions ((long) (reg-match "...")))
  (p "" bare)
  (p s s "" long)))
(load-lex words words.lex)
(lex words
  (on (avm ((cat p) (args ((cat n))))))
  (quickly (avm ((cat a) (node Adv)))))
