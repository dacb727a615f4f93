; An argument whose gap is filled by its head leaves an empty node and a trace; the names of the empty
; category are the parser's.
(load base.lsp)
(def-torvane-parser second :attribute-vector-type syn :lexical-attributes (lexitem)
  :show-attributes () :default-percolating-attributes (move) :weights-of-words (int 0)
  :lexical-analyzer analyser :empty-category Gap :empty-category-rel gap :hashtable-size 11)
(lex words (easy (avm ((cat a) (args ((cat v) (move ((slash np))))))))
  (climb (avm ((cat v) (move ((slash np) (role obj)))))))
(def-category V (visible-atts (cat move))) (def-category A)
(def-modifiers A (:head))
(roots (A))
(p3 "easy climb")
(exit)
