; Sentences far beyond any that a grammar is written for. Where the pool of items ends, the sentence does
; not; nor does it harm the next one.
(load base.lsp)
(make-lexicon dict 101)
(lex dict
  (boy (avm ((cat n)))) (big (avm ((cat a)))))
(make-lex-analyzer la :lexicon dict)
(defmacro a-parser (name analyser)
  (def-torvane-parser name :attribute-vector-type syn :lexical-attributes (lexitem)
    :show-attributes (cat) :default-percolating-attributes ()
    :weights-of-words (int 0) :lexical-analyzer analyser))
(a-parser long la)

(def-category A) (def-category N)
(def-modifiers N (* (A (dep-type mod))) (:head) (* (A (dep-type mod))))
(roots (N))

(load long.lsp)
(p3 "big boy big")
(def-modifiers N (* (N (dep-type left))) (:head) (* (N (dep-type right))))
(load every-word-on-every-word.lsp)
(p3 "boy boy boy")

; An empty item before the first word fills the pool: one head that takes it over and over, and itself over
; and over.
(def-rules front (e (word-seq boy) (insert-empty-category (int 0) (avm (avm ((cat a)))))))
(make-lex-analyzer la2 :lexicon dict :lexical-rules front)
(a-parser fronts la2)
(def-category A (visible-atts (cat))) (def-category N (visible-atts (cat)))
(def-modifiers N (* (A (dep-type mod))) (:head))
(roots (N))
(load fronts.lsp)
(def-modifiers A (* (A (dep-type mod))) (:head))
(load fronts.lsp)
(exit)
