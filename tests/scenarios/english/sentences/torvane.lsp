; A sentence for each construction: category, word and relation of every node of its tree.
(load data/torvane.lsp)
(defmacro put (text) (comp (str text) (print-str (output trees.txt))))
(defun show () (prog (cat (print-str :prefix "(" :suffix " " (output trees.txt))) (if (node2minp) (node2minp (print-str (output trees.txt))))
  (if (rel) (rel (print-str :prefix " " (output trees.txt)))) (all-children (prog (put " ") (show) (t))) (put ")")))
(def-tree-rules shown (root (prog (show) (put "\n"))))
(set-deps-modifier english-parser shown)
; Words: numbers, names, compounds, abbreviations, and what the lexicon lacks.
(p3 "The World Health Organization (WHO) met.") (p3 "Mr. Brown met Dr. Green.")
(p3 "My mother-in-law smiled.") (p3 "A well-known actor spoke.")
(p3 "Ludwig van Beethoven was deaf.") (p3 "The ticket cost $12.50.") (p3 "She arrived on May 12.")
(p3 "He built a house in 1990.") (p3 "My mother's friend bought the farmer's horse.")
(p3 "The blorks glinned the tove.") (p3 "She grombled sploodily.") (p3 "Zorvath met Queen Ilmara.")
(p3 "He easily won the race.")
; Clauses: arguments and adjuncts, auxiliaries, case.
(p3 "They gave up the plan.") (p3 "He read quickly the letter.") (p3 "Please close the door.")
(p3 "There are two chairs in the room.") (p3 "The letter was written by a famous poet.")
(p3 "The bridge must have been being repaired.") (p3 "I saw her and she saw me.")
; Coordination, relative clauses and questions.
(p3 "Both the cat and the dog slept.") (p3 "The students read books and wrote letters.")
(p3 "The book I bought was cheap.") (p3 "Nobody knows where he went.")
(p3 "What do you think that he wants?")
(p3 "The old man who lived in the small house near the river told the children a long story about a brave knight who fought a terrible dragon in the mountains.")
; What is skipped.
(p3 "She opened the \"secret\" door.")
