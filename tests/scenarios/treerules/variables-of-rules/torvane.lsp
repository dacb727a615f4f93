; A variable is the rule's own: another rule does not see it.
(load base.lsp)
(declare-var v char*)
(def-tree-rules scopes
  (up (node v (is B)) (comp (get-val v) (cat) (print-str :suffix " ")))
  (up (tree v (is C) (node w (is D)))
      (prog (comp (get-val v) (cat) (print-str)) (comp (get-val w) (cat) (print-str :suffix " "))))
  (up (tree v (is C) (node v (t))) (comp (get-val v) (cat) (print-str :suffix " ")))
  (up (node (is A)) (comp (get-val w) (print-str)))
  (up (node x (is A)) (let (x) (prog (setq x (str inner)) (comp (get-val x) (print-str :suffix " "))))))
(run scopes)
