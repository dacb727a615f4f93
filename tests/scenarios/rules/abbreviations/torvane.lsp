; A long name before its abbreviation in brackets, and behind it.
(load base.lsp)
(lex L (uc (avm ((cat n)))) (university (avm ((cat n)))) (tv (avm ((cat n)))))
(def-rules R
  (before (seq "(" (lexitem (t)) ")") (comp (abbrev-def (comp ($ 2) (meaning))) (show-root)))
  (behind (seq :front-to-back "(" (lexitem (t)) ")") (comp (abbrev-with-def (comp ($ 2) (meaning))) (show-root)))
  (nothing (seq "(" (lexitem (t)) ")") (yes-or-no (str "without a meaning") (abbrev-def)))
  (bye (seq :front-to-back (^) (word (t))) (show-items)))
(sentence "behind the long name:" "the University of California (UC) met")
(sentence "one word:" "a Television (TV) set")
(sentence "no long name:" "some words (UC)")
(sentence "before the long name:" "(UC) University at California met")
