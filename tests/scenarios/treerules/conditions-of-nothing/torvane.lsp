; Conditions on the wordless top of a tree, on what is no node, and on nothing.
(load base.lsp)
(def-tree-rules top (root (prog
  (comp (and (first-child) (last-child)) (num-children) (int2str) (print-str :suffix " "))
  (comp (find-first-node (is A)) (exist-match (tree x (t) (node (t))) :action (prog (match (cat (print-str))) (match 1 (cat (print-str :suffix " "))))))
  (comp (find-first-node (is F)) (exist-match (node (is G)) :action (detach-node (match))))
  (comp (find-first-node (is F)) (num-children) (int2str) (print-str :suffix "\n")))))
(eval (over-tree top))
(eval (comp (str x) (prog (all-children) (exist-decendent) (exist-c-commander) (exist-match) (is-leaf) (parent))))
(eval (comp (str x) (prog (match) (insert-node) (get-chunk))))
(eval (comp (nil) (prog (num-children) (match) (parent (ident)) (get-chunk) (print-attachment-points))))
