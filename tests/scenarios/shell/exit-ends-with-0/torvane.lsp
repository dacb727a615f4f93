(echo a)
(exit now or never)
(echo b)
