; What the cases share: nodes by their letter, and rules run over the tree.
(defmacro is (letter) (comp (cat) (str= letter)))
(defmacro any () (node (cat)))
(defmacro n (letter) (node (is letter)))
(defmacro say (text) (comp (str text) (print-str)))
(defmacro child (k) (if (match k) (comp (match k) (cat) (print-str)) (say "-")))
(defmacro over-tree (rules) (read-and-modify-deps rules (comp (str tree.txt) (open-file))))
(defmacro run (rules) (eval (prog (over-tree rules) (say "\n"))))
(defmacro over (name rule) (def-tree-rules name rule) (eval (prog (say name) (say ": "))) (run name))
