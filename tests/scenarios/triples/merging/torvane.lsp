; A database is merged into another one whose ids differ, and into itself.
(make-tripledb one 7) (link-file one one.hdr rw) (populate-tripledb one one.txt one.deps)
(make-tripledb two 7) (link-file two two.hdr rw) (populate-tripledb two two.txt two.deps)
(echo "-- ids of the two differ") (merge-tripledbs one two) (get-total-count one) (st one a b c r s)
(echo "-- into itself, linked and in memory")
(merge-tripledbs one one) (get-total-count one)
(make-tripledb memory 7) (merge-tripledbs memory one) (merge-tripledbs memory memory) (get-total-count memory) (st memory b)
(merge-tripledbs one nothing) (merge-tripledbs nothing one)
