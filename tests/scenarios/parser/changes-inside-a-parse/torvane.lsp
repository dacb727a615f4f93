; What runs inside a parse cannot start another, nor change the network.
(load base.lsp)
(lex words (boy (avm ((cat n) (num sg)))) (boys (avm ((cat n) (num pl)))))
(def-category N (full-pitem-cond
  (or (exec-commands (p boy) (reset-parser) (def-modifiers N (:head) (? (N)))) (t))))
(roots (N))
(sentence "three commands are refused:" "boy")
(sentence "and again:" "boys")
