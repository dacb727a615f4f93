; A dictionary of 20,000 entries, and one of a very long entry.
(make-str-meaning-proto g) (make-lexicon L 5) (link-lex-file L lex.hdr)
(lex-entry L w1 w19999 nosuch) (get-entry long.hdr (z))
(system "wc -c < lex.idx")
