; The classes of named objects, and objects with their comments.
(CLASSES "^LE" more)
(echo -- forms) (objects "^(t|nil|prog1)$")
(echo -- of a class)
(objects "^t$" "^lexp$") (objects "^t$" "^LExp$") (objects nosuch nosuch) (objects nosuch (b))
