; A sentence with one tree gets another root, and what comes later sees it.
(load base.lsp)
(print-deptree-weight 0) (print-governor 0)
(def-tree-rules turned
  (down (node (is C)) (prog (invert-dep (match)) (t)))
  (down (tree (is A) (node (is C))) (invert-dep (match 1)))
  (root (show)))
(def-tree-rules turned-text
  (down (tree (is A) (node c (is C))) (prog (invert-dep (match 1)) (comp (match) (deps) (print-deps)))))
(run turned)
(echo -- as text) (eval (over-tree turned-text))
; A root that has no parent may move.
(echo -- the root moves)
(def-tree-rules moved-root
  (root (exist-match (node (is C)) :action (prog (invert-dep (nil)) (detach-node (match)))))
  (root (all-children (prog (show) (t)))))
(run moved-root)
(echo -- a new root above it)
(declare-var c)
(def-tree-rules new-root
  (up (node (is C)) (setq c (comp (match) (ident))))
  (up (node (is C)) (detach-node (match)))
  (root (exist-match (node (parent (is-nil))) :action (insert-node (match) (get-val c))))
  (root (prog (cat (print-str :suffix "\n")) (all-children (prog (if (cat) (show)) (t))) (deps (print-deps)))))
(eval (over-tree new-root))
