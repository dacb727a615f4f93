; A regular expression that is not well formed ends the run.
(echo before)
(help "a**")
(echo never)
