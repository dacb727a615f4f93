; A noun without case needs a governor.
(load base.lsp)
(lex words
  (h (avm ((cat v)))) (k (avm ((cat v) +cm))) (g (avm ((cat v) -govern))) (m (avm ((cat n) -cm)))
  (of (avm ((cat p) -cm))))
(default-percolating-atts (cm))
(def-category N (visible-atts (cm))) (def-category P) (def-category V)
(def-modifiers V (:head) (? (N (dep-type obj))))
(def-modifiers P (:head) (? (N (dep-type obj) (percolate ()))))
(roots (V) (P))
(sentence "a verb:" "h m")
(sentence "a verb with case:" "k m")
(sentence "a verb that does not govern:" "g m")
(sentence "a preposition:" "of m")
