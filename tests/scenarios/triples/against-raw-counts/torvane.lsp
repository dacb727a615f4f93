; Reports over mutual information, from a database in memory and from one on disk; check.py computes the same rows
; from the raw counts.
(make-tripledb memory 101) (populate-tripledb memory main.rels main.deps :min-rel-freq 0)
(make-tripledb disk 101) (link-file disk db.hdr rw)
(populate-tripledb disk main.rels main.deps :min-rel-freq 0)
(defmacro ask (db)
  (echo == search) (search-tripledbs db w1 nosuch subj W7)
  (echo == high) (print-high-mutinfo db :min-mutinfo 0.4 :min-count 2)
  (echo == inverse) (print-high-mutinfo db :inv :min-mutinfo 0.1 :feature (in (of)) :inv-feature (in (obj of)))
  (echo == low) (print-low-mutinfo db :max 0.02)
  (echo == total) (print-total-mutinfo db :feature (in (mod subj))))
(ask memory)
(ask disk)
