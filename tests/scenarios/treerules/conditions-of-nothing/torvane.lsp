; Conditions on the wordless top of a tree, on what is no node, and on nothing.
(load base.lsp)
(def-tree-rules top (root (prog
  (comp (and (first-child) (last-child)) (num-children) (int2str) (print-str :suffix " "))
  (comp (find-first-node (is A)) (exist-match (tree x (t) (node (t))) :action (prog (match (cat (print-str))) (match 1 (cat (print-str :suffix " "))))))
  (comp (find-first-node (is F)) (exist-match (node (is G)) :action (detach-node (match))))
  (comp (find-first-node (is F)) (num-children) (int2str) (print-str :suffix "\n")))))
(eval (over-tree top))
(eval (comp (str x) (prog (all-children) (self-or-exist-ancestor) (exist-decendent) (exist-c-commander)
  (exist-c-commander-or-ancestor) (exist-match) (first-child) (last-child) (is-leaf) (parent) (tree-root))))
(eval (comp (str x) (prog (match) (forall-subtree-matches v (t)) (insert-node) (get-chunk) (print-attachment-points))))
(eval (comp (nil) (prog (num-children) (match) (parent (ident)) (get-chunk) (print-attachment-points))))
