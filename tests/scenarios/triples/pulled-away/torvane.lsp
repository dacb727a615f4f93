; Expressions that pull the database from under a report.
(make-tripledb full 11) (link-file full full.hdr rw) (populate-tripledb full full.rels full.deps)
(print-high-mutinfo full :min-mutinfo -200 :feature (exec-commands (unlink-file full)))
(link-file full full.hdr rw)
(print-entries-with-few-features full :cond (exec-commands (st full a) (unlink-file full) (make-tripledb made)))
(link-file full full.hdr rw)
(make-avg-entry full :words (a c) :mi-threshold -200 :name kept
  :require (exec-commands (unlink-file full) (make-tripledb made-too)))
(st full a kept)
(echo -- from the file) (link-file full full.hdr) (st full a kept)
