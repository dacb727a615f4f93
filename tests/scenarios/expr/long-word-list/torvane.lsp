; A list of a million words in a file.
(echo -- from the file)
(foreach (word0 WORD500000 word999999 word1000000) :eval
  (if (in long.txt) (print-str :suffix " yes, ") (print-str :suffix " no, ")))
(echo)
(echo -- by name)
(make-word-list long :hashsize 7 long.txt)
(foreach (WORD500000 word1000000) :eval
  (if (in :wordlist long) (print-str :suffix " yes, ") (print-str :suffix " no, ")))
(echo)
