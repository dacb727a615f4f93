; The first conjunct is the head.
(load base.lsp)
(p3 "boys and boys sleep")
(p3 "boys , boys and boys")
(exit)
