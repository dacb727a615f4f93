; The sentence in chunks: what the marks on nodes make of it, and words that no node holds.
(define-attribute ckroot StrValue) (define-attribute clause StrValue)
(def-tree-rules show (up (node (comp (parent (ident)) (is-nil))) (get-chunk)))
(eval (read-and-modify-deps show (comp (str trees.txt) (open-file))))
