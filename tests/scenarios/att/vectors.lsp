; Types of vectors inside vectors, what shows one on a line, and titles of lines.
(def-att-list I (defattribute a BinAtt) (defattribute k EnumAtt (allowable-values x y z)))
(def-att-list O
  (defattribute v VecAtt (interpreter I)) (defattribute fr ListAtt (interpreter I))
  (defattribute to ListAtt (interpreter I)) (defattribute st StackAtt (interpreter I)) (defattribute n IntAtt))
(defun show () (comp (attvec2str) (print-str :suffix " ")))
(defmacro title (text) (eval (comp (str text) (print-str :prefix "\n-- " :suffix "\n"))))
