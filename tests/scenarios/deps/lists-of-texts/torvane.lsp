; What `list` gives, a list behind an entry without a value; an empty category, a parent without one.
(print-deptree-weight 0) (print-governor 0)
(defmacro at (cat-is) (find-first-node (comp (cat) (str= cat-is))))
(define-attribute texts StrListValue)
(def-tree-rules odd (root (prog
  (comp (at N) (set-prop (texts (list (cat) (str "b c") (int 3) (nil))) (texts (list)) (texts (int 3))))
  (comp (at V) (set-prop (texts (nil))) (add-to-dep-prop-list texts (cat)) (add-to-dep-prop-list texts (str d)))
  (print-dep-tree))))
(eval (read-and-modify-deps odd (comp (str odd.txt) (open-file))))
