; What every adaptor gives for each node of a tree: the top that only holds the others, words, and an
; empty node.
(print-deptree-weight 0) (print-governor 0) (define-attribute ante DepTreeValue)
(defmacro show (what) (comp what (print-str :prefix "|")))
(defmacro number (what) (comp what (int2str) (print-str :prefix "|")))
(defmacro all-of-it ()
  (show (rel)) (show (cat)) (show (node2root)) (show (node2word)) (show (node2minp)) (show (node2maxp))
  (show (node2ante (cat))) (show (node2antecedent (node2word)))
  (number (depnode-low)) (number (depnode-high)) (number (depnode-pos)) (number (dist-to-parent))
  (show (word-before)) (show (word-after)) (show (before-parent (cat)))
  (show (dep-name)) (show (r-dep-name))
  (show (get-child mod (cat))) (show (get-parent obj (cat))) (show (get-parent mod (node2word)))
  (comp (str "\n") (print-str)))
; A condition that never holds visits every node.
(def-tree-rules each (root (find-first-node (prog (all-of-it) (nil)))))
(eval (read-and-modify-deps each (input trees.txt)))
