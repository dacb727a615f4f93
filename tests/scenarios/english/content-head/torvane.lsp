; The content-head style: for each rule a sentence, and some in which several work together.
(load data/torvane.lsp)
(defmacro put (text) (comp (str text) (print-str (output trees.txt))))
(defun show () (prog (if (node2minp) (node2minp (print-str :prefix "(" (output trees.txt))))
  (if (rel) (rel (print-str :prefix " " (output trees.txt)))) (all-children (prog (put " ") (show) (t))) (put ")")))
(load data/english/content-head.lsp)
(def-tree-rules content-head (root (prog (show) (put "\n"))))
(set-deps-modifier english-parser content-head)
; gap, empty-node
(p3 "What did she buy?") (p3 "What do you think he is looking at?")
(p3 "The letter that I received was short.") (p3 "The letter I received was short.")
(p3 "The man I talked to left.")
; preposition, joined-prepositions, preposition-of-verb
(p3 "He came in spite of the rain.") (p3 "She lives in Boston and in Paris.")
(p3 "She looked at and under the table.") (p3 "To whom did you give the book?")
(p3 "The house in which he lives is old.") (p3 "She won by leaving.")
; infinitive
(p3 "They hope to win.")
; copula, auxiliary-of-copula, copula-of-clause
(p3 "The water is hot.") (p3 "He has not been in Boston.") (p3 "The plan is to win.")
(p3 "The problem is that she is swimming.")
; passive, auxiliary-of-passive
(p3 "The thief has been caught by a child.")
; first-conjunct
(p3 "Tom, Anna and Peter sang in Boston, London or Paris.") (p3 "Anna sang, danced and laughed.")
; top
(p3 "The dog slept")
