; Case counts where the file says so, and who only reads changes nothing.
(make-tripledb db 7) (link-file db exact.hdr rw) (populate-tripledb db small.txt) (unlink-file db)
(link-file db exact.hdr readwrite)
(echo -- one of two keys) (s db DOG) (s db dog) (sync db) (s db dog)
(echo -- only read)
(populate-tripledb db small.txt :min-freq 100) (unlink-file db) (link-file db exact.hdr)
(dump db)
