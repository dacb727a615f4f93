(eval (say (str loaded)))
(def-rules R (from-file y (nil)))
