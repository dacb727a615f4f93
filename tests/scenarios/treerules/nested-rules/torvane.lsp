; Actions that run rules, change the running list, read trees, or keep what does not last.
(load base.lsp)
; The inner walk has its own place; the outer one goes on where it stood.
(echo -- an inner walk)
(def-tree-rules inner (down (node (is C)) (prog (say "<") (say-node) (detach-node (match)) (say "> "))))
(def-tree-rules outer
  (down shallow (node (cat)) (prog (say-node) (if (match (is C)) (prog (over-tree inner) (detach-node (match)) (t)))))
  (down (node (cat)) (say-node)))
(run outer)
(echo -- a list that runs itself)
(def-tree-rules itself)
(def-tree-rules itself (up (node (is A)) (prog (say "+") (over-tree itself))))
(run itself)
(echo "-- lists that are emptied, that grow, and that are made anew, each run twice")
(def-tree-rules emptied
  (up (node (cat)) (prog (say-node) (exec-commands (clear-tree-rules emptied)) (t)))
  (up (node (cat)) (say "never")))
(run emptied) (run emptied)
(def-tree-rules grows (root (exec-commands (def-tree-rules grows (root (say "later "))))))
(run grows) (run grows)
(def-tree-rules renewed (root (exec-commands (clear-tree-rules renewed) (def-tree-rules renewed (root (say "new "))))) (root (say "never")))
(run renewed) (run renewed)
; A match lasts as long as its action, a node as long as its tree.
(echo -- what a variable keeps)
(declare-var m) (declare-var n)
(def-tree-rules keeping
  (up (tree (is C) (node (is D))) (prog (setq m (list (ident))) (setq m (ident)) (setq n (match 1)) (say "in: ") (comp (get-val m) (match 1 (cat (print-str :suffix " "))))))
  (up (node (is E)) (prog (say "after: ") (comp (get-val m) (is-nil) (int2str) (print-str :suffix " "))
    (comp (get-val n) (cat) (print-str :suffix " ")) (comp (get-val m) (match)) (comp (get-val m) (detach-node (get-val n))))))
(run keeping)
(eval (prog (comp (get-val m) (is-nil) (int2str) (print-str)) (comp (get-val n) (is-nil) (int2str) (print-str :suffix "\n"))))
(def-tree-rules flat-keeping
  (flat ((node (is C)) (node (is F))) (setq m (match)))
  (flat ((setq m (node (is C))) (node (comp (get-val m) (match (cat (print-str :suffix " ")))))) (say "flat")))
(run flat-keeping)
