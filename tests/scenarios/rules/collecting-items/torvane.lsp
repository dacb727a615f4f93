; One match with items that tile the sentence from the right.
(load base.lsp)
(lex L (a (avm ((cat n)))) (b (avm ((cat n)))) (c (avm ((cat n)))))
(def-rules R
  (two (seq (lexitem (comp (root) (str= a))) (lexitem (comp (root) (str= b))))
       (assert (make-lexitem (low) (high) (comp ($ 1) (meaning)) :root ab)))
  (any (collect-lexitems) (prog (show-span) (foreach-match-component (comp (litem) (show-root)))))
  (long (collect-lexitems (int-eq (lexitem-length) (int 2)))
        (prog (show-span) (foreach-match-component (show-span))))
  (anchored (seq (collect-lexitems)) (say (str wrong))))
(load run.lsp)
(p3 "a b x a b c")
(exit)
