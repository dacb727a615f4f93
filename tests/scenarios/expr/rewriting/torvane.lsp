; Texts rewritten by regular expressions. One that is not well formed ends the run.
(defun show () (print-str :prefix "[" :suffix "] "))
(foreach (banana "") :eval (prog
  (comp (reg-sub "a" "<&>") (show)) (comp (reg-sub "a" "<&>" g) (show))
  (comp (reg-sub "a" "<&>" g 4) (show)) (comp (reg-sub "^ba" "-" g) (show))
  (comp (reg-sub "(.)(.)" "\\2\\1" g) (show)) (comp (reg-sub "x*" "." g) (show))
  (comp (reg-sub "$" "!" g) (show)) (comp (reg-sub "n|b" "" g) (show))
  (comp (reg-sub "zz" "-") (show))))
(foreach (Cat CAT "") :eval (if (reg-match "^cat$" "^C.t$") (show) (print-str :prefix no- :suffix "\n")))
(foreach (a) :eval (prog (reg-match) (reg-match (list)) (reg-sub) (reg-sub a) (reg-sub (a) (b))))
(reg-match a)
(foreach (a) :eval (reg-match "fine" "(open"))
(echo never)
