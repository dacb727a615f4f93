; The pattern page shows what the program matches.
(load base.lsp)
(load page.lsp)
(p3 "the old man saw Fido in New York")
