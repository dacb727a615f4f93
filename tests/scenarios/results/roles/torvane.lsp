; Relations: of the link, of an argument's role, of a gap's trace, of a filled clause.
(load base.lsp)
(p3 "boys see the box")
(p3 "boys put the box in")
(p3 "boys put the box")
(p3 "boys like")
(p3 "boys sleep in the box in")
(exit)
