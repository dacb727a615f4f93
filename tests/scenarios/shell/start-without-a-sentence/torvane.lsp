; Without a sentence nothing runs.
(echo never)
