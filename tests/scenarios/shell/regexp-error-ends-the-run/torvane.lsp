(echo before)
(help "a**")
(echo never)
