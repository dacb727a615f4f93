; An item that was given a category weighs what its entry's list says.
(load base.lsp)
(make-str-meaning-proto freq)
(lex words (boy (avm ((cat n))) (freq NN 7.9 VB 3)) (girl (avm ((cat n)))))
(def-rules R (nouns (lexitem (comp (att) (defined (cat)))) (comp (litem) (set-cate (str NN)))))
(def-category N) (roots (N))
(sentence "one in the list, and one without:" "boy girl")
(pn)
