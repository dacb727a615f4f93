(echo loaded)
(def-rules R3 (from-file y (nil)))
