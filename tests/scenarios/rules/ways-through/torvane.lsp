; Of all the ways to lay out a sequence only those count that its constraint lets pass; the others are too many.
(load base.lsp)
(lex L (x (avm ((cat a))) (avm ((cat c))) (avm ((cat d))) (avm ((cat i))) (avm ((cat j))) (avm ((cat n))) (avm ((cat p))) (avm ((cat v)))))
(defun is-v () (comp (litem) (att) (contain ((cat v)))))
(def-rules R
  (one-way (seq (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t))
      (constraint (and ($ 1 (is-v)) ($ 2 (is-v)) ($ 3 (is-v)) ($ 4 (is-v)) ($ 5 (is-v)) ($ 6 (is-v)))))
    (show-span))
  (all-ways (seq :overlapping (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t))) (nil)))
(sentence "a way among many:" "x x x x x x x")
