(declare-var word char*)
(declare-var any)
(declare-var)
(declare-var any)
(eval (setq word (str first)) (setq any (int 3)))
; a let variable is a new one, empty until it is set
(eval (let (word) (get-val word (print-str :suffix "\n")) (setq word (int 1)) (get-val word (int2str (print-str :suffix "\n")))))
(eval (get-val word (print-str :suffix "\n")))
(eval (let ((any int) (other char*)) (setq any (int 4)) (setq other (int 5)) (get-val any (int2str (print-str :suffix "\n")))))
(eval (get-val any (int2str (print-str :suffix "\n"))))
; texts made along the way stay in the variable
(foreach (one two) :eval (setq any (format "<" (ident) ">")))
(eval (format overwritten) (get-val any (print-str :suffix "\n")))
; without an expression it is the input that is set
(foreach (three) :eval (setq any))
(eval (get-val any (print-str :suffix "\n")))
(eval (setq) (setq unknown) (get-val) (get-val unknown (print-str :prefix "nothing: " :suffix "\n")))
(let (x) (t))
