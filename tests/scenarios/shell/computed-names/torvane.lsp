; The name of a command may be what another command gives.
((quote echo) 1)
(((quote quote) echo) 2)
((quote (a b)) 3)
((quote) 4)
((echo x) 5)
((nosuch) 6)
(() 7)
(((quote (quote echo))) 8)
