; Macros that run themselves without end.
(defmacro once () (once) (echo up))
(defmacro twice (x) (twice x) (twice x))
(defmacro other () (twice 1) (echo other))
(defmacro growing (x) (growing (x x)) (growing (x x)))
(once) (growing a) (twice 1) (other)
(echo good)
