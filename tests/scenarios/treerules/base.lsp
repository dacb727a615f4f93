; What the cases share: nodes by their letter, and rules run over the tree.
(defmacro is (letter) (comp (cat) (str= letter)))
(defmacro any () (node (cat)))
(defmacro n (letter) (node (is letter)))
(defmacro say (text) (comp (str text) (print-str)))
(defmacro child (k) (if (match k) (comp (match k) (cat) (print-str)) (say "-")))
(defmacro over-tree (rules) (read-and-modify-deps rules (comp (str tree.txt) (open-file))))
(defmacro run (rules) (eval (prog (over-tree rules) (say "\n"))))
(defmacro over (name rule) (def-tree-rules name rule) (eval (prog (say name) (say ": "))) (run name))
(defmacro say-node () (match (cat (print-str :suffix " "))))
; A tree in brackets, with its relations; an edit, what it gave, and what it made of the tree.
(defmacro at (letter) (comp (match) (find-first-node (is letter))))
(defun show () (prog (cat (print-str :prefix "(")) (if (rel) (rel (print-str :prefix ":")))
                     (all-children (prog (show) (t))) (say ")")))
(defmacro on-match (cond name exp)
  (def-tree-rules name
    (up (node cond) (comp exp (if (ident) (if (cat) (cat (print-str :suffix " ")) (say "top ")) (say "- ")))))
  (over name (root (all-children (prog (show) (t))))))
