; A compound is looked up as it stands and under the keys that the lexicon may have it by.
(load base.lsp)
(lex L ("co-op" (avm ((cat n)))) ("co op" (avm ((cat v)))) ("op, co" (avm ((cat a)))) (coop (avm ((cat p))))
       (art , state of the (avm ((cat a)))) (ice-cream (avm ((cat n)))) (given (avm ((cat d)))))
(def-rules R
  (compound (seq (word (t)) (+ (seq - (word (t))))) (look-up (low) (high)))
  (as-told (word-seq x) (look-up (low) (high) (str given)))
  (nowhere (word-seq x) (prog (look-up (int 0) (int 1)) (look-up (int 2) (int 1)) (look-up (low) (int 70))))
  (show (^) (t))
  (bye (seq :front-to-back (^) (word (t))) (show-items)))
(sentence "hyphens:" "co-op x")
(sentence "a phrase with hyphens:" "state-of-the-art")
(sentence "a key with a hyphen:" "ice-cream")
