; Trees of 30000 nodes, in a line and side by side: no pattern, search or edit runs out of stack.
(defmacro over (rules file) (eval (read-and-modify-deps rules (comp (str file) (open-file)))))
(def-tree-rules deep
  (down shallow (t+ (node x (cat))) (prog (forall-subtree-matches v (get-val v)) (comp (get-val v) (depnode-pos) (int2str) (print-str :suffix "\n")) (t)))
  (root (comp (exist-decendent (not (exist-child))) (self-or-exist-ancestor (not (rel))) (depnode-pos) (int2str) (print-str :suffix "\n")))
  (root (comp (find-first-node (comp (depnode-pos) (eq (ident) (int 29999))))
     (exist-c-commander-or-ancestor (comp (depnode-pos) (eq (ident) (int 1)))) (depnode-pos) (int2str) (print-str :suffix "\n")))
  (root (comp (exist-decendent (not (exist-child))) (tree-root) (num-children) (int2str) (print-str :suffix "\n")))
  (up (node (not (exist-child))) (detach-node (match)))
  (root (comp (num-children) (int2str) (print-str :suffix "\n"))))
(echo -- in a line) (over deep path.txt)
(echo -- side by side)
(over deep fan.txt)
(def-tree-rules moving
  (down (tree (rel) (node (t))) (invert-dep (match 1))))
(over moving short-path.txt)
(def-tree-rules adopting (root (comp (exist-child) (exist-child) (exist-match (node (t)) :action (adopt-following (match))))))
(over adopting fan.txt)
