; Two known types must agree; an unknown one is accepted everywhere.
(foreach (w) :eval (comp (str a) (str= a) (null-str)))
(foreach (w) :eval (+1 (int2str (print-str))))
(foreach (w) :eval (comp (int 5) (print-str)))
(eval (comp (int 5) (ident) (print-str :suffix "\n")))
(foreach (w) :eval (1/2))
(foreach (w) :eval (comp (int 5) (in (a))))
(foreach (w) :eval (int2str))
(foreach (w) :eval (comp (int 3) (all-words (t))))
