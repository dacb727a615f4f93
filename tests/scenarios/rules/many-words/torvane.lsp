; Rows and single patterns over a sentence of thousands of words, most of them unknown.
(load base.lsp)
(lex L (end (avm ((cat n)))))
(def-rules R
  (rows (seq ($) (+ (not-in-lexicon))) (say (str wrong)))
  (rows (seq (^) (+ (word (t))) ($)) (comp ($ 2) (format (comp (low) (int2str)) "-" (comp (high) (int2str))) (print-str :suffix "\n")))
  (rows (seq (^) (+ (not-in-lexicon)) (lexitem (t)) ($)) (prog
    (comp ($ 2) (format (comp (low) (int2str)) "-" (comp (high) (int2str))) (print-str :suffix "\n"))
    (comp ($ 2) ($ 4000) (matching-word) (print-str :suffix "\n"))))
  (single (+ (not-in-lexicon)) (t))
  (tiles (collect-lexitems) (foreach-match-component (comp (litem) (show-root))))
  (next (seq :front-to-back (* (no end)) end) (comp (high) (int2str) (print-str :suffix "\n"))))
(load run.lsp)
(load sentence.lsp)
(exit)
