; Whatever the text of a tree is, every form takes what was read of it. The last tree of the file is
; cut off, and no tree.
(print-deptree-weight 0) (define-attribute number IntValue) (define-attribute text StrValue)
(define-attribute texts StrListValue) (define-attribute ante DepTreeValue)
(defmacro quietly (what) (comp what (is-nil)))
(def-tree-rules each (root (prog
  (comp (deps) (save-deps (nil) (output out.txt)))
  (find-first-node (prog
    (quietly (node2root)) (quietly (node2word)) (quietly (node2maxp (str= none))) (quietly (dep-name)) (quietly (word-before)) (quietly (word-after))
    (quietly (node2ante (node2ante (cat)))) (quietly (get-antecedent (nil))) (quietly (get-prop number)) (quietly (get-prop (texts (a)))) (dist-to-parent)
    (comp (depnode-pos) (int-gt (ident) (int 2)))))
  (print-sub-deps (nil) (output out.txt)) (print-context (output out.txt))
  (find-first-node (prog (print-rel (nil) (output out.txt)) (minimal-across (str= none)) (set-prop (text (node2minp))) (comp (depnode-pos) (int-gt (ident) (int 50)))))
  (comp (find-first-node (comp (rel) (str= x))) (expand-node) (reattach-node (get-child x)))
  (comp (deps) (concat-depwords) (print-str :suffix "\n" (output words.txt))) (comp (str read) (print-str :suffix " ")))))
(eval (read-and-modify-deps each (comp (str trees.txt) (open-file))))
(eval (read-and-modify-deps each (comp (str no-such-file) (open-file))) (read-and-modify-deps no-rules) (read-and-modify-deps)
      (read-and-modify-deps each (str text)) (read-and-modify-deps each))
(defmacro read (text) (comp (str text) (str2deps (print-deps)) (is-nil) (int2str) (print-str :suffix " ")))
(eval (comp (str "\n") (print-str)) (read "") (read " ") (read atom) (read ")") (read "()") (read "((a") (read "(:id s a (b c d e f") (read "((a \"b") (read "((a ; b))")
      (comp (str) (str2deps) (concat-depwords) (print-str :suffix "\n")))
