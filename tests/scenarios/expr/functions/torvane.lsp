(defun twice (x) "gives a text two times" (format (get-val x) (get-val x)))
(eval (comp (twice (twice (str ab))) (print-str :suffix "\n")))
; an argument sees the input of the call
(foreach (in) :eval (comp (twice (ident)) (print-str :suffix "\n")))
; a function that calls itself: the digits of a number, backwards in words
(defun stars (n) (if (get-val n (int-gt (ident) (int 0))) (format "*" (stars (get-val n (-1)))) (str "")))
(eval (comp (stars (int 7)) (print-str :suffix "\n")))
; two that call each other by way of a command
(declare-var depth)
(defun ping () (when (get-val depth) (setq depth (get-val depth (-1))) (exec-commands (echo ping) (eval (pong)))))
(defun pong () (when (get-val depth) (setq depth (get-val depth (-1))) (exec-commands (echo pong) (eval (ping)))))
(eval (setq depth (int 3)) (ping))
; names have no case; a body may be empty
(EVAL (COMP (TWICE (STR c)) (PRINT-STR :SUFFIX "\n")))
(defun nothing ())
(foreach (x) :eval (comp (nothing) (print-str :suffix "\n")))
(objects "^(twice|nothing)$" LExp)
; what is wrong with these is said, and the run goes on
(defun)
(defun (a) (t))
(defun bodiless)
(eval (bodiless) (twice) (twice (t) (t)))
(defun twice () (str other))
(defun typed ((x char*)) (get-val x (print-str :suffix "\n")))
(eval (typed (str text)) (typed (int 3)))
(foreach (y) :eval (typed (ident)))
