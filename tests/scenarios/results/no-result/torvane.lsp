; A sentence without a tree prints the frame of one.
(load base.lsp)
(p3 "boys sleep")
