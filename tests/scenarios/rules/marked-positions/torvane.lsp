; Positions that a rule marks. Marks outside the sentence are no marks.
(load base.lsp)
(lex L (uh (avm ((cat j)))) (and (avm ((cat j)))) (both (avm ((cat j)))))
(def-rules R
  (mark (lexitem (t)) (prog (skip (low)) (skip (int 0)) (skip (int 99)) (skip (int -7))
     (flag-adv (litem)) (flag-first-conjunction (litem)) (flag-last-conjunction (litem))
     (flag-adv (nil)) (flag-adv)))
  (flag (:precondition (is-mixed-case)) (word-seq uh) (say (str "mixed at first")))
  (case (word-seq uh) (analyzer (set-mixed-case 0)))
  (flag (:precondition (is-mixed-case)) (word-seq uh) (say (str wrong)))
  (read (word-seq uh) (comp (analyzer) (set-mixed-case) (int2str) (show)))
  (case (word-seq uh) (analyzer (set-mixed-case yes)))
  (flag (:precondition (is-mixed-case)) (word-seq uh) (say (str "mixed again"))))
(sentence "no item in the sentence:" "both uh and")
