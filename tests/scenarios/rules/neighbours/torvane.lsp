; What stands beside the match, in a span, over it, across its edges.
(load base.lsp)
(lex L (a (avm ((cat n)))) (b (avm ((cat n)))) (c (avm ((cat v)))) (d (avm ((cat n)))))
(declare-var found char*)
(def-rules R
  (bc (seq (lexitem (comp (root) (str= b))) (lexitem (comp (root) (str= c))))
      (assert (make-lexitem (low) (high) (comp ($ 1) (meaning)) :root bc)))
  (beside a (prog
    (say (str "beside a"))
    (comp (followed-by (pred (t))) (show-root))
    (comp (followed-by (pred (comp (root) (str= c)))) (show-root))
    (yes-or-no (str "followed by b") (followed-by-word (pred (str= B))))
    (yes-or-no (str "followed by c") (followed-by-word (pred (str= c))))
    (yes-or-no (str "preceded") (preceded-by-word (pred (t))))))
  (beside d (prog
    (say (str "beside d"))
    (comp (followed-by (pred (t))) (show-root))
    (yes-or-no (str "followed") (followed-by-word))
    (yes-or-no (str "preceded by c") (preceded-by-word (pred (str= c))))))
  (spans a (prog
    (say (str "in spans"))
    (comp (setq found (exist-word-in-sentence (int 1) (int 4) (pred (in (c d))))) (show))
    (yes-or-no (str "the last position is not looked at") (exist-word-in-sentence (int 1) (int 4) (pred (str= d))))
    (comp (exist-covering-lexitem (int 2) (int 2) (pred (int-gt (lexitem-length) (int 1)))) (show-root))
    (comp (exist-covering-lexitem (int 1) (int 2) (pred (t))) (show-root))
    (comp (exist-overlapping-lexitem (int 3) (int 4) (pred (t))) (show-root))
    (comp (exist-overlapping-lexitem (int 1) (int 2) (pred (t))) (show-root))
    (comp (exist-overlapping-lexitem (int 2) (int 3) (pred (t))) (show-root)))))
(sentence "four words and a compound:" "a b c d")
