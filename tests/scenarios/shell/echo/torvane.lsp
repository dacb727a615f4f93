; What echo prints, and that names of commands have no case.
(echo)
(ECHO a "b  c" d)
(echo (a b) c (d))
("echo" "" x "")
(echo ,)
(exit now or never)
(echo never)
