(echo loaded)
(def-rules R (from-file y (nil)))
