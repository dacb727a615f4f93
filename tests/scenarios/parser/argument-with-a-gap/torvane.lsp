; An argument that lacks something of its own leaves an empty category.
(load base.lsp)
(lex words
  (uh (avm ((cat j)))) (easy (avm ((cat a) (args ((cat v) (move ((slash np))))))))
  (climb (avm ((cat v) (move ((slash np) (role obj)))))))
(default-percolating-atts (move))
(def-category V (visible-atts (cat move))) (def-category Conn) (def-category A)
(def-modifiers A (:head))
(roots (A))
(sentence "the argument of" "uh easy climb")
