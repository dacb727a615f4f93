; Macros with too few or too many arguments, macros that are no macros, and what debugging shows of them.
(defmacro pair (a b) (echo "<" a b ">"))
(pair) (pair 1) (Pair 1 2 3) (pair () "")
(defmacro) (defmacro (x) (y)) (defmacro atom params (echo from atom))
(atom)
(echo -- debugged)
(debug-macro "*") (pair 1) (debug-macro PAIR) (pair x "y z") (debug-macro nosuch) (pair 5 6)
