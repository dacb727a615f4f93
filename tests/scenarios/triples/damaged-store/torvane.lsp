; Stores with one byte changed: whatever they make of it, the run goes on.
(make-tripledb memory 7) (make-tripledb db 7) (make-tripledb whole 7) (link-file whole two.hdr rw)
(populate-tripledb whole two.txt two.deps) (unlink-file whole)
(system "python3 damage.py")
(load runs.lsp)
(echo end)
