; Dumps of lines that are cut, doubled, far too long, or of counts that make no sense.
(make-tripledb db 3) (link-file db store.hdr rw) (populate-tripledb db rels.txt deps.txt)
(populate db deps.txt)
(populate db rels.txt)
(populate-tripledb db deps.txt rels.txt :min-freq -1 :min-rel-freq -10)
(del-tripledb-entry db deps.txt) (del-tripledb-entry db rels.txt) (unlink-file db)
(link-file db store.hdr) (validate db) (dump-tripledb db rels.out deps.out)
(print-high-mutinfo db :min-mutinfo -200 :inv :output high.out)
(echo done)
