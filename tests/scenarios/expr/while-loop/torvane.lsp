; A loop over a variable.
(declare-var n) (declare-var line)
(eval (setq n (int 5)) (setq line (str "")))
(eval (while (get-val n)
        (setq line (format (get-val line) (get-val n (int2str))))
        (setq n (get-val n (-1)))))
(eval (get-val line (print-str :suffix "\n")))
(eval (get-val n (int2str (print-str :suffix "\n"))))
