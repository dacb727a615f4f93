; A database is populated in memory and on disk, its dumps populate another one, and a smaller text empties what it
; names.
(make-tripledb db) (link-file db one.hdr rw) (get-total-count db) (populate-tripledb db rels.txt deps.txt :min-rel-freq 0) (get-total-count db) (unlink-file db) (get-total-count db) (link-file db one.hdr) (get-total-count db)
(print-keys db)
(dump-tripledb db rels.out deps.out) (make-tripledb again 7 :id-table-size 3)
(populate-tripledb again rels.out deps.out) (dump-tripledb again rels.2 deps.2)
(make-tripledb few 7) (populate-tripledb few few.txt)
(print-high-mutinfo few :background again :words-only :min-score 0)
(make-tripledb high) (link-file high high.hdr rw) (populate-tripledb high rels.txt deps.txt)
(dump-tripledb high rels.3 deps.3) (unlink-file high) (link-file high high.hdr rw)
(populate-tripledb high rels.txt deps.txt) (unlink-file high) (link-file high high.hdr rw)
(validate high) (dump-tripledb high rels.4 deps.4) (st high eat) (get-total-count high)

(echo "-- a smaller text empties what it names")
(populate-tripledb high smaller.txt) (unlink-file high) (link-file high high.hdr) (validate high)
(st high eat apple)
