; Vectors inside vectors: read, unpacked and grown beyond every stack.
(def-att-list T (defattribute l ListAtt) (defattribute v VecAtt) (defattribute i IntAtt)
  (defattribute m ListAtt))
(load deep.lsp) (load-aliases packed)
(declare-var x) (declare-var n) (declare-var y)
(eval (setq x (attvec (~l))))
(eval (setq n (int 0)))
(eval (comp (int 1) (while (int-gt (int 100000) (get-val n)) (prog
  (comp (get-val x) (insert-into-avlist l (ident)) (move-att l m) (undefine (l)) (move-att m l))
  (setq n (comp (get-val n) (+1)))))))
(eval (comp (get-val n) (int2str) (print-str :suffix "\n")))
(eval (setq n (int 0)))
; one vector, put into itself over and over: what it shares with itself would be a tree of any size
(eval (setq y (attvec (~l (v (i 1))))))
(eval (comp (int 1) (while (int-gt (int 60) (get-val n))
  (prog (comp (get-val y) (insert-into-avlist l (ident))) (setq n (comp (get-val n) (+1)))))))
(eval (comp (get-val y) (unify2 (value v AttVec*) (ident))))
(eval (comp (get-val y) (value v AttVec*) (attvec2str i v) (print-str :suffix "\n")))
(eval (setq x (nil)))
; aliases that stand twice in one another: what is shared already is not taken apart
(def-att-list A (defattribute v VecAtt) (defattribute w VecAtt) (defattribute l ListAtt)
  (defattribute s StackAtt) (defattribute i IntAtt))
(load tower.lsp)
(eval (comp (attvec (a40)) (unify (a40)) (modify (a40)) (contain (a40)) (attvec2str) (print-str :suffix "\n")))
(eval (comp (attvec (b40)) (unify (b40)) (modify (b40)) (contain (b40)) (str "lists\n") (print-str)))
; what would be a tree of any size when it is written is cut in time
(print-alias a40)
(echo done)
