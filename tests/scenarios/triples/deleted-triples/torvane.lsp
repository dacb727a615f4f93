; Triples of a list are deleted from a store.
(make-tripledb small 7) (link-file small deleted.hdr rw) (populate-tripledb small two.txt two.deps)
(del-tripledb-entry small del.txt)
(echo -- no count is left)
(get-total-count small) (unlink-file small) (link-file small deleted.hdr) (validate small)
(st small a b c r s) (get-total-count small) (del-tripledb-entry small nowhere.txt)
(del-tripledb-entry nothing del.txt)
